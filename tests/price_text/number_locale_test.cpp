// The contract of the system's number_locale, the same on both systems.
#include "platform/number_locale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using platform::number_format;

platform::number_locale& system_locale() {
    return platform::port<platform::number_locale>::system();
}

number_format plain_format(UINT decimals, UINT grouping = 0, UINT negative_form = 1) {
    number_format result;
    result.decimals = decimals;
    result.grouping = grouping;
    result.decimal_separator = L".";
    result.group_separator = L",";
    result.negative_form = negative_form;
    result.locale = 0x400;
    return result;
}

std::optional<CString> formatted(const CString& text, const number_format& format) {
    return system_locale().format_number(text, format);
}

TEST(NumberLocale, RoundsTheDigitsHalfAwayFromZero) {
    const struct {
        const wchar_t* text;
        UINT decimals;
        const wchar_t* expected;
    } rows[] = {{L"0.005", 2, L"0.01"},     {L"0.0049999", 2, L"0.00"}, {L"1.995", 2, L"2.00"},
                {L"9.995", 2, L"10.00"},    {L"99.5", 0, L"100"},       {L"-99.995", 2, L"-100.00"},
                {L"0.5", 0, L"1"},          {L"1.5", 0, L"2"},          {L"2.5", 0, L"3"},
                {L"-0.5", 0, L"-1"},        {L"0.4", 0, L"0"},          {L"1.005", 2, L"1.01"},
                {L"000012", 2, L"12.00"},   {L"5.", 2, L"5.00"},        {L".5", 2, L"0.50"},
                {L"1.5", 9, L"1.500000000"}};
    for (const auto& row : rows) {
        EXPECT_EQ(formatted(row.text, plain_format(row.decimals)), row.expected) << row.text;
    }
}

TEST(NumberLocale, NeverGivesANegativeZero) {
    for (const wchar_t* text : {L"-0", L"-0.00", L"-0.001", L"-.0", L"-000"}) {
        for (UINT form = 0; form <= 4; ++form) {
            EXPECT_EQ(formatted(text, plain_format(2, 3, form)), L"0.00") << text;
        }
    }
    EXPECT_EQ(formatted(L"-0.4", plain_format(0)), L"0");
}

TEST(NumberLocale, GroupsByTheFoldedSizes) {
    const struct {
        UINT grouping;
        const wchar_t* expected;
    } rows[] = {{0, L"123456789012"},       {3, L"123,456,789,012"},  {32, L"1,23,45,67,89,012"},
                {30, L"123456789,012"},     {320, L"1234567,89,012"}, {1, L"1,2,3,4,5,6,7,8,9,0,1,2"},
                {23, L"1,234,567,890,12"},  {9, L"123,456789012"},    {10, L"12345678901,2"},
                {432, L"1,23,45,678,9012"}, {33, L"123,456,789,012"}};
    for (const auto& row : rows) {
        EXPECT_EQ(formatted(L"123456789012", plain_format(0, row.grouping)), row.expected) << row.grouping;
    }
    EXPECT_EQ(formatted(L"123", plain_format(0, 3)), L"123");
    EXPECT_EQ(formatted(L"-123", plain_format(0, 3)), L"-123");
    EXPECT_EQ(formatted(L"0123", plain_format(0, 3)), L"123");
    EXPECT_EQ(formatted(L"999.9", plain_format(0, 3)), L"1,000");
}

TEST(NumberLocale, PutsTheMinusByTheForm) {
    const wchar_t* const expected[] = {L"(1,234.50)", L"-1,234.50", L"- 1,234.50", L"1,234.50-",
                                       L"1,234.50 -"};
    for (UINT form = 0; form <= 4; ++form) {
        EXPECT_EQ(formatted(L"-1234.5", plain_format(2, 3, form)), expected[form]);
        EXPECT_EQ(formatted(L"1234.5", plain_format(2, 3, form)), L"1,234.50");
    }
}

TEST(NumberLocale, LeavesALeadingZeroOutButNeverTheLastDigit) {
    number_format format = plain_format(1);
    format.leading_zero = 0;
    EXPECT_EQ(formatted(L"0.5", format), L".5");
    EXPECT_EQ(formatted(L"-0.5", format), L"-.5");
    EXPECT_EQ(formatted(L"0", format), L".0");
    EXPECT_EQ(formatted(L"10.5", format), L"10.5");
    format.decimals = 0;
    EXPECT_EQ(formatted(L"0", format), L"0");
    EXPECT_EQ(formatted(L"0.4", format), L"0");
    EXPECT_EQ(formatted(L"-0.4", format), L"0");
    EXPECT_EQ(formatted(L"0.5", format), L"1");
}

