// In which order the layout does things, and what it does when the windows don't obey.
#include <functional>

#include "tests/support/diagnostics_recorder.h"
#include "tests/window/ctrls_layout_fixture.h"

namespace {

using namespace OV_OrderDeck;
using window_tests::date_shift;
using window_tests::first_shift;

class CtrlsLayoutOrder : public window_tests::layout_test {
protected:
    // One report and one COM error of the code for failures.
    static void expect_failure(const std::function<void()>& action) {
        const diagnostics_recorder reports;
        try {
            action();
            FAIL() << "nothing raised";
        } catch (const _com_error& error) {
            EXPECT_EQ(error.Error(), E_FAIL);
        }
        EXPECT_EQ(reports.assertions().size(), 1U);
    }
};

using events = std::vector<std::string>;

TEST_F(CtrlsLayoutOrder, AFieldVanishesFirstThenTheOthersMoveInOneBatchAndThePanelIsDrawn) {
    put(eODUE_FirstPrice, true, false);
    EXPECT_EQ(panel.events, (events{"hide 214", "hide 213", "begin 8", "end 8", "stop", "repaint"}));
}

TEST_F(CtrlsLayoutOrder, AFieldComesBackLastWithItsSpinAfterTheTimerHasStopped) {
    put(eODUE_SecondPrice, true, false);
    panel.forget();
    put(eODUE_SecondPrice, false, true);
    EXPECT_EQ(panel.events, events{"timer 10"});
    for (int tick = 1; tick < 9; ++tick) {
        panel.forget();
        layout.OnTimer(&layout);
        EXPECT_EQ(panel.events, (events{"begin 6", "end 6"})) << tick;
    }
    panel.forget();
    layout.OnTimer(&layout);
    EXPECT_EQ(panel.events, (events{"begin 6", "end 6", "stop", "show 217", "show 216", "repaint"}));
}

TEST_F(CtrlsLayoutOrder, TheDateHasNoSpinToHideOrShow) {
    put(eODUE_GtdDate, true, false);
    put(eODUE_GtdDate, false, false);
    EXPECT_EQ(panel.events, (events{"hide 228", "begin 2", "end 2", "stop", "repaint", "begin 2", "end 2",
                                    "stop", "show 228", "repaint"}));
}

TEST_F(CtrlsLayoutOrder, ASlideMovesNoWindowOfTheSlideBefore) {
    put(eODUE_FirstPrice, true, true);
    run_slide();
    panel.windows.at(231).x = 5;
    panel.forget();
    put(eODUE_GtdDate, true, true);
    run_slide();
    EXPECT_EQ(panel.batches, std::vector<std::size_t>(11, 2)) << "103 pixels, Buy and Sell only";
    EXPECT_EQ(x(231), 5);
}

TEST_F(CtrlsLayoutOrder, WhatWasShownByOneSlideIsNotShownAgainByTheNext) {
    put(eODUE_FirstPrice, true, false);
    put(eODUE_FirstPrice, false, false);
    panel.forget();
    put(eODUE_GtdDate, true, false);
    EXPECT_EQ(panel.events, (events{"hide 228", "begin 2", "end 2", "stop", "repaint"}));
}

TEST_F(CtrlsLayoutOrder, AFieldThatIsHiddenAgainWithinItsSlideIsNotShownAtTheEnd) {
    put(eODUE_GtdDate, true, false);
    put(eODUE_GtdDate, false, true);
    layout.OnTimer(&layout);
    panel.forget();
    put(eODUE_GtdDate, true, true);
    EXPECT_EQ(panel.events, events{"hide 228"}) << "the timer runs already";
    run_slide();
    EXPECT_FALSE(visible(228));
    EXPECT_EQ(panel.timers_started, 0);
}

TEST_F(CtrlsLayoutOrder, ABatchThatCannotBeMadeIsReportedAndRaisesAndIsNotLostForTheNextUpdate) {
    const int before = x(225);
    panel.fail_begin = true;
    expect_failure([&] { put(eODUE_FirstPrice, true, false); });
    EXPECT_EQ(panel.timers_stopped, 0) << "nothing has come to its end";
    panel.fail_begin = false;
    put(eODUE_GtdDate, true, false);
    EXPECT_EQ(x(225), before - first_shift - date_shift);
}

TEST_F(CtrlsLayoutOrder, AMoveThatFailsIsReportedAndRaised) {
    panel.fail_move_after = 3;
    expect_failure([&] { put(eODUE_FirstPrice, true, false); });
    EXPECT_TRUE(panel.batches.empty()) << "the batch is not ended";
}

TEST_F(CtrlsLayoutOrder, AStepThatFailsIsReportedAndRaised) {
    put(eODUE_FirstPrice, true, true);
    panel.fail_begin = true;
    expect_failure([&] { layout.OnTimer(&layout); });
    panel.fail_begin = false;
    panel.fail_move_after = 0;
    expect_failure([&] { layout.OnTimer(&layout); });
    EXPECT_TRUE(panel.batches.empty());
    EXPECT_EQ(panel.timer, &layout) << "the next tick tries again";
}

TEST_F(CtrlsLayoutOrder, AnEndAtOnceThatFailsLeavesNoSlideBehind) {
    put(eODUE_FirstPrice, true, true);
    panel.fail_begin = true;
    expect_failure([&] { put(eODUE_SecondPrice, true, false); });
    panel.fail_begin = false;
    panel.forget();
    layout.OnTimer(&layout);
    EXPECT_TRUE(panel.events.empty()) << "a tick on its way is none of a slide any more";
    put(eODUE_GtdDate, true, true);
    EXPECT_EQ(panel.timers_started, 1) << "and the next change slides again";
}

TEST_F(CtrlsLayoutOrder, ABatchThatCannotBeEndedIsReportedAndStillEndsTheSlide) {
    const diagnostics_recorder reports;
    panel.fail_end = true;
    put(eODUE_FirstPrice, true, false);
    put(eODUE_FirstPrice, false, false);
    EXPECT_TRUE(visible(214));
    put(eODUE_GtdDate, true, true);
    EXPECT_EQ(run_slide(), 11);
    ASSERT_EQ(reports.assertions().size(), 13U) << "two moves at once and eleven steps";
    for (const reported_assertion& each : reports.assertions()) {
        EXPECT_EQ(each.description, L"_res");
    }
}

}  // namespace
