#include "unicomp/FormatUtil/interface/NumberFormat.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/diagnostics_recorder.h"
#include "tests/support/number_locale_scope.h"

namespace {

using local_format::CNumberFormat;

TEST(NumberFormat, IntegersAreGroupedAndHaveNoDecimals) {
    const number_locale_scope scope(english());
    EXPECT_EQ(CNumberFormat::IntegerToText(0), L"0");
    EXPECT_EQ(CNumberFormat::IntegerToText(1234567), L"1,234,567");
    EXPECT_EQ(CNumberFormat::IntegerToText(-1234), L"-1,234");
    EXPECT_EQ(CNumberFormat::IntegerToText(2147483647), L"2,147,483,647");
    EXPECT_EQ(CNumberFormat::IntegerToText(-2147483647 - 1), L"-2,147,483,648");
}

TEST(NumberFormat, DoublesHaveOneDecimal) {
    const number_locale_scope scope(german());
    EXPECT_EQ(CNumberFormat::DoubleToText(1.5), L"1,5");
    EXPECT_EQ(CNumberFormat::DoubleToText(1234.0), L"1.234,0");
    EXPECT_EQ(CNumberFormat::DoubleToText(-0.25), L"-0,3");
    EXPECT_EQ(CNumberFormat::DoubleToText(0.0), L"0,0");
}

TEST(NumberFormat, ADoubleIsWrittenWithSixDecimalsBeforeItIsRounded) {
    number_locale_scope scope(english());
    // 0.0499999996 has the six decimals 0.050000, which round up.
    EXPECT_EQ(CNumberFormat::DoubleToText(0.0499999996), L"0.1");
    ASSERT_EQ(scope.locale().m_formatted.size(), 1U);
    EXPECT_EQ(scope.locale().m_formatted[0].first, L"0.050000");
    EXPECT_EQ(scope.locale().m_formatted[0].second.decimals, 1U);
}

TEST(NumberFormat, NoTextIsANegativeZero) {
    const number_locale_scope scope(english());
    EXPECT_EQ(CNumberFormat::DoubleToText(-0.0), L"0.0");
    EXPECT_EQ(CNumberFormat::DoubleToText(-0.04), L"0.0");
    EXPECT_EQ(CNumberFormat::_make("-0", false, 0), L"0");
}

TEST(NumberFormat, MakeUsesTheGivenDecimalsForItsOwnCallOnly) {
    number_locale_scope scope(hindi());
    EXPECT_EQ(CNumberFormat::_make("1234567.891", false, 2), L"12,34,567.89");
    EXPECT_EQ(CNumberFormat::_make("1234567.891", false, 0), L"12,34,568");
    EXPECT_EQ(CNumberFormat::IntegerToText(7), L"7");
    EXPECT_EQ(scope.locale().m_formatted[0].second.decimals, 2U);
    EXPECT_EQ(scope.locale().m_formatted[0].second.grouping, 32U);
    EXPECT_EQ(scope.locale().m_formatted[2].second.decimals, 0U);
}

TEST(NumberFormat, MakePutsAPlusInFrontWhenAsked) {
    const number_locale_scope scope(english());
    EXPECT_EQ(CNumberFormat::_make("5", true, 1), L"+5.0");
    EXPECT_EQ(CNumberFormat::_make("-5", true, 1), L"+-5.0");
}

TEST(NumberFormat, ATextThatCannotBeFormattedIsReportedAndEmpty) {
    const number_locale_scope scope(english());
    const diagnostics_recorder recorder;
    EXPECT_EQ(CNumberFormat::_make("1e5", false, 0), L"");
    EXPECT_EQ(CNumberFormat::_make("1e5", true, 0), L"+");
    EXPECT_EQ(CNumberFormat::DoubleToText(std::numeric_limits<double>::infinity()), L"");
    // More than the 254 characters that the system gives.
    EXPECT_EQ(CNumberFormat::DoubleToText(1e300), L"");
    EXPECT_EQ(CNumberFormat::DoubleToText(-std::numeric_limits<double>::max()), L"");
    const auto assertions = recorder.assertions();
    ASSERT_EQ(assertions.size(), 5U);
    for (const reported_assertion& assertion : assertions) {
        EXPECT_EQ(assertion.description, L"iRes > 0");
        EXPECT_EQ(assertion.function, L"local_format::CNumberFormat::_make");
        EXPECT_EQ(assertion.hresult, std::nullopt);
    }
}

TEST(NumberFormat, WhatCanBeFormattedReportsNothing) {
    const number_locale_scope scope(english());
    const diagnostics_recorder recorder;
    CNumberFormat::IntegerToText(5);
    CNumberFormat::DoubleToText(5.5);
    EXPECT_EQ(recorder.assertions().size(), 0U);
}

}  // namespace