TEST(NumberLocale, UsesTheGivenSeparators) {
    number_format format = plain_format(2, 3);
    format.decimal_separator = L"<.>";
    format.group_separator = L"\u202F";
    EXPECT_EQ(formatted(L"1234567.5", format), L"1\u202F234\u202F567<.>50");
    format.decimal_separator.clear();
    format.group_separator.clear();
    EXPECT_EQ(formatted(L"1234.5", format), L"123450");
}

TEST(NumberLocale, RefusesWhatIsNoPlainNumber) {
    for (const wchar_t* text : {L"", L"-", L".", L"-.", L"+1", L"1-", L"--1", L"1..2", L"1.2.3", L" 1", L"1 ",
                                L"1e5", L"1e+15", L"1,000", L"\u0663", L"1a", L"nan", L"inf", L"(1)"}) {
        EXPECT_EQ(formatted(text, plain_format(2, 3)), std::nullopt) << CString(text).size();
    }
}

TEST(NumberLocale, RefusesFormatsThatDoNotExist) {
    EXPECT_EQ(formatted(L"1", plain_format(10)), std::nullopt);
    EXPECT_EQ(formatted(L"1", plain_format(0, 3, 5)), std::nullopt);
    EXPECT_EQ(formatted(L"-1", plain_format(0, 3, 6)), std::nullopt);
}

TEST(NumberLocale, GivesTwoHundredAndFiftyFourCharactersAtMost) {
    EXPECT_EQ(formatted(CString(254, L'9'), plain_format(0)), CString(254, L'9'));
    EXPECT_EQ(formatted(CString(255, L'9'), plain_format(0)), std::nullopt);
    EXPECT_EQ(formatted(CString(251, L'9'), plain_format(2)), CString(251, L'9') + L".00");
    EXPECT_EQ(formatted(CString(252, L'9'), plain_format(2)), std::nullopt);
    EXPECT_EQ(formatted(L"0." + CString(100000, L'4'), plain_format(1)), L"0.4");
    EXPECT_EQ(formatted(CString(100000, L'0') + L"1", plain_format(0)), L"1");
    EXPECT_EQ(formatted(CString(100000, L'1'), plain_format(0, 3)), std::nullopt);
    // 127 digits and 126 separators are 253 characters, 128 and 127 are 255.
    EXPECT_EQ(formatted(CString(127, L'1'), plain_format(0, 1)).value_or(L"").size(), 253U);
    EXPECT_EQ(formatted(CString(128, L'1'), plain_format(0, 1)), std::nullopt);
    EXPECT_EQ(formatted(L"-" + CString(253, L'1'), plain_format(0, 0, 1)), L"-" + CString(253, L'1'));
    EXPECT_EQ(formatted(L"-" + CString(254, L'1'), plain_format(0, 0, 1)), std::nullopt);
    EXPECT_EQ(formatted(L"-" + CString(252, L'1'), plain_format(0, 0, 0)), L"(" + CString(252, L'1') + L")");
    EXPECT_EQ(formatted(L"-" + CString(253, L'1'), plain_format(0, 0, 0)), std::nullopt);
    EXPECT_EQ(formatted(L"-" + CString(253, L'1'), plain_format(0, 0, 3)), CString(253, L'1') + L"-");
    EXPECT_EQ(formatted(L"-" + CString(253, L'1'), plain_format(0, 0, 4)), std::nullopt);
}

CString decimal_separator() {
    return system_locale().user_conventions().decimal_separator;
}

// A text of digits with "." as it reads in the user's locale.
CString local(CString text) {
    const std::size_t point = text.find(L'.');
    if (point != CString::npos) {
        text.replace(point, 1, decimal_separator());
    }
    return text;
}

