#include <gtest/gtest.h>

#include <limits>

#include "tests/support/number_locale_scope.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();

CString grouped(LONG code, double value, LONG minMove = 1) {
    return CPriceScale(code).Format(value, true, minMove);
}
CString plain(LONG code, double value) {
    return CPriceScale(code).Format(value, false, 1);
}

TEST(PriceText, DecimalCodesShowThatManyDecimals) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped(2, 1234.5), L"1,234.50");
    EXPECT_EQ(plain(2, 1234.5), L"1234.50");
    EXPECT_EQ(grouped(0, 1234567.0), L"1,234,567");
    EXPECT_EQ(grouped(9, 1.5), L"1.500000000");
    EXPECT_EQ(grouped(2, 0.0), L"0.00");
    EXPECT_EQ(grouped(2, 0.005), L"0.01");
    EXPECT_EQ(grouped(2, -0.005), L"-0.01");
    EXPECT_EQ(grouped(2, 999.999), L"1,000.00");
}

TEST(PriceText, DecimalsAreSnappedToTheMultiple) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped(2, 10.13, 25), L"10.25");
    EXPECT_EQ(grouped(2, 10.12, 25), L"10.00");
    EXPECT_EQ(grouped(2, -10.13, 25), L"-10.25");
}

TEST(PriceText, DecimalLettersShowTheDigitsOfTheirStep) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped('a', 123456.0), L"120,000");
    EXPECT_EQ(grouped('B', 1500.0), L"2,000");
    EXPECT_EQ(grouped('c', 149.0), L"100");
    EXPECT_EQ(grouped('d', 15.0), L"20");
    EXPECT_EQ(grouped('e', 15.4), L"15");
    EXPECT_EQ(grouped('i', 15.44), L"15.4");
    EXPECT_EQ(grouped('m', 1234.567), L"1,234.57");
    EXPECT_EQ(grouped('n', 1.2345678), L"1.235");
    EXPECT_EQ(grouped('o', 1.2345678), L"1.2346");
    EXPECT_EQ(grouped('p', 1.2345678), L"1.23457");
    EXPECT_EQ(grouped('w', 1.23456789), L"1.234568");
    EXPECT_EQ(grouped('z', 1.2345678), L"1.235");
}

TEST(PriceText, CodeMinusOneTrimsZerosAndSnapsNothing) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped(-1, 2.5), L"2.5");
    EXPECT_EQ(grouped(-1, 100.0), L"100");
    EXPECT_EQ(grouped(-1, 0.0), L"0");
    EXPECT_EQ(grouped(-1, 1234.123456789), L"1,234.123456789");
    EXPECT_EQ(plain(-1, 1234.5), L"1234.5");
    EXPECT_EQ(grouped(-1, 0.000000001), L"0.000000001");
    EXPECT_EQ(grouped(-1, 0.0000000001), L"0");
    EXPECT_EQ(grouped(-1, -0.0000000001), L"0");
    EXPECT_EQ(grouped(-1, 2.5, 1000), L"2.5");
}

TEST(PriceText, ACodeWithoutAStepShowsNoDecimalsAndSnapsNothing) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped(10, 1234.4), L"1,234");
    EXPECT_EQ(grouped(64, 1234.6), L"1,235");
    EXPECT_EQ(grouped(123, 1234.6, 1000), L"1,235");
    EXPECT_EQ(grouped(-2, -7.0), L"-7");
}

TEST(PriceText, FractionLettersShowWholeAndNumeratorOverDenominator) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped('k', 12.09375), L"12 3/32");
    EXPECT_EQ(grouped('k', 0.03125), L"1/32");
    EXPECT_EQ(grouped('k', 12.0), L"12");
    EXPECT_EQ(grouped('K', 1234.03125), L"1,234 1/32");
    EXPECT_EQ(plain('K', 1234.03125), L"1234 1/32");
    EXPECT_EQ(grouped('f', 1.5), L"1 1/2");
    EXPECT_EQ(grouped('g', 1.25), L"1 1/4");
    EXPECT_EQ(grouped('h', 1.125), L"1 1/8");
    EXPECT_EQ(grouped('j', 1.0625), L"1 1/16");
    EXPECT_EQ(grouped('l', 1.015625), L"1 1/64");
    EXPECT_EQ(grouped('q', 1.0078125), L"1 1/128");
    EXPECT_EQ(grouped('r', 1.00390625), L"1 1/256");
}

TEST(PriceText, FractionsAreNotReduced) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped('k', -0.5), L"-16/32");
    EXPECT_EQ(grouped('f', 0.5), L"1/2");
    EXPECT_EQ(grouped('r', 2.5), L"2 128/256");
}

TEST(PriceText, NumeratorsOfFineStepsCarryDecimals) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped('s', 0.003125), L"0.1/32");
    EXPECT_EQ(grouped('s', 0.109375), L"3.5/32");
    EXPECT_EQ(grouped('t', 1.025), L"1 0.25/10");
    EXPECT_EQ(grouped('u', 0.1640625), L"5.25/32");
    EXPECT_EQ(grouped('v', 2.0015625), L"2 0.1/64");
    EXPECT_EQ(grouped('x', 1.015625), L"1 0.5/32");
    EXPECT_EQ(grouped('y', 1.0078125), L"1 0.5/64");
}

