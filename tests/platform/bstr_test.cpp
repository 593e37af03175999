#include <gtest/gtest.h>

#include <string>

#include "platform/com.h"

namespace {

TEST(Bstr, HasItsLengthInFrontAndATerminatorBehind) {
    const BSTR text = SysAllocString(L"Buy");
    EXPECT_EQ(SysStringLen(text), 3U);
    EXPECT_EQ(SysStringByteLen(text), 3 * sizeof(OLECHAR));
    EXPECT_EQ(*(reinterpret_cast<const UINT*>(text) - 1), 3 * sizeof(OLECHAR));
    EXPECT_EQ(text[3], L'\0');
    EXPECT_STREQ(text, L"Buy");
    SysFreeString(text);
}

TEST(Bstr, MayHoldNulls) {
    const BSTR text = SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(SysStringLen(text), 3U);
    EXPECT_EQ(std::wstring(text, 3), std::wstring(L"a\0b", 3));
    EXPECT_EQ(text[3], L'\0');
    SysFreeString(text);
}

TEST(Bstr, NullIsNoTextAndTheEmptyTextIsOne) {
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    const BSTR empty = SysAllocString(L"");
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(SysStringLen(empty), 0U);
    EXPECT_EQ(empty[0], L'\0');
    SysFreeString(empty);
}

TEST(Bstr, NullHasNoLengthAndMayBeFreed) {
    EXPECT_EQ(SysStringLen(nullptr), 0U);
    EXPECT_EQ(SysStringByteLen(nullptr), 0U);
    SysFreeString(nullptr);
}

TEST(Bstr, RoomWithoutTextIsTerminated) {
    const BSTR room = SysAllocStringLen(nullptr, 4);
    ASSERT_NE(room, nullptr);
    EXPECT_EQ(SysStringLen(room), 4U);
    EXPECT_EQ(room[4], L'\0');
    SysFreeString(room);
}

TEST(Bstr, TakesAnyNumberOfBytes) {
    const BSTR bytes = SysAllocStringByteLen("abcde", 5);
    EXPECT_EQ(SysStringByteLen(bytes), 5U);
    EXPECT_EQ(SysStringLen(bytes), 5 / sizeof(OLECHAR));
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes), 5), "abcde");
    SysFreeString(bytes);
}

TEST(Bstr, AnImpossibleLengthGivesNull) {
    EXPECT_EQ(SysAllocStringLen(nullptr, 0x7FFFFFFF), nullptr);
}

TEST(Bstr, ReallocationReplacesTheText) {
    BSTR text = SysAllocString(L"first");
    EXPECT_TRUE(SysReAllocString(&text, L"second one"));
    EXPECT_STREQ(text, L"second one");
    EXPECT_EQ(SysStringLen(text), 10U);
    EXPECT_TRUE(SysReAllocStringLen(&text, L"third", 2));
    EXPECT_STREQ(text, L"th");
    EXPECT_EQ(SysStringLen(text), 2U);
    SysFreeString(text);
}

TEST(Bstr, ReallocationFromNothing) {
    BSTR text = nullptr;
    EXPECT_TRUE(SysReAllocString(&text, L"x"));
    EXPECT_STREQ(text, L"x");
    SysFreeString(text);
}

TEST(Bstr, ReallocationToNothing) {
    BSTR text = SysAllocString(L"x");
    EXPECT_TRUE(SysReAllocString(&text, nullptr));
    EXPECT_EQ(SysStringLen(text), 0U);
    SysFreeString(text);
}

}  // namespace