TEST(NumberLocale, WritesDoublesWithFifteenSignificantDigits) {
    EXPECT_EQ(system_locale().double_to_text(0.0), L"0");
    EXPECT_EQ(system_locale().double_to_text(-0.0), L"0");
    EXPECT_EQ(system_locale().double_to_text(1.0), L"1");
    EXPECT_EQ(system_locale().double_to_text(-1.5), local(L"-1.5"));
    EXPECT_EQ(system_locale().double_to_text(0.1), local(L"0.1"));
    EXPECT_EQ(system_locale().double_to_text(0.1 + 0.2), local(L"0.3"));
    EXPECT_EQ(system_locale().double_to_text(1.0 / 3.0), local(L"0.333333333333333"));
    EXPECT_EQ(system_locale().double_to_text(0.0001), local(L"0.0001"));
    EXPECT_EQ(system_locale().double_to_text(10000000000.0), L"10000000000");
    EXPECT_EQ(system_locale().double_to_text(100000000000000.0), L"100000000000000");
}

TEST(NumberLocale, WritesExponentsWithTwoDigitsAtLeast) {
    EXPECT_EQ(system_locale().double_to_text(1e15), L"1E+15");
    EXPECT_EQ(system_locale().double_to_text(1234567890123456.0), local(L"1.23456789012346E+15"));
    EXPECT_EQ(system_locale().double_to_text(-1e-5), L"-1E-05");
    EXPECT_EQ(system_locale().double_to_text(1e100), L"1E+100");
    EXPECT_EQ(system_locale().double_to_text(std::numeric_limits<double>::denorm_min()),
              local(L"4.94065645841247E-324"));
}

TEST(NumberLocale, WritesWhatIsNoNumberWithoutHarm) {
    EXPECT_NE(system_locale().double_to_text(std::numeric_limits<double>::infinity()), L"");
    EXPECT_NE(system_locale().double_to_text(std::numeric_limits<double>::quiet_NaN()), L"");
}

TEST(NumberLocale, ReadsNumbersOfTheUsersLocale) {
    const CString group = system_locale().user_conventions().group_separator;
    const struct {
        CString text;
        double expected;
    } rows[] = {{L"1", 1.0},
                {local(L" 1.5 "), 1.5},
                {L"1" + group + L"000", 1000.0},
                {local(L"-.5"), -0.5},
                {local(L"5."), 5.0},
                {L"- 5", -5.0},
                {L"+5", 5.0},
                {L"5-", -5.0},
                {L"5 -", -5.0},
                {L"5+", 5.0},
                {L"(5)", -5.0},
                {local(L"1.5e3"), 1500.0},
                {L"1E+3", 1000.0},
                {L"1e-2", 0.01},
                {L"007", 7.0},
                {L"1e-400", 0.0},
                {CString(100000, L'0') + L"5", 5.0}};
    for (const auto& row : rows) {
        const std::optional<double> value = system_locale().text_to_double(row.text);
        ASSERT_TRUE(value) << row.expected;
        EXPECT_DOUBLE_EQ(*value, row.expected);
    }
}

TEST(NumberLocale, RefusesWhatIsNoNumber) {
    for (const wchar_t* text : {L"", L" ", L"-", L"+", L"()", L"(1", L"--1", L"abc", L"1e", L"1e+", L"e5",
                                L"nan", L"inf", L"1/2", L"\u0663", L"1d3", L"0x10", L"1e400", L"-1e400"}) {
        EXPECT_EQ(system_locale().text_to_double(text), std::nullopt) << CString(text).size() << text;
    }
    EXPECT_EQ(system_locale().text_to_double(decimal_separator()), std::nullopt);
    EXPECT_EQ(system_locale().text_to_double(CString(100000, L'1')), std::nullopt);
    EXPECT_EQ(system_locale().text_to_double(CString(100000, L'x')), std::nullopt);
}

TEST(NumberLocale, ReadsBackWhatItWrites) {
    for (const double value : {0.1, 1.0 / 3.0, 123456789.125, -9876.54321, 1e15, 2.5e-7, 250000.0, 1e300}) {
        const std::optional<double> back =
            system_locale().text_to_double(system_locale().double_to_text(value));
        ASSERT_TRUE(back) << value;
        EXPECT_NEAR(*back, value, std::fabs(value) * 1e-14);
    }
}

TEST(NumberLocale, ReadsTheUsersConventions) {
    const platform::number_conventions user = system_locale().user_conventions();
    EXPECT_FALSE(user.decimal_separator.empty());
    EXPECT_FALSE(user.grouping.empty());
    EXPECT_EQ(user.locale, 0x400U);
    EXPECT_LE(user.leading_zero, 1U);
    EXPECT_LE(user.negative_form, 4U);
}

}  // namespace