TEST(PriceText, NumeratorsHaveTheLocalesDecimalSeparator) {
    const number_locale_scope scope(german());
    EXPECT_EQ(grouped('s', 1234.003125), L"1.234 0,1/32");
}

TEST(PriceText, NeitherNumeratorNorDenominatorIsGrouped) {
    const number_locale_scope scope(conventions_of(L".", L",", L"1;0"));
    EXPECT_EQ(grouped('r', 12.0 + 255.0 / 256.0), L"1,2 255/256");
}

TEST(PriceText, APriceThatSnapsToZeroIsABareZero) {
    const number_locale_scope scope(english(0));
    EXPECT_EQ(grouped('k', 0.0), L"0");
    EXPECT_EQ(grouped('k', -0.0), L"0");
    EXPECT_EQ(grouped('k', 0.01), L"0");
    EXPECT_EQ(grouped('k', -0.01), L"0");
    EXPECT_EQ(grouped('k', -std::numeric_limits<double>::denorm_min()), L"0");
}

TEST(PriceText, NothingIsEverANegativeZero) {
    for (const bool formatting_fails : {false, true}) {
        number_locale_scope scope(english());
        scope.locale().m_fails = formatting_fails;
        for (LONG code = -2; code < 130; ++code) {
            for (const double value :
                 {-0.0, -std::numeric_limits<double>::denorm_min(), -1e-12, -0.0000001, -0.004, -0.3}) {
                const CString text = grouped(code, value);
                const bool zero = text.find_first_of(L"123456789") == CString::npos;
                EXPECT_FALSE(zero && text.find(L'-') != CString::npos) << code << ' ' << value;
            }
        }
    }
}

struct negative_row {
    UINT form;
    const wchar_t* decimal;
    const wchar_t* fraction;
    const wchar_t* exponent;
};

class NegativeForm : public testing::TestWithParam<negative_row> {};

TEST_P(NegativeForm, WrapsDecimalsFractionsAndWhatTheSystemCannotFormat) {
    const negative_row& row = GetParam();
    const number_locale_scope scope(english(row.form));
    EXPECT_EQ(grouped(2, -1234.5), row.decimal);
    EXPECT_EQ(grouped('k', -12.09375), row.fraction);
    EXPECT_EQ(grouped(2, -1e15), row.exponent);
}

INSTANTIATE_TEST_SUITE_P(Table, NegativeForm,
                         testing::Values(negative_row{0, L"(1,234.50)", L"(12 3/32)", L"(1.00e+15)"},
                                         negative_row{1, L"-1,234.50", L"-12 3/32", L"-1.00e+15"},
                                         negative_row{2, L"- 1,234.50", L"- 12 3/32", L"- 1.00e+15"},
                                         negative_row{3, L"1,234.50-", L"12 3/32-", L"1.00e+15-"},
                                         negative_row{4, L"1,234.50 -", L"12 3/32 -", L"1.00e+15 -"},
                                         // No such form: the system refuses it, and the sign is lost.
                                         negative_row{5, L"1234.50", L"12 3/32", L"1.00e+15"}),
                         [](const auto& row) { return "Form" + std::to_string(row.param.form); });

TEST(PriceText, ExponentFormBeginsAtTenToTheFifteen) {
    const number_locale_scope scope(german());
    EXPECT_EQ(grouped(2, 999999999999999.0), L"999.999.999.999.999,00");
    EXPECT_EQ(grouped(2, 1e15), L"1,00e+15");
    EXPECT_EQ(grouped(0, 1e15), L"1e+15");
    EXPECT_EQ(grouped(-1, 1e15), L"1,000000000e+15");
    EXPECT_EQ(grouped(-1, 1e20), L"1,000000000e+20");
    EXPECT_EQ(grouped(3, -2.5e100), L"-2,500e+100");
    EXPECT_EQ(grouped('k', 1.5e15), L"1,50e+15");
}

TEST(PriceText, ValuesAreClampedToATenthOfTheLargestDouble) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped(9, 1.7976931348623158e+307), L"1.797693135e+307");
    EXPECT_EQ(grouped(9, largest), L"1.797693135e+307");
    EXPECT_EQ(grouped(9, infinity), L"1.797693135e+307");
    EXPECT_EQ(grouped(9, -infinity), L"-1.797693135e+307");
    EXPECT_EQ(grouped(9, 1.7e307), L"1.700000000e+307");
}

TEST(PriceText, AboveTenToTheTenThereAreNoStepsAndNoFractions) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped('k', 1e10), L"10,000,000,000");
    EXPECT_EQ(grouped('k', 1e10 + 0.03125), L"10,000,000,000.03");
    EXPECT_EQ(grouped('k', 2e10), L"20,000,000,000.00");
    EXPECT_EQ(grouped('k', -2e10), L"-20,000,000,000.00");
    EXPECT_EQ(grouped('a', 1e10 + 1.0), L"10,000,000,001");
    EXPECT_EQ(grouped('a', 1e10 - 1.0), L"10,000,000,000");
    EXPECT_EQ(grouped(0, 1e10, 7), L"10,000,000,003");
}

