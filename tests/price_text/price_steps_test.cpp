#include "unicomp/FormatUtil/interface/PriceSteps.h"

#include <gtest/gtest.h>

#include "unicomp/FormatUtil/interface/PriceScale.h"

namespace {

struct letter_row {
    char letter;
    double step;
    LONG denominator;
    UINT digits;
};

constexpr letter_row rows[] = {
    {'a', 10000.0, 0, 0},     {'b', 1000.0, 0, 0},       {'c', 100.0, 0, 0},     {'d', 10.0, 0, 0},
    {'e', 1.0, 0, 0},         {'f', 0.5, 2, 1},          {'g', 0.25, 4, 1},      {'h', 0.125, 8, 1},
    {'i', 0.1, 0, 1},         {'j', 0.0625, 16, 2},      {'k', 0.03125, 32, 2},  {'l', 0.015625, 64, 2},
    {'m', 0.01, 0, 2},        {'n', 0.001, 0, 3},        {'o', 0.0001, 0, 4},    {'p', 0.00001, 0, 5},
    {'q', 0.0078125, 128, 3}, {'r', 0.00390625, 256, 3}, {'s', 0.003125, 32, 3}, {'t', 0.025, 10, 2},
    {'u', 0.0078125, 32, 3},  {'v', 0.0015625, 64, 3},   {'w', 0.000001, 0, 6},  {'x', 0.015625, 32, 2},
    {'y', 0.0078125, 64, 3},  {'z', 0.001, 0, 3},
};

class PriceLetter : public testing::TestWithParam<letter_row> {};

TEST_P(PriceLetter, HasItsStepDenominatorAndDigitsInEitherCase) {
    const letter_row& row = GetParam();
    for (const LONG code : {LONG{row.letter}, LONG{row.letter} - 32}) {
        const CPriceScale scale(code);
        EXPECT_EQ(scale.GetStep(), row.step) << code;
        EXPECT_EQ(scale.GetDenominator(), row.denominator) << code;
        EXPECT_EQ(scale.GetDigits(), row.digits) << code;
        EXPECT_EQ(order_price_step(code), row.step) << code;
    }
}

INSTANTIATE_TEST_SUITE_P(Table, PriceLetter, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(1, row.param.letter); });

TEST(PriceScale, ADecimalCodeHasThatManyDigitsAndNoDenominator) {
    constexpr double steps[] = {1.0,     0.1,      0.01,      0.001,      0.0001,
                                0.00001, 0.000001, 0.0000001, 0.00000001, 0.000000001};
    for (LONG code = 0; code <= 9; ++code) {
        const CPriceScale scale(code);
        EXPECT_EQ(scale.GetStep(), steps[code]) << code;
        EXPECT_EQ(scale.GetDigits(), static_cast<UINT>(code)) << code;
        EXPECT_EQ(scale.GetDenominator(), 0) << code;
    }
}

TEST(PriceScale, CodeMinusOneHasNineDigitsAndNoStep) {
    const CPriceScale scale(-1);
    EXPECT_EQ(scale.GetStep(), -1.0);
    EXPECT_EQ(scale.GetDigits(), 9U);
    EXPECT_EQ(scale.GetDenominator(), 0);
}

TEST(PriceScale, AnyOtherCodeHasNoStepAndNoDigits) {
    for (const LONG code : {-2, 10, 64, 91, 96, 123, 0x7FFFFFFF, -0x7FFFFFFF - 1, 256 + 'k'}) {
        const CPriceScale scale(code);
        EXPECT_EQ(scale.GetStep(), -1.0) << code;
        EXPECT_EQ(scale.GetDigits(), 0U) << code;
        EXPECT_EQ(scale.GetDenominator(), 0) << code;
    }
}

TEST(PriceScale, TheStepOfASymbolIsTheCodesStepTimesItsMovement) {
    EXPECT_EQ(CPriceScale('g').GetStep(2.0), 0.5);
    EXPECT_EQ(CPriceScale(2).GetStep(5.0), 0.05);
    EXPECT_EQ(CPriceScale(-1).GetStep(3.0), -3.0);
    EXPECT_EQ(CPriceScale(77 + 256).GetStep(2.5), -2.5);
}

TEST(OrderPriceStep, IsZeroForEveryCodeThatIsNoLetter) {
    for (LONG code = -300; code <= 400; ++code) {
        const bool letter = (code >= 65 && code <= 90) || (code >= 97 && code <= 122);
        if (letter) {
            EXPECT_GT(order_price_step(code), 0.0) << code;
        } else {
            EXPECT_EQ(order_price_step(code), 0.0) << code;
        }
    }
    EXPECT_EQ(order_price_step(0x7FFFFFFF), 0.0);
    EXPECT_EQ(order_price_step(-0x7FFFFFFF - 1), 0.0);
}

}  // namespace
