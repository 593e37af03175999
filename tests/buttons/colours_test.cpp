#include "unicomp/wtlcontrols/buttonst/Colours.h"

#include <gtest/gtest.h>

namespace {

using namespace WTLControls;

TEST(Colours, HaveRedInTheLowestByte) {
    EXPECT_EQ(make_colour(0xC0, 0xD0, 0xF1), 0xF1D0C0u);
    EXPECT_EQ(make_colour(160, 176, 203), 0xCBB0A0u);
    EXPECT_EQ(make_colour(241, 197, 197), 0xC5C5F1u);
    EXPECT_EQ(make_colour(215, 129, 129), 0x8181D7u);
    EXPECT_EQ(make_colour(202, 215, 173), 0xADD7CAu);
}

TEST(Colours, AreShiftedByChannelWithinTheirRange) {
    EXPECT_EQ(shifted(make_colour(192, 208, 241), -15), make_colour(177, 193, 226));
    EXPECT_EQ(shifted(make_colour(10, 15, 16), -15), make_colour(0, 0, 1));
    EXPECT_EQ(shifted(make_colour(224, 225, 226), 30), make_colour(254, 255, 255));
}

TEST(Colours, GoFromOneToTheOtherInEqualSteps) {
    const COLORREF from = make_colour(0, 100, 200);
    const COLORREF to = make_colour(10, 100, 100);
    EXPECT_EQ(between(from, to, 0, 10), from);
    EXPECT_EQ(between(from, to, 3, 10), make_colour(3, 100, 170));
    EXPECT_EQ(between(from, to, 10, 10), to);
}

TEST(Colours, CoverByTheirAlpha) {
    const COLORREF white = make_colour(255, 255, 255);
    EXPECT_EQ(blended(white, 0, 255), white);
    EXPECT_EQ(blended(white, 0, 0), 0u);
    EXPECT_EQ(blended(white, 0, 140), make_colour(140, 140, 140));
}

TEST(Colours, ContrastGoesFromOneToTwentyOne) {
    EXPECT_DOUBLE_EQ(contrast(0, make_colour(255, 255, 255)), 21.0);
    EXPECT_DOUBLE_EQ(contrast(make_colour(255, 255, 255), 0), 21.0);
    EXPECT_DOUBLE_EQ(contrast(0x123456, 0x123456), 1.0);
    // 119 is the darkest grey that is not enough on white.
    EXPECT_LT(contrast(make_colour(119, 119, 119), make_colour(255, 255, 255)), 4.5);
    EXPECT_GT(contrast(make_colour(118, 118, 118), make_colour(255, 255, 255)), 4.5);
}

TEST(Colours, ATextKeepsItsColourWhereItCanBeRead) {
    const COLORREF navy = make_colour(0, 0, 96);
    EXPECT_EQ(readable_text(navy, make_colour(241, 197, 197), make_colour(215, 129, 129)), navy);
}

TEST(Colours, ATextThatCannotBeReadBecomesBlackOrWhite) {
    const COLORREF white = make_colour(255, 255, 255);
    EXPECT_EQ(readable_text(white, make_colour(192, 208, 241), make_colour(160, 176, 203)), 0u);
    EXPECT_EQ(readable_text(0, make_colour(10, 10, 60), make_colour(20, 20, 70)), white);
    EXPECT_EQ(readable_text(white, white, make_colour(215, 129, 129)), 0u) << "one end is enough to spoil it";
}

}  // namespace