TEST(PriceText, WhatIsNoNumberIsShownAllTheSame) {
    const number_locale_scope scope(english());
    for (const LONG code : {LONG{-1}, LONG{2}, LONG{10}, LONG{'m'}, LONG{'k'}, LONG{'s'}}) {
        EXPECT_NE(grouped(code, std::numeric_limits<double>::quiet_NaN()), L"") << code;
    }
    EXPECT_EQ(grouped(2, std::numeric_limits<double>::quiet_NaN()), L"nan");
}

TEST(PriceText, AskingTheSystemPassesTheRecordTheDecimalsAndTheGrouping) {
    number_locale_scope scope(hindi());
    EXPECT_EQ(grouped(3, 1234567.0), L"12,34,567.000");
    EXPECT_EQ(plain(-1, 2.5), L"2.5");
    ASSERT_EQ(scope.locale().m_formatted.size(), 2U);
    const auto& [text, format] = scope.locale().m_formatted[0];
    EXPECT_EQ(text, L"1234567.000");
    EXPECT_EQ(format.decimals, 3U);
    EXPECT_EQ(format.grouping, 32U);
    EXPECT_EQ(format.decimal_separator, L".");
    EXPECT_EQ(format.group_separator, L",");
    EXPECT_EQ(format.leading_zero, 1U);
    EXPECT_EQ(format.negative_form, 1U);
    EXPECT_EQ(format.locale, 0x400U);
    const auto& [trimmed_text, trimmed_format] = scope.locale().m_formatted[1];
    EXPECT_EQ(trimmed_text, L"2.500000000");
    EXPECT_EQ(trimmed_format.decimals, 1U);
    EXPECT_EQ(trimmed_format.grouping, 0U);
}

TEST(PriceText, FallsBackToPlainDigitsWhenTheSystemFails) {
    number_locale_scope scope(conventions_of(L",", L".", L"3;0", 4));
    scope.locale().m_fails = true;
    EXPECT_EQ(grouped(2, 1234.5), L"1234,50");
    EXPECT_EQ(grouped(2, -1234.5), L"1234,50 -");
    EXPECT_EQ(grouped(0, -1234.0), L"1234 -");
    // The zeros were counted, but the digits stand as they were written.
    EXPECT_EQ(grouped(-1, 2.5), L"2,500000000");
}

TEST(PriceText, FollowsTheUsersSeparators) {
    {
        const number_locale_scope scope(french());
        EXPECT_EQ(grouped(2, -1234567.5), L"-1\u202F234\u202F567,50");
        EXPECT_EQ(grouped('k', 1234567.03125), L"1\u202F234\u202F567 1/32");
    }
    {
        const number_locale_scope scope(german());
        EXPECT_EQ(grouped(2, 1234567.5), L"1.234.567,50");
    }
    {
        const number_locale_scope scope(hindi());
        EXPECT_EQ(grouped(2, 1234567.5), L"12,34,567.50");
        EXPECT_EQ(grouped('k', 1234567.03125), L"12,34,567 1/32");
    }
}

struct grouping_row {
    const wchar_t* grouping;
    const wchar_t* shown;
};

class FractionGrouping : public testing::TestWithParam<grouping_row> {};

TEST_P(FractionGrouping, PutsSeparatorsIntoTheWholeByTheLocalesText) {
    const number_locale_scope scope(conventions_of(L".", L",", GetParam().grouping));
    EXPECT_EQ(grouped('k', 123456789.0), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Table, FractionGrouping,
    testing::Values(grouping_row{L"3;0", L"123,456,789"}, grouping_row{L"3;2;0", L"12,34,56,789"},
                    // Without ";0" no group repeats.
                    grouping_row{L"3", L"123456,789"}, grouping_row{L"3;2", L"1234,56,789"},
                    grouping_row{L"4;3;0", L"12,345,6789"}, grouping_row{L"0", L"123456789"},
                    grouping_row{L"", L"123456789"}, grouping_row{L"0;3", L"123456789"},
                    grouping_row{L"9;0", L"123456789"}, grouping_row{L"8;0", L"1,23456789"},
                    grouping_row{L"3;", L"123456,789"}, grouping_row{L"1;0", L"1,2,3,4,5,6,7,8,9"},
                    grouping_row{L"x;y", L"123456789"}, grouping_row{L"99999999", L"123456789"}));

TEST(PriceText, WholeNumbersOfExactlyOneGroupHaveNoSeparator) {
    const number_locale_scope scope(english());
    EXPECT_EQ(grouped('k', 123.0), L"123");
    EXPECT_EQ(grouped('k', 1000.0), L"1,000");
    EXPECT_EQ(grouped('k', 999999.5), L"999,999 16/32");
}

}  // namespace
