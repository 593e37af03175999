#include "tests/window/ctrls_layout_fixture.h"

#include <random>
#include <set>

namespace {

using namespace OV_OrderDeck;
using window_tests::date_shift;
using window_tests::first_shift;
using window_tests::second_shift;

class CtrlsLayout : public window_tests::layout_test {};

TEST_F(CtrlsLayout, HidingTheFirstPriceMovesAllToItsRightByItsWidthAndItsSpins) {
    const auto before = panel.windows;
    put(eODUE_FirstPrice, true, false);
    for (const int item : {217, 216, 231, 220, 222, 228, 227, 225}) {
        EXPECT_EQ(x(item), before.at(item).x - first_shift) << item;
        EXPECT_EQ(panel.windows.at(item).y, before.at(item).y) << item;
    }
    for (const int item : {203, 206, 209, 214, 213}) {
        EXPECT_EQ(x(item), before.at(item).x) << item;
    }
    EXPECT_FALSE(visible(214));
    EXPECT_FALSE(visible(213));
}

TEST_F(CtrlsLayout, HidingTheSecondPriceLeavesTheFirstInItsPlace) {
    const auto before = panel.windows;
    put(eODUE_SecondPrice, true, false);
    for (const int item : {231, 220, 222, 228, 227, 225}) {
        EXPECT_EQ(x(item), before.at(item).x - second_shift) << item;
    }
    for (const int item : {203, 206, 209, 214, 213, 217, 216}) {
        EXPECT_EQ(x(item), before.at(item).x) << item;
    }
    EXPECT_FALSE(visible(217));
    EXPECT_FALSE(visible(216));
}

TEST_F(CtrlsLayout, HidingTheDateMovesOnlyBuyAndSell) {
    const auto before = panel.windows;
    put(eODUE_GtdDate, true, false);
    EXPECT_EQ(x(227), before.at(227).x - date_shift);
    EXPECT_EQ(x(225), before.at(225).x - date_shift);
    EXPECT_EQ(x(222), before.at(222).x);
    EXPECT_FALSE(visible(228));
}

TEST_F(CtrlsLayout, AFieldWithoutAListIsLeftAlone) {
    for (const OD_UpdateEntity bit : {eODUE_Symbol, eODUE_OrderType, eODUE_Quantity, eODUE_Account,
                                      eODUE_TimeInForce, eODUE_AskBid, eODUE_Buy, eODUE_Sell}) {
        put(bit, true, false);
    }
    EXPECT_TRUE(panel.batches.empty());
    for (const auto& [item, window] : panel.windows) {
        EXPECT_TRUE(window.visible) << item;
    }
}

TEST_F(CtrlsLayout, ShownAgainEverythingStandsWhereItStood) {
    const auto before = panel.windows;
    for (const OD_UpdateEntity bit : {eODUE_FirstPrice, eODUE_SecondPrice, eODUE_GtdDate}) {
        put(bit, true, false);
    }
    for (const OD_UpdateEntity bit : {eODUE_GtdDate, eODUE_FirstPrice, eODUE_SecondPrice}) {
        put(bit, false, false);
    }
    for (const auto& [item, window] : before) {
        EXPECT_EQ(x(item), window.x) << item;
        EXPECT_TRUE(visible(item)) << item;
    }
}

TEST_F(CtrlsLayout, TheDateMovesWithThePricesAndBuyAndSellWithBoth) {
    const auto before = panel.windows;
    put(eODUE_FirstPrice, true, false);
    put(eODUE_SecondPrice, true, false);
    put(eODUE_GtdDate, true, false);
    EXPECT_EQ(x(228), before.at(228).x - first_shift - second_shift);
    EXPECT_EQ(x(225), before.at(225).x - first_shift - second_shift - date_shift);
    EXPECT_EQ(x(227), before.at(227).x - first_shift - second_shift - date_shift);
}

TEST_F(CtrlsLayout, TheSameStateAgainDoesNothing) {
    put(eODUE_FirstPrice, false, false);
    EXPECT_TRUE(panel.batches.empty());
    put(eODUE_FirstPrice, true, false);
    const auto after = panel.windows.at(225).x;
    put(eODUE_FirstPrice, true, false);
    put(eODUE_FirstPrice, true, true);
    EXPECT_EQ(panel.batches.size(), 1u);
    EXPECT_EQ(x(225), after);
}

TEST_F(CtrlsLayout, ASlideMovesTenPixelsATickInOneBatchAndEndsAtTheTarget) {
    const auto before = panel.windows;
    put(eODUE_FirstPrice, true, true);
    EXPECT_EQ(panel.timer, &layout);
    EXPECT_EQ(panel.period, 10u);
    EXPECT_EQ(x(225), before.at(225).x) << "nothing moves before the first tick";
    layout.OnTimer(&layout);
    for (const int item : {217, 216, 231, 220, 222, 228, 227, 225}) {
        EXPECT_EQ(x(item), before.at(item).x - 10) << item;
    }
    EXPECT_EQ(panel.batches, std::vector<std::size_t>{8});
    EXPECT_EQ(panel.announced, 8);
    EXPECT_EQ(run_slide(), 9) << "93 pixels take ten ticks in all";
    EXPECT_EQ(x(225), before.at(225).x - first_shift) << "the last step stops at the target";
    EXPECT_EQ(panel.timer, nullptr);
}

TEST_F(CtrlsLayout, AHiddenFieldVanishesAtOnceAndComesBackOnlyAtTheEnd) {
    put(eODUE_FirstPrice, true, true);
    EXPECT_FALSE(visible(214));
    EXPECT_FALSE(visible(213));
    run_slide();
    put(eODUE_FirstPrice, false, true);
    while (panel.timer != nullptr) {
        EXPECT_FALSE(visible(214));
        EXPECT_FALSE(visible(213));
        layout.OnTimer(&layout);
    }
    EXPECT_TRUE(visible(214));
    EXPECT_TRUE(visible(213));
}

TEST_F(CtrlsLayout, ThePanelIsDrawnAnewWhenEverythingIsInItsPlace) {
    put(eODUE_FirstPrice, true, false);
    panel.visible_at_repaint.clear();
    put(eODUE_FirstPrice, false, true);
    layout.OnTimer(&layout);
    EXPECT_TRUE(panel.visible_at_repaint.empty());
    run_slide();
    EXPECT_TRUE(panel.visible_at_repaint.at(214));
    EXPECT_TRUE(panel.visible_at_repaint.at(213));
}

TEST_F(CtrlsLayout, ATimerOfSomebodyElseIsNotAStep) {
    put(eODUE_GtdDate, true, true);
    const int before = x(225);
    const int other = 0;
    layout.OnTimer(&other);
    layout.OnTimer(nullptr);
    EXPECT_EQ(x(225), before);
}

TEST_F(CtrlsLayout, ATickWithoutASlideDoesNothing) {
    layout.OnTimer(&layout);
    EXPECT_TRUE(panel.batches.empty());
    EXPECT_EQ(panel.timers_stopped, 0);
}

TEST_F(CtrlsLayout, OneTimerServesASlideThatGrows) {
    put(eODUE_FirstPrice, true, true);
    put(eODUE_SecondPrice, true, true);
    EXPECT_EQ(panel.timers_started, 1);
    const int before = x(225);
    const int ticks = run_slide();
    EXPECT_EQ(ticks, 18) << "180 pixels for the windows that both lists move";
    EXPECT_EQ(x(225), before - first_shift - second_shift);
}

TEST_F(CtrlsLayout, FromStopLimitToMarketTheOffsetsOfBothListsAddUp) {
    const auto before = panel.windows;
    put(eODUE_FirstPrice, true, true);
    put(eODUE_SecondPrice, true, true);
    run_slide();
    EXPECT_EQ(x(231), before.at(231).x - first_shift - second_shift);
    EXPECT_EQ(x(217), before.at(217).x - first_shift) << "only the first list moves the second price";
}

TEST_F(CtrlsLayout, MarketToLimitToMarketWithinASlideLeavesNothingShifted) {
    put(eODUE_FirstPrice, true, false);
    put(eODUE_SecondPrice, true, false);
    const auto market = panel.windows;
    put(eODUE_SecondPrice, false, true);
    layout.OnTimer(&layout);
    layout.OnTimer(&layout);
    put(eODUE_SecondPrice, true, true);
    EXPECT_FALSE(visible(217));
    EXPECT_EQ(x(231), market.at(231).x + 20) << "the way back starts where the slide was";
    run_slide();
    for (const auto& [item, window] : market) {
        EXPECT_EQ(x(item), window.x) << item;
        EXPECT_EQ(visible(item), window.visible) << item;
    }
}

TEST_F(CtrlsLayout, WithoutAnimationARunningSlideEndsAtOnceAndShowsWhatWaits) {
    put(eODUE_FirstPrice, true, false);
    const auto market = panel.windows;
    put(eODUE_FirstPrice, false, true);
    layout.OnTimer(&layout);
    EXPECT_FALSE(visible(214));
    put(eODUE_GtdDate, true, false);
    EXPECT_TRUE(visible(214));
    EXPECT_TRUE(visible(213));
    EXPECT_EQ(panel.timer, nullptr);
    EXPECT_EQ(x(231), market.at(231).x + first_shift);
    EXPECT_EQ(x(225), market.at(225).x + first_shift - date_shift);
}

TEST_F(CtrlsLayout, NobodySeesASlideOfAHiddenPanel) {
    panel.panel_visible = false;
    const int before = x(225);
    put(eODUE_FirstPrice, true, true);
    EXPECT_EQ(panel.timers_started, 0);
    EXPECT_EQ(x(225), before - first_shift);
}

TEST_F(CtrlsLayout, AMoveThatComesToNothingIsNoSlide) {
    panel.panel_visible = true;
    put(eODUE_GtdDate, true, true);
    put(eODUE_GtdDate, false, true);
    EXPECT_EQ(panel.timer, nullptr) << "both offsets cancel out before the first tick";
    EXPECT_TRUE(visible(228));
}

TEST_F(CtrlsLayout, OffsetsStayThoseOfTheFirstLayout) {
    panel.windows.at(214).width = 500;
    const int before = x(225);
    put(eODUE_FirstPrice, true, false);
    EXPECT_EQ(x(225), before - first_shift);
}

// Any order of changes and ticks comes to rest where the hidden fields say, whatever the way there.
TEST_F(CtrlsLayout, RandomChangesComeToRestWhereTheHiddenFieldsSay) {
    struct mover {
        OD_UpdateEntity bit;
        int shift;
        std::set<int> items;
        std::set<int> shown;
    };
    const mover movers[] = {
        {eODUE_FirstPrice, first_shift, {217, 216, 231, 220, 222, 228, 227, 225}, {214, 213}},
        {eODUE_SecondPrice, second_shift, {231, 220, 222, 228, 227, 225}, {217, 216}},
        {eODUE_GtdDate, date_shift, {227, 225}, {228}},
    };
    const auto start = panel.windows;
    std::mt19937 random(20240229);
    bool hidden[3] = {};
    for (int round = 0; round < 5000; ++round) {
        const auto which = random() % 3;
        hidden[which] = random() % 2 == 0;
        put(movers[which].bit, hidden[which], random() % 4 != 0);
        for (auto ticks = random() % 6; ticks > 0 && panel.timer != nullptr; --ticks) {
            layout.OnTimer(&layout);
        }
        if (random() % 3 != 0) {
            continue;
        }
        run_slide();
        for (const auto& [item, window] : start) {
            int expected = window.x;
            bool shown = true;
            for (int i = 0; i < 3; ++i) {
                expected -= hidden[i] && movers[i].items.contains(item) ? movers[i].shift : 0;
                shown = shown && !(hidden[i] && movers[i].shown.contains(item));
            }
            ASSERT_EQ(x(item), expected) << "round " << round << " item " << item;
            ASSERT_EQ(visible(item), shown) << "round " << round << " item " << item;
        }
    }
}

}  // namespace
