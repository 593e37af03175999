// A quote button in a window, with its ladder.
#pragma once

#include "charting/orderdeck/src/window/AskBidButtonImpl.h"
#include "charting/orderdeck/src/window/RangeBar.h"
#include "charting/orderdeck/src/window/WindowText.h"
#include "tests/buttons/button_fixture.h"
#include "tests/support/message_spy.h"

namespace range_bar_tests {

// Prices in steps of 0.25, at 100 and 99.5.
class range_bar_test : public testing::Test {
protected:
    range_bar_test() : window(owner.make_button(231, 100, 20)) {
        below.SubclassWindow(window);
        button.SubclassWindow(window);
        button.put_Flags(WTLControls::ButtonFlag::Gradient | WTLControls::ButtonFlag::Content);
        button.SetFormat(2, 25);
        button.SetQuotes(100.0, 99.5);
        button.Redraw();
        button_tests::pump();
    }
    ~range_bar_test() override { button.get_RangeBar().Destroy(); }

    HWND bar() { return button.get_RangeBar().get_Hwnd(); }
    OV_OrderDeck::CRangeLadder& ladder() { return button.get_RangeBar().get_Ladder(); }
    void open() {
        button.OnDropDownClick();
        ASSERT_TRUE(IsWindowVisible(bar()));
    }
    // A height inside a row, as a click finds it.
    LONG y_of(LONG row) {
        return ladder().get_ButtonHeight() + row * ladder().get_RowHeight() + ladder().get_RowHeight() / 2;
    }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(bar(), message, wParam, lParam);
    }
    void click_row(LONG row) { send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, y_of(row))); }
    void closed() {
        EXPECT_FALSE(IsWindowVisible(bar()));
        EXPECT_FALSE(IsWindowEnabled(bar()));
    }
    COLORREF face() { return button.get_Picture().colours.at(1); }

    diagnostics_recorder reports;
    button_tests::owner_window owner;
    HWND window;
    // What the button leaves to the system's.
    message_spy below;
    OV_OrderDeck::AskBidButtonImpl button;
};

}  // namespace range_bar_tests
