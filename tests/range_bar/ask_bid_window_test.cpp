// The quote button itself: its text, its parts, and the mouse.
#include "charting/orderdeck/src/window/AskBidButtonImpl.h"

#include "tests/range_bar/range_bar_fixture.h"
#include "tests/support/win32/told_import.h"

namespace {

using namespace OV_OrderDeck;
using button_tests::pump;

class AskBidWindow : public range_bar_tests::range_bar_test {
protected:
    void move() { SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5)); }
    bool is_watched() const {
        TRACKMOUSEEVENT query = {sizeof(query), TME_QUERY, nullptr, 0};
        return TrackMouseEvent(&query) && query.hwndTrack == window && (query.dwFlags & TME_LEAVE) != 0;
    }
    void watch_no_more() const {
        TRACKMOUSEEVENT request = {sizeof(request), TME_CANCEL | TME_LEAVE, window, 0};
        TrackMouseEvent(&request);
    }
};

TEST_F(AskBidWindow, TheButtonsTwoPartsDoTheirOwn) {
    RECT client = {};
    GetClientRect(window, &client);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(client.right - 3, 10));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(client.right - 3, 10));
    EXPECT_TRUE(IsWindowVisible(bar()));
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
    closed();
    EXPECT_EQ(button.get_HitPrice(), 99.75);
    pump();
    EXPECT_EQ(owner.commands, std::vector<int>{231});
}

TEST_F(AskBidWindow, ADisabledButtonSaysWhatItWouldShow) {
    EnableWindow(window, FALSE);
    button.Redraw();
    EXPECT_EQ(window_text(window), L"買價/賣價 ");
    EnableWindow(window, TRUE);
    button.Redraw();
    EXPECT_EQ(window_text(window), L"99.75 ");
    button.put_Mode(0);
    button.Redraw();
    EXPECT_FALSE(IsWindowEnabled(window));
    EXPECT_EQ(face(), GetSysColor(COLOR_BTNFACE));
}

TEST_F(AskBidWindow, TheTextIsMadeAnewAfterAChangeOnly) {
    SetWindowTextW(window, L"x");
    button.Redraw();
    EXPECT_EQ(window_text(window), L"x");
    button.SetQuotes(100.25, 99.5);
    button.Redraw();
    EXPECT_EQ(window_text(window), L"100.00 ") << "the mid on the grid";
}

TEST_F(AskBidWindow, WithoutAModeOnePassMakesTheTextAndDisables) {
    button.put_Mode(0);
    button.Redraw();
    EXPECT_FALSE(IsWindowEnabled(window));
    EXPECT_EQ(window_text(window), L"買價/賣價 ");
    SetWindowTextW(window, L"x");
    button.Redraw();
    EXPECT_EQ(window_text(window), L"x") << "nothing is left to do";
}

// Two monitors beside each other, the cursor on the second: its right edge is near the button.
TEST_F(AskBidWindow, TheLadderStaysOnTheMonitorUnderTheCursor) {
    RECT at = {};
    GetWindowRect(window, &at);
    const POINT place = {at.right - 3, at.top + 3};
    const RECT second = {0, 0, at.right + 10, at.bottom + 400};
    const auto monitor = reinterpret_cast<HMONITOR>(static_cast<INT_PTR>(0x77));
    const test::told_import<"GetCursorPos", BOOL(POINT*)> cursor([&](POINT* out) {
        *out = place;
        return TRUE;
    });
    const test::told_import<"MonitorFromPoint", HMONITOR(POINT, DWORD)> monitors(
        [&](POINT point, DWORD) { return point.x == place.x && point.y == place.y ? monitor : nullptr; });
    const test::told_import<"GetMonitorInfoW", BOOL(HMONITOR, MONITORINFO*)> info(
        [&](HMONITOR which, MONITORINFO* out) {
            EXPECT_EQ(which, monitor);
            out->rcMonitor = {0, 0, second.right, second.bottom + 30};
            out->rcWork = second;
            return TRUE;
        });
    button.OnDropDownClick();
    GetWindowRect(bar(), &at);
    EXPECT_EQ(at.right, second.right);
    EXPECT_LE(at.bottom, second.bottom);
}

TEST_F(AskBidWindow, TheMouseIsWatchedOnceAVisit) {
    // The system's button watches the mouse too.
    below.answers[WM_MOUSEMOVE] = [](WPARAM, LPARAM) { return 0; };
    POINT over = {5, 5};
    ClientToScreen(window, &over);
    SetCursorPos(over.x, over.y);
    EXPECT_FALSE(is_watched());
    move();
    EXPECT_TRUE(is_watched());
    watch_no_more();
    move();
    EXPECT_FALSE(is_watched()) << "asked for already";
    SendMessageW(window, WM_MOUSELEAVE, 0, 0);
    move();
    EXPECT_TRUE(is_watched()) << "the next visit";
    watch_no_more();
}

}  // namespace
