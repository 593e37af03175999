#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "unicomp/FormatUtil/interface/PriceScale.h"

namespace {

TEST(PriceRound, LeavesTheValueAloneWithoutAStep) {
    for (const LONG code : {-1, 10, 64, 123, -2}) {
        EXPECT_EQ(CPriceScale(code).Round(1.23456789012, 1), 1.23456789012) << code;
        EXPECT_EQ(CPriceScale(code).Round(-0.4, 7), -0.4) << code;
    }
}

TEST(PriceRound, TakesTheNearestStep) {
    EXPECT_EQ(CPriceScale('g').Round(10.1, 1), 10.0);
    EXPECT_EQ(CPriceScale('g').Round(10.2, 1), 10.25);
    EXPECT_EQ(CPriceScale('g').Round(-10.1, 1), -10.0);
    EXPECT_EQ(CPriceScale('g').Round(-10.2, 1), -10.25);
    EXPECT_EQ(CPriceScale('a').Round(14999.0, 1), 10000.0);
    EXPECT_EQ(CPriceScale('a').Round(15001.0, 1), 20000.0);
}

TEST(PriceRound, ATieGoesAwayFromZeroForBothSigns) {
    for (const LONG code : {LONG{0}, LONG{'e'}, LONG{'E'}}) {
        EXPECT_EQ(CPriceScale(code).Round(2.5, 1), 3.0);
        EXPECT_EQ(CPriceScale(code).Round(-2.5, 1), -3.0);
        EXPECT_EQ(CPriceScale(code).Round(0.5, 1), 1.0);
        EXPECT_EQ(CPriceScale(code).Round(-0.5, 1), -1.0);
        EXPECT_EQ(CPriceScale(code).Round(3.5, 1), 4.0);
    }
    EXPECT_EQ(CPriceScale('g').Round(0.125, 1), 0.25);
}

TEST(PriceRound, SnapsToTheMultipleOfTheStep) {
    EXPECT_EQ(CPriceScale('g').Round(10.6, 5), 10.0);
    EXPECT_EQ(CPriceScale('g').Round(10.7, 5), 11.25);
    EXPECT_EQ(CPriceScale('g').Round(10.6, 4), 11.0);
    EXPECT_EQ(CPriceScale('g').Round(10.4, 4), 10.0);
    EXPECT_EQ(CPriceScale(0).Round(7.5, 5), 10.0);
    EXPECT_EQ(CPriceScale(0).Round(7.4999, 5), 5.0);
    EXPECT_EQ(CPriceScale(0).Round(-7.5, 5), -10.0);
    EXPECT_EQ(CPriceScale(0).Round(3.0, 2147483647), 0.0);
    EXPECT_EQ(CPriceScale(0).Round(1073741823.5, 2147483647), 2147483647.0);
}

TEST(PriceRound, AMultipleBelowOneCountsAsOne) {
    EXPECT_EQ(CPriceScale('g').Round(10.2, 0), 10.25);
    EXPECT_EQ(CPriceScale('g').Round(10.2, -5), 10.25);
}

TEST(PriceRound, CountsStepsInSixtyFourBits) {
    EXPECT_EQ(CPriceScale('g').Round(0x1p60, 1), 0x1p60);
    EXPECT_EQ(CPriceScale('e').Round(0x1p53 + 2.0, 1), 0x1p53 + 2.0);
    // 2^62 - 1 is the multiple of 3 below; as doubles both neighbours are 2^62.
    EXPECT_EQ(CPriceScale('e').Round(0x1p62, 3), 0x1p62);
    EXPECT_EQ(CPriceScale('e').Round(-0x1p63, 1), -0x1p63);
    EXPECT_EQ(CPriceScale('e').Round(0x1p63, 1), 0x1p63);
}

TEST(PriceRound, WorksByTheRemainderWhenTheCountOfStepsDoesNotFit) {
    // 2^63 is 2 above a multiple of 2^31 - 1.
    const CPriceScale scale('e');
    const LONG multiple = 2147483647;
    EXPECT_EQ(scale.Round(0x1p63 + 0x1p29, multiple), 0x1p63);
    EXPECT_EQ(scale.Round(0x1p63 + 0x1p30, multiple), 0x1p63 + 0x1p31);
    // A negative remainder is taken off too: from half the grid on, that ends a whole grid higher.
    EXPECT_EQ(scale.Round(-(0x1p63 + 0x1p29), multiple), -0x1p63);
    EXPECT_EQ(scale.Round(-(0x1p63 + 0x1p30), multiple), -0x1p63 + 0x1p31);
}

TEST(PriceRound, TakesValuesThatAreNoNumbers) {
    const CPriceScale scale('k');
    EXPECT_TRUE(std::isnan(scale.Round(std::numeric_limits<double>::quiet_NaN(), 1)));
    EXPECT_TRUE(std::isnan(scale.Round(std::numeric_limits<double>::infinity(), 1)));
    EXPECT_EQ(scale.Round(std::numeric_limits<double>::denorm_min(), 1), 0.0);
}

TEST(PriceRound, GivesTheMidOfTwoQuotes) {
    EXPECT_EQ(CPriceScale('g').Round((100.0 + 99.5) * 0.5, 1), 99.75);
    EXPECT_EQ(CPriceScale('g').Round((100.0 + 99.75) * 0.5, 1), 100.0);
    EXPECT_EQ(CPriceScale('g').Round((100.0 + 99.5) * 0.5, 4), 100.0);
}

}  // namespace
