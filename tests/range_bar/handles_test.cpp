// Nothing of the system's is left behind by the panel's controls.
#include <windows.h>

#include <commctrl.h>

#include "charting/orderdeck/src/window/AskBidButtonImpl.h"
#include "platform/win32/frame/common_controls.h"
#include "tests/buttons/button_fixture.h"
#include "tests/support/highest_slots.h"
#include "tests/support/idle_command_edit.h"
#include "unicomp/wtlcontrols/ActualCalendar/GTDCalendar.h"

namespace {

using namespace OV_OrderDeck;

constexpr DWORD flags = WTLControls::ButtonFlag::Gradient | WTLControls::ButtonFlag::Content;

template <class Round>
void leaves_nothing(Round&& round) {
    const left_behind left = left_behind::of(round, button_tests::pump);
    EXPECT_TRUE(left.nothing()) << left.gdi << " of GDI, " << left.user << " of USER";
}

TEST(Handles, TradeButtonsLeaveNothing) {
    button_tests::owner_window owner;
    leaves_nothing([&] {
        const HWND window = owner.make_button(225, 66, 37);
        WTLControls::CButtonSTForBuyAction button;
        button.SubclassWindow(window);
        button.put_Flags(flags);
        UpdateWindow(window);
        DestroyWindow(window);
    });
}

TEST(Handles, QuoteButtonsAndTheirLaddersLeaveNothing) {
    button_tests::owner_window owner;
    leaves_nothing([&] {
        const HWND window = owner.make_button(231, 100, 20);
        AskBidButtonImpl button;
        button.SubclassWindow(window);
        button.put_Flags(flags);
        button.SetFormat(2, 1);
        button.SetQuotes(101.5, 101.25);
        button.Redraw();
        UpdateWindow(window);
        DestroyWindow(window);
    });
}

HWND make_child(HWND owner, const wchar_t* type, DWORD style) {
    const frame::common_controls_scope scope;
    return CreateWindowExW(0, type, L"", WS_CHILD | WS_VISIBLE | style, 10, 10, 100, 20, owner, nullptr,
                           nullptr, nullptr);
}

void paint_and_destroy(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    DestroyWindow(window);
}

TEST(Handles, CommandEditsLeaveNothing) {
    button_tests::owner_window owner;
    leaves_nothing([&] {
        const HWND window = make_child(owner.hwnd(), L"EDIT", WS_BORDER | ES_AUTOHSCROLL);
        const idle_command_edit edit(window);
        paint_and_destroy(window);
    });
}

TEST(Handles, CalendarsLeaveNothing) {
    button_tests::owner_window owner;
    leaves_nothing([&] {
        const HWND window = make_child(owner.hwnd(), DATETIMEPICK_CLASSW, DTS_SHORTDATECENTURYFORMAT);
        WTLControls::CGTDCalendar calendar;
        calendar.SubclassWindow(window);
        paint_and_destroy(window);
    });
}

}  // namespace
