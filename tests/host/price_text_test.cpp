#include "market/price_text.h"

#include <gtest/gtest.h>

namespace host {
namespace {

TEST(HostPriceText, DecimalsShowAsManyPlacesAsTheCode) {
    EXPECT_EQ(price_text(1085.0, 0), "1085");
    EXPECT_EQ(price_text(428.1, 2), "428.10");
    EXPECT_EQ(price_text(1.2631, 4), "1.2631");
    EXPECT_EQ(price_text(1.08542, 5), "1.08542");
    EXPECT_EQ(price_text(-0.5, 1), "-0.5");
}

TEST(HostPriceText, FractionsShowWholeNumeratorAndDenominator) {
    EXPECT_EQ(price_text(6021.25, 'g'), "6021 1/4");
    EXPECT_EQ(price_text(6021.5, 'g'), "6021 2/4");
    EXPECT_EQ(price_text(117.375, 'k'), "117 12/32");
    EXPECT_EQ(price_text(113.453125, 'l'), "113 29/64");
    EXPECT_EQ(price_text(0.75, 'g'), "3/4");
    EXPECT_EQ(price_text(100.0, 'k'), "100");
}

TEST(HostPriceText, HalvesOfThirtySecondsShowAHalfInTheNumerator) {
    EXPECT_EQ(price_text(110.265625, 'x'), "110 8.5/32");
    EXPECT_EQ(price_text(110.28125, 'x'), "110 9/32");
}

TEST(HostPriceText, DecimalLettersShowTheDecimalsOfTheirStep) {
    EXPECT_EQ(price_text(12.3, 'i'), "12.3");
    EXPECT_EQ(price_text(12.3, 'm'), "12.30");
    EXPECT_EQ(price_text(12.3, 'o'), "12.3000");
    EXPECT_EQ(price_text(1200.0, 'c'), "1200");
}

TEST(HostPriceText, StepsOfCodes) {
    EXPECT_DOUBLE_EQ(scale_step(0), 1.0);
    EXPECT_DOUBLE_EQ(scale_step(5), 0.00001);
    EXPECT_EQ(scale_step('g'), 0.25);
    EXPECT_EQ(scale_step('G'), 0.25);
    EXPECT_EQ(scale_step('x'), 0.015625);
    EXPECT_EQ(scale_step(10), 0.0);
    EXPECT_EQ(scale_step(-1), 0.0);
}

TEST(HostPriceText, AGridForgivesTheNoiseOfBinaryFractionsOnly) {
    EXPECT_TRUE(on_grid(0.1 + 0.2, 0.1));
    EXPECT_TRUE(on_grid(1.08542, 0.00001));
    EXPECT_FALSE(on_grid(1.085425, 0.00001));
    EXPECT_FALSE(on_grid(6021.3, 0.25));
}

}  // namespace
}  // namespace host
