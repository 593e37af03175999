#include "charting/orderdeck/src/root/FindMainFrame.h"

#include <gtest/gtest.h>

#include "tests/support/recording_desktop.h"

namespace {

TEST(FindMainFrame, GivesTheHostsMainWindow) {
    test::recording_desktop desktop;
    const HWND frame = desktop.make_window();
    desktop.set_main_frame(frame);
    desktop.set_active_window(desktop.make_window());
    EXPECT_EQ(OV_OrderDeck::FindMainFrame(), frame);
}

TEST(FindMainFrame, WithNoMainWindowGivesTheActiveOne) {
    test::recording_desktop desktop;
    const HWND active = desktop.make_window();
    desktop.set_active_window(active);
    EXPECT_EQ(OV_OrderDeck::FindMainFrame(), active);
}

TEST(FindMainFrame, AMainWindowThatIsNoMoreGivesTheActiveOne) {
    test::recording_desktop desktop;
    const HWND frame = desktop.make_window();
    const HWND active = desktop.make_window();
    desktop.set_main_frame(frame);
    desktop.set_active_window(active);
    desktop.destroy_window(frame);
    EXPECT_EQ(OV_OrderDeck::FindMainFrame(), active);
}

TEST(FindMainFrame, MayGiveNoWindowAtAll) {
    test::recording_desktop desktop;
    EXPECT_EQ(OV_OrderDeck::FindMainFrame(), nullptr);
}

}  // namespace
