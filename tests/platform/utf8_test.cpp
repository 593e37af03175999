#include "platform/utf8.h"

#include <gtest/gtest.h>

namespace {

using platform::from_utf8;
using platform::to_utf8;

TEST(Utf8, EveryLengthOfASequenceIsWritten) {
    EXPECT_EQ(to_utf8(L"A\u007F"), "A\x7F");
    EXPECT_EQ(to_utf8(L"\u0080\u00C4\u07FF"), "\xC2\x80\xC3\x84\xDF\xBF");
    EXPECT_EQ(to_utf8(L"\u0800\u4E0B\uFFFF"), "\xE0\xA0\x80\xE4\xB8\x8B\xEF\xBF\xBF");
    EXPECT_EQ(to_utf8(L"\U00010000\U0010FFFF"), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(Utf8, EveryLengthOfASequenceIsRead) {
    EXPECT_EQ(from_utf8("A\x7F"), L"A\u007F");
    EXPECT_EQ(from_utf8("\xC2\x80\xC3\x84\xDF\xBF"), L"\u0080\u00C4\u07FF");
    EXPECT_EQ(from_utf8("\xE0\xA0\x80\xE4\xB8\x8B\xEF\xBF\xBF"), L"\u0800\u4E0B\uFFFF");
    EXPECT_EQ(from_utf8("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), L"\U00010000\U0010FFFF");
}

TEST(Utf8, BytesThatAreNoSequenceAreTakenOneByOne) {
    EXPECT_EQ(from_utf8("\xE4\xB8"), L"\u00E4\u00B8") << "cut short";
    EXPECT_EQ(from_utf8("\xC0\x80"), L"\u00C0\u0080") << "longer than needed";
    EXPECT_EQ(from_utf8("\xED\xA0\x80"), L"\u00ED\u00A0\u0080") << "half of a pair";
    EXPECT_EQ(from_utf8("\xF5"), L"\u00F5");
    EXPECT_EQ(from_utf8("\x80z"), L"\u0080z");
}

TEST(Utf8, HalfOfAPairIsWrittenAsTheReplacement) {
    CString half = L"a";
    half += static_cast<wchar_t>(0xD800);
    half += L'b';
    EXPECT_EQ(to_utf8(half),
              "a\xEF\xBF\xBD"
              "b");
}

TEST(Utf8, NothingIsNothing) {
    EXPECT_EQ(to_utf8(L""), "");
    EXPECT_EQ(from_utf8(""), L"");
}

}  // namespace
