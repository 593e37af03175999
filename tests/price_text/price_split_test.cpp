#include <gtest/gtest.h>

#include <vector>

#include "tests/support/number_locale_scope.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"

namespace {

// Whole, numerator, denominator, prefix, suffix.
std::vector<CString> split(const CString& text, LONG code = 'k') {
    std::vector<CString> parts(5, L"old");
    CPriceScale(code).SplitPrice(text, parts[0], parts[1], parts[2], parts[3], parts[4]);
    return parts;
}

using parts = std::vector<CString>;

TEST(SplitPrice, CutsAShownFraction) {
    const number_locale_scope scope(english());
    EXPECT_EQ(split(L"12 3/32"), (parts{L"12", L"3", L"32", L"", L""}));
    EXPECT_EQ(split(L"3.5/32"), (parts{L"", L"3.5", L"32", L"", L""}));
    EXPECT_EQ(split(L"1,234 1/32"), (parts{L"1,234", L"1", L"32", L"", L""}));
    EXPECT_EQ(split(L"12"), (parts{L"12", L"", L"", L"", L""}));
    EXPECT_EQ(split(L""), (parts{L"", L"", L"", L"", L""}));
}

TEST(SplitPrice, CutsAtTheFirstBarAndTheFirstBlank) {
    const number_locale_scope scope(english());
    EXPECT_EQ(split(L"1/2/3"), (parts{L"", L"1", L"2/3", L"", L""}));
    EXPECT_EQ(split(L"1 2 3/4"), (parts{L"1", L"2 3", L"4", L"", L""}));
}

TEST(SplitPrice, PrefixAndSuffixAreThoseOfTheNegativeForm) {
    const struct {
        const wchar_t* prefix;
        const wchar_t* suffix;
    } forms[] = {{L"(", L")"}, {L"-", L""}, {L"- ", L""}, {L"", L"-"}, {L"", L" -"}};
    for (UINT form = 0; form < 5; ++form) {
        const number_locale_scope scope(english(form));
        const CString shown = CPriceScale('k').ToText(-12.09375, 1);
        EXPECT_EQ(split(shown), (parts{L"12", L"3", L"32", forms[form].prefix, forms[form].suffix})) << form;
    }
}

TEST(SplitPrice, AFormThatDoesNotExistHasNeither) {
    const number_locale_scope scope(english(7));
    EXPECT_EQ(split(L"-12 3/32"), (parts{L"12", L"3", L"32", L"", L""}));
}

TEST(TextWidth, IsTheTextsLengthForDecimalCodes) {
    const number_locale_scope scope(english());
    for (const LONG code : {LONG{-1}, LONG{2}, LONG{'m'}, LONG{999}}) {
        EXPECT_EQ(CPriceScale(code).GetTextWidthInChars(L"-1,234.50"), 9) << code;
        EXPECT_EQ(CPriceScale(code).GetTextWidthInChars(L""), 0) << code;
    }
}

TEST(TextWidth, IsThatOfThePiecesAndOneMoreForFractionCodes) {
    const number_locale_scope scope(english());
    const CPriceScale scale('k');
    EXPECT_EQ(scale.GetTextWidthInChars(L"12 3/32"), 6);
    EXPECT_EQ(scale.GetTextWidthInChars(L"3/32"), 4);
    EXPECT_EQ(scale.GetTextWidthInChars(L"-12 3/32"), 7);
    EXPECT_EQ(scale.GetTextWidthInChars(L"12"), 3);
}

TEST(TextWidth, CountsBothEndsOfANegativeFraction) {
    const number_locale_scope scope(english(0));
    EXPECT_EQ(CPriceScale('k').GetTextWidthInChars(L"(12 3/32)"), 8);
}

}  // namespace
