#include "charting/orderdeck/src/window/AskBidPrices.h"

#include <gtest/gtest.h>

#include "tests/support/number_locale_scope.h"

namespace {

using OV_OrderDeck::CAskBidPrices;

constexpr COLORREF pink = 255 | 190 << 8 | 190 << 16;
constexpr COLORREF green = 202 | 215 << 8 | 173 << 16;
constexpr COLORREF blue = 177 | 197 << 8 | 241 << 16;

class AskBidPrices : public testing::Test {
protected:
    AskBidPrices() {
        prices.SetFormat(2, 25);
        prices.SetQuotes(100.0, 99.5);
    }
    CString text(bool enabled = true) { return prices.TakeCaption(enabled); }

    CAskBidPrices prices;
};

TEST(AskBidPricesAtFirst, HaveNoQuotesNoScaleAndTheMid) {
    const CAskBidPrices fresh;
    EXPECT_EQ(fresh.get_Ask(), 0.0);
    EXPECT_EQ(fresh.get_Bid(), 0.0);
    EXPECT_EQ(fresh.get_Mode(), 2);
    EXPECT_EQ(fresh.get_Format().Code, -1);
    EXPECT_EQ(fresh.get_MinMove(), 1);
    EXPECT_TRUE(fresh.IsDirty());
    EXPECT_FALSE(fresh.IsIdle());
}

TEST_F(AskBidPrices, OnlyTheThreeModesOfferSomething) {
    for (const LONG mode : {1, 2, 3}) {
        prices.put_Mode(mode);
        EXPECT_FALSE(prices.IsIdle());
    }
    for (const LONG mode : {-1, 0, 4}) {
        prices.put_Mode(mode);
        EXPECT_TRUE(prices.IsIdle());
    }
}

TEST_F(AskBidPrices, AClickTakesThePriceOfTheMode) {
    prices.put_Mode(1);
    prices.Choose();
    EXPECT_EQ(prices.get_Value(), 100.0);
    prices.put_Mode(3);
    prices.Choose();
    EXPECT_EQ(prices.get_Value(), 99.5);
    prices.put_Mode(2);
    prices.Choose();
    EXPECT_EQ(prices.get_Value(), 99.75);
    prices.put_Mode(0);
    prices.SetQuotes(50.0, 49.0);
    prices.Choose();
    EXPECT_EQ(prices.get_Value(), 99.75) << "no mode, no new price";
}

TEST_F(AskBidPrices, TheMidLiesOnTheSymbolsGrid) {
    prices.SetQuotes(100.25, 100.0);
    prices.put_Mode(2);
    prices.Choose();
    EXPECT_EQ(prices.get_Value(), 100.25) << "100.125 is between two steps of 0.25 and goes up";
}

TEST_F(AskBidPrices, TheStepIsThatOfTheCodeTimesTheMovement) {
    EXPECT_DOUBLE_EQ(prices.get_Step(), 0.25);
    prices.SetFormat(-1, 4);
    EXPECT_EQ(prices.get_Step(), -4.0) << "a code with no step turns the ladder upside down";
    prices.SetFormat('k', 2);
    EXPECT_DOUBLE_EQ(prices.get_Step(), 0.0625);
}

TEST_F(AskBidPrices, AMovementBelowOneCountsAsOne) {
    prices.SetFormat(2, 0);
    EXPECT_EQ(prices.get_MinMove(), 1);
    prices.SetFormat(2, -3);
    EXPECT_EQ(prices.get_MinMove(), 1);
}

TEST_F(AskBidPrices, TheTextFollowsTheModeAndEndsWithABlank) {
    const number_locale_scope plain(english());
    prices.put_Mode(1);
    EXPECT_EQ(text(), L"100.00 ");
    prices.put_Mode(2);
    EXPECT_EQ(text(), L"99.75 ");
    prices.put_Mode(3);
    EXPECT_EQ(text(), L"99.50 ");
}

TEST_F(AskBidPrices, WhatCannotBeOfferedIsNamedInstead) {
    EXPECT_EQ(text(false), L"買價/賣價 ") << "a disabled button";
    prices.put_Mode(0);
    EXPECT_EQ(text(), L"買價/賣價 ") << "a button without a mode";
}

TEST_F(AskBidPrices, AQuoteThatIsNotAboveZeroClearsBoth) {
    for (const auto& [ask, bid] : {std::pair{0.0, 99.5}, {100.0, 0.0}, {-1.0, 99.5}, {100.0, -0.5}}) {
        prices.SetQuotes(ask, bid);
        prices.ClearBadQuotes();
        EXPECT_EQ(prices.get_Ask(), 0.0);
        EXPECT_EQ(prices.get_Bid(), 0.0);
        EXPECT_EQ(text(), L"買價/賣價 ");
    }
    prices.SetQuotes(100.0, 99.5);
    prices.ClearBadQuotes();
    EXPECT_EQ(prices.get_Ask(), 100.0);
    EXPECT_EQ(prices.get_Bid(), 99.5);
}

TEST_F(AskBidPrices, TheTextNeedsRedoingAfterAChangeOnly) {
    text();
    EXPECT_FALSE(prices.IsDirty());
    prices.SetQuotes(100.0, 99.5);
    prices.put_Mode(prices.get_Mode());
    EXPECT_FALSE(prices.IsDirty());
    prices.SetQuotes(100.0, 99.25);
    EXPECT_TRUE(prices.IsDirty());
    text();
    prices.SetQuotes(100.25, 99.25);
    EXPECT_TRUE(prices.IsDirty());
    text();
    prices.put_Mode(1);
    EXPECT_TRUE(prices.IsDirty());
    text();
    prices.SetFormat(2, 25);
    EXPECT_TRUE(prices.IsDirty());
    text();
    prices.Choose(3, 100.5);
    EXPECT_TRUE(prices.IsDirty());
}

TEST_F(AskBidPrices, TheFaceFollowsTheMode) {
    prices.put_Mode(1);
    EXPECT_EQ(prices.get_Face(), pink);
    prices.put_Mode(2);
    EXPECT_EQ(prices.get_Face(), green);
    prices.put_Mode(3);
    EXPECT_EQ(prices.get_Face(), blue);
    prices.put_Mode(0);
    EXPECT_EQ(prices.get_Face(), std::nullopt);
}

TEST_F(AskBidPrices, AnAnchorOfTheLadderChoosesItsMode) {
    prices.Choose(1, 100.0);
    EXPECT_EQ(prices.get_Mode(), 1);
    prices.Choose(0, 99.75);
    EXPECT_EQ(prices.get_Mode(), 2);
    prices.Choose(-1, 99.5);
    EXPECT_EQ(prices.get_Mode(), 3);
    EXPECT_EQ(prices.get_Value(), 99.5);
}

TEST_F(AskBidPrices, ARowAwayFromTheAnchorsKeepsTheModeAndGivesItsPrice) {
    const number_locale_scope plain(english());
    prices.put_Mode(3);
    for (const LONG position : {3, 2, -2, -3}) {
        prices.Choose(position, 101.25);
        EXPECT_EQ(prices.get_Mode(), 3);
        EXPECT_EQ(prices.get_Value(), 101.25);
    }
    EXPECT_EQ(text(), L"99.50 ") << "the mode's price is back on the button";
}

TEST_F(AskBidPrices, TheTextFollowsTheAskOnceItsRowIsChosen) {
    const number_locale_scope plain(english());
    prices.Choose(1, 100.0);
    prices.SetQuotes(100.75, 99.5);
    EXPECT_EQ(text(), L"100.75 ");
}

}  // namespace
