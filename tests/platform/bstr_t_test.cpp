#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "platform/com.h"

namespace {

const wchar_t* text_of(const _bstr_t& text) {
    return static_cast<const wchar_t*>(text);
}

TEST(BstrT, StartsAsNoText) {
    const _bstr_t none;
    EXPECT_TRUE(!none);
    EXPECT_EQ(none.length(), 0U);
    EXPECT_EQ(text_of(none), nullptr);
    EXPECT_EQ(none.copy(), nullptr);
}

TEST(BstrT, TheEmptyTextIsAText) {
    const _bstr_t empty(L"");
    EXPECT_FALSE(!empty);
    EXPECT_EQ(empty.length(), 0U);
    EXPECT_STREQ(text_of(empty), L"");
}

TEST(BstrT, CopiesShareOneText) {
    _bstr_t first(L"one");
    _bstr_t second(first);
    EXPECT_EQ(text_of(first), text_of(second));
    second = L"two";
    EXPECT_STREQ(text_of(first), L"one");
    EXPECT_STREQ(text_of(second), L"two");
    first = second;
    EXPECT_EQ(text_of(first), text_of(second));
    const _bstr_t& same = first;
    first = same;
    EXPECT_STREQ(text_of(first), L"two");
}

TEST(BstrT, CopiesOrTakesOverAGivenText) {
    const BSTR mine = SysAllocStringLen(L"a\0b", 3);
    const _bstr_t copied(mine, true);
    EXPECT_NE(text_of(copied), mine);
    EXPECT_EQ(copied.length(), 3U);
    const _bstr_t taken(mine, false);
    EXPECT_EQ(text_of(taken), mine);
    EXPECT_EQ(taken.length(), 3U);
    EXPECT_TRUE(copied == taken);
}

TEST(BstrT, CopyGivesAnOwnedTextOrABorrowedOne) {
    const _bstr_t text(L"abc");
    EXPECT_EQ(text.copy(false), text_of(text));
    const BSTR owned = text.copy();
    EXPECT_NE(owned, text_of(text));
    EXPECT_STREQ(owned, L"abc");
    SysFreeString(owned);
}

TEST(BstrT, Joins) {
    _bstr_t text(L"ask");
    text += L"/";
    text += _bstr_t(L"bid");
    EXPECT_STREQ(text_of(text), L"ask/bid");
    EXPECT_STREQ(text_of(L"<" + text + L">"), L"<ask/bid>");
    const _bstr_t kept(text);
    text += L"!";
    EXPECT_STREQ(text_of(kept), L"ask/bid");
    text += _bstr_t();
    EXPECT_STREQ(text_of(text), L"ask/bid!");
    EXPECT_EQ(_bstr_t(L"a").length() + (_bstr_t() + _bstr_t(L"b")).length(), 2U);
}

TEST(BstrT, JoiningKeepsNullsInside) {
    const _bstr_t left(SysAllocStringLen(L"a\0", 2), false);
    const _bstr_t joined = left + _bstr_t(L"b");
    ASSERT_EQ(joined.length(), 3U);
    EXPECT_EQ(std::wstring(text_of(joined), 3), std::wstring(L"a\0b", 3));
}

TEST(BstrT, ComparesByUnitThenLength) {
    EXPECT_TRUE(_bstr_t(L"a") < _bstr_t(L"b"));
    EXPECT_TRUE(_bstr_t(L"a") < _bstr_t(L"ab"));
    EXPECT_TRUE(_bstr_t(L"B") < _bstr_t(L"a"));
    EXPECT_TRUE(_bstr_t(L"b") > _bstr_t(L"ab"));
    EXPECT_TRUE(_bstr_t(L"a") == _bstr_t(L"a"));
    EXPECT_TRUE(_bstr_t(L"a") != _bstr_t(L"A"));
    EXPECT_TRUE(_bstr_t(L"a") <= _bstr_t(L"a"));
    EXPECT_TRUE(_bstr_t(L"a") >= _bstr_t(L"a"));
    EXPECT_FALSE(_bstr_t(L"a") >= _bstr_t(L"b"));
    const _bstr_t with_null(SysAllocStringLen(L"a\0b", 3), false);
    EXPECT_TRUE(with_null != _bstr_t(L"a"));
    EXPECT_TRUE(_bstr_t(L"a") < with_null);
}

TEST(BstrT, NoTextComesBeforeTheEmptyText) {
    const _bstr_t none;
    const _bstr_t empty(L"");
    EXPECT_TRUE(none == _bstr_t());
    EXPECT_FALSE(none == empty);
    EXPECT_TRUE(none < empty);
    EXPECT_TRUE(empty > none);
}

TEST(BstrT, ReceivesAnOutArgument) {
    _bstr_t text(L"old");
    const _bstr_t old(text);
    BSTR* const out = text.GetAddress();
    ASSERT_EQ(*out, nullptr);
    *out = SysAllocString(L"new");
    EXPECT_STREQ(text_of(text), L"new");
    EXPECT_STREQ(text_of(old), L"old");
}

TEST(BstrT, GetBstrGivesThePlaceOfTheText) {
    _bstr_t text;
    EXPECT_EQ(text.GetBSTR(), nullptr);
    text.GetBSTR() = SysAllocString(L"placed");
    EXPECT_STREQ(text_of(text), L"placed");
}

TEST(BstrT, AttachTakesOverAndDetachGivesAway) {
    _bstr_t text(L"old");
    const BSTR mine = SysAllocString(L"mine");
    text.Attach(mine);
    EXPECT_EQ(text_of(text), mine);
    const BSTR back = text.Detach();
    EXPECT_EQ(back, mine);
    EXPECT_TRUE(!text);
    SysFreeString(back);
}

TEST(BstrT, AssignCopies) {
    const BSTR mine = SysAllocString(L"mine");
    _bstr_t text;
    text.Assign(mine);
    EXPECT_NE(text_of(text), mine);
    EXPECT_STREQ(text_of(text), L"mine");
    SysFreeString(mine);
}

TEST(BstrT, SharedTextOutlivesItsMaker) {
    std::vector<std::thread> threads;
    {
        const _bstr_t text(L"shared");
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([copy = text] {
                for (int n = 0; n < 1000; ++n) {
                    const _bstr_t again(copy);
                    ASSERT_EQ(again.length(), 6U);
                }
            });
        }
    }
    for (auto& thread : threads) {
        thread.join();
    }
}

TEST(BstrT, GivesItsTextForWriting) {
    const _bstr_t text(L"abc");
    static_cast<wchar_t*>(text)[0] = L'x';
    EXPECT_STREQ(text_of(text), L"xbc");
}

}  // namespace
