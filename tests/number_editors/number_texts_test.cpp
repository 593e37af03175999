#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberTexts.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/number_locale_scope.h"

namespace {

using namespace WTLControls::NumberEditors;

TEST(NumberTexts, ANormalisedNumberHasNoZerosInFrontAndNoBlanks) {
    const number_locale_scope locale(english());
    EXPECT_EQ(normalised_number(L"007"), L"7");
    EXPECT_EQ(normalised_number(L"  12 \t"), L"12");
    EXPECT_EQ(normalised_number(L"000"), L"");
    EXPECT_EQ(normalised_number(L""), L"");
    EXPECT_EQ(normalised_number(L"0.5"), L".5");
    EXPECT_EQ(normalised_number(L" 07"), L"07") << "zeros go before blanks do";
}

TEST(NumberTexts, ANormalisedNumberHasNoGroups) {
    const number_locale_scope locale(english());
    EXPECT_EQ(normalised_number(L"1,234,567"), L"1234567");
    EXPECT_EQ(normalised_number(L"12,,3"), L"123");
}

TEST(NumberTexts, TheGroupingTextOfTheLocaleGoesOutToo) {
    const number_locale_scope locale(english());
    EXPECT_EQ(normalised_number(L"13;02"), L"12");
}

TEST(NumberTexts, ZerosAndSeparatorsAtTheEndOfDecimalsGoOut) {
    const number_locale_scope locale(english());
    EXPECT_EQ(normalised_number(L"1.50"), L"1.5");
    EXPECT_EQ(normalised_number(L"1.000"), L"1");
    EXPECT_EQ(normalised_number(L"1."), L"1");
    EXPECT_EQ(normalised_number(L"100"), L"100") << "no decimals, no zeros to lose";
}

TEST(NumberTexts, TheSeparatorsAreThoseOfTheLocale) {
    const number_locale_scope locale(german());
    EXPECT_EQ(normalised_number(L"1.234,50"), L"1234,5");
}

TEST(NumberTexts, ALocaleWithoutSeparatorsLeavesTheTextAlone) {
    const number_locale_scope locale(conventions_of(L"", L"", L""));
    EXPECT_EQ(normalised_number(L"1,250.50"), L"1,250.50");
}

TEST(NumberTexts, AnIntegerIsReadByRoundingHalvesToEven) {
    const number_locale_scope locale(english());
    EXPECT_EQ(read_number(L"1.5", EEditType::Integer)->text, L"2");
    EXPECT_EQ(read_number(L"2.5", EEditType::Integer)->text, L"2");
    EXPECT_EQ(read_number(L"-7", EEditType::Integer)->value, -7.0);
    EXPECT_EQ(read_number(L"1,250", EEditType::Integer)->text, L"1250");
}

TEST(NumberTexts, WhatIsNoIntegerIsNotRead) {
    const number_locale_scope locale(english());
    EXPECT_FALSE(read_number(L"abc", EEditType::Integer));
    EXPECT_FALSE(read_number(L"1.5K", EEditType::Integer));
    EXPECT_FALSE(read_number(L"99999999999", EEditType::Integer)) << "wider than 32 bits";
    EXPECT_FALSE(read_number(L"", EEditType::Integer));
}

TEST(NumberTexts, ADoubleIsReadAndWrittenInTheLocale) {
    const number_locale_scope locale(german());
    EXPECT_EQ(read_number(L"1,50", EEditType::Double)->value, 1.5);
    EXPECT_EQ(read_number(L"1,50", EEditType::Double)->text, L"1,5");
    EXPECT_FALSE(read_number(L"x", EEditType::Double));
    EXPECT_EQ(plain_number_text(1234.5), L"1234,5");
    EXPECT_EQ(plain_number_text(1000000000.0), L"1000000000");
}

TEST(NumberTexts, CuttingDropsDecimalsAndStopsAtTheEndsOfIntegers) {
    EXPECT_EQ(cut_to_integer(1.9), 1);
    EXPECT_EQ(cut_to_integer(-1.9), -1);
    EXPECT_EQ(cut_to_integer(1e300), std::numeric_limits<LONG>::max());
    EXPECT_EQ(cut_to_integer(-1e300), std::numeric_limits<LONG>::min());
}

}  // namespace
