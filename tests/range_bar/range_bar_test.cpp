#include "charting/orderdeck/src/window/RangeBar.h"

#include "tests/desktop/foreign_process.h"
#include "tests/range_bar/range_bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using button_tests::pump;

constexpr LONG ask_mode = 1;
constexpr LONG mid_mode = 2;
constexpr LONG bid_mode = 3;

using RangeBarWindow = range_bar_tests::range_bar_test;

TEST_F(RangeBarWindow, IsMadeHiddenAndDisabledWithItsTwoButtons) {
    closed();
    const HWND up = GetDlgItem(bar(), 10001);
    const HWND down = GetDlgItem(bar(), 10002);
    RECT at = {};
    GetWindowRect(up, &at);
    MapWindowPoints(nullptr, bar(), reinterpret_cast<POINT*>(&at), 2);
    RECT client = {};
    GetClientRect(bar(), &client);
    EXPECT_EQ(at.top, 0);
    EXPECT_EQ(at.right - at.left, ladder().get_Width());
    EXPECT_EQ(at.bottom, ladder().get_ButtonHeight());
    GetWindowRect(down, &at);
    MapWindowPoints(nullptr, bar(), reinterpret_cast<POINT*>(&at), 2);
    EXPECT_EQ(at.bottom, client.bottom);
    EXPECT_EQ(at.bottom - at.top, ladder().get_ButtonHeight());
    EXPECT_EQ(client.bottom, ladder().get_Height());
}

TEST_F(RangeBarWindow, TakesItsMeasuresFromTheStockFont) {
    const HDC dc = GetDC(nullptr);
    const HGDIOBJ old = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    SIZE letters = {};
    GetTextExtentPoint32W(dc, L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", 52, &letters);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc, &metrics);
    SelectObject(dc, old);
    ReleaseDC(nullptr, dc);
    EXPECT_EQ(ladder().get_CharWidth(), (letters.cx / 26 + 1) / 2);
    EXPECT_EQ(ladder().get_RowHeight(), MulDiv(metrics.tmHeight, 14, 8) + 1);
}

TEST_F(RangeBarWindow, OpensBesideTheButtonWithoutTheFocusAndClosesAgain) {
    SetFocus(window);
    open();
    EXPECT_TRUE(IsWindowEnabled(bar()));
    EXPECT_EQ(GetFocus(), window);
    RECT from = {};
    GetWindowRect(window, &from);
    RECT at = {};
    GetWindowRect(bar(), &at);
    EXPECT_EQ(at.left, from.right);
    EXPECT_EQ(at.right - at.left, ladder().get_Width() + 1);
    EXPECT_EQ(at.bottom - at.top, ladder().get_Height());
    EXPECT_EQ(at.top, (from.top + from.bottom) / 2 - ladder().get_Height() / 2);
    EXPECT_NE(GetWindowLongPtrW(bar(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    button.OnDropDownClick();
    closed();
}

TEST_F(RangeBarWindow, OpensAtPositionThreeEachTime) {
    open();
    send(WM_KEYDOWN, VK_UP);
    send(WM_KEYDOWN, VK_ESCAPE);
    closed();
    EXPECT_EQ(ladder().get_Pos(), 4);
    open();
    EXPECT_EQ(ladder().get_Pos(), 3);
    EXPECT_EQ(ladder().get_Price(2), 100.0);
}

TEST_F(RangeBarWindow, AClickOnARowGivesItsPriceHidesAndGoesBackToTheButton) {
    open();
    owner.focused.clear();
    click_row(2);
    EXPECT_EQ(button.get_HitPrice(), 100.0);
    EXPECT_EQ(button.get_Mode(), ask_mode);
    EXPECT_EQ(face(), RGB(255, 190, 190));
    EXPECT_EQ(window_text(window), L"100.00 ");
    closed();
    EXPECT_EQ(owner.focused, std::vector<HWND>{window});
    EXPECT_TRUE(owner.commands.empty()) << "the command is posted";
    pump();
    EXPECT_EQ(owner.commands, std::vector<int>{231});
}

TEST_F(RangeBarWindow, MidAndBidRowsChooseTheirModesAndOtherRowsNone) {
    open();
    click_row(4);
    EXPECT_EQ(button.get_Mode(), bid_mode);
    EXPECT_EQ(face(), RGB(177, 197, 241));
    open();
    click_row(0);
    EXPECT_EQ(button.get_Mode(), bid_mode);
    EXPECT_EQ(button.get_HitPrice(), 100.5);
    EXPECT_EQ(window_text(window), L"99.50 ") << "the mode's price comes back";
    open();
    click_row(3);
    EXPECT_EQ(button.get_Mode(), mid_mode);
    EXPECT_EQ(face(), RGB(202, 215, 173));
    pump();
    EXPECT_EQ(owner.commands.size(), 3u);
}

TEST_F(RangeBarWindow, AClickWithoutTheLeftButtonOrBelowTheRowsChoosesNothing) {
    open();
    send(WM_LBUTTONDOWN, 0, MAKELPARAM(10, y_of(2)));
    EXPECT_TRUE(IsWindowVisible(bar()));
    send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, y_of(7)));
    EXPECT_EQ(button.get_Mode(), mid_mode);
    ASSERT_EQ(reports.traces().size(), 1u);
    EXPECT_EQ(reports.traces()[0].find(L"std::out_of_range - "), 0u);
    pump();
    EXPECT_TRUE(owner.commands.empty());
}

TEST_F(RangeBarWindow, ItsButtonsAndTheWheelScrollByOne) {
    open();
    SendMessageW(GetDlgItem(bar(), 10001), BM_CLICK, 0, 0);
    EXPECT_EQ(ladder().get_Pos(), 4);
    EXPECT_EQ(ladder().get_Price(3), 100.0) << "the mid's row now holds the ask";
    EXPECT_EQ(ladder().get_Price(0), 100.75);
    SendMessageW(GetDlgItem(bar(), 10002), BM_CLICK, 0, 0);
    SendMessageW(GetDlgItem(bar(), 10002), BM_CLICK, 0, 0);
    EXPECT_EQ(ladder().get_Pos(), 2);
    send(WM_MOUSEWHEEL, MAKEWPARAM(0, 120));
    EXPECT_EQ(ladder().get_Pos(), 3);
    send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-240)));
    EXPECT_EQ(ladder().get_Pos(), 2);
    send(WM_MOUSEWHEEL, MAKEWPARAM(0, 0));
    EXPECT_EQ(ladder().get_Pos(), 2);
    EXPECT_EQ(ladder().get_Price(2), 99.75) << "prices follow";
}

TEST_F(RangeBarWindow, KeysScrollItAndEscHidesIt) {
    open();
    send(WM_KEYDOWN, VK_PRIOR);
    EXPECT_EQ(ladder().get_Pos(), 13);
    EXPECT_EQ(ladder().get_Price(2), 102.5);
    send(WM_KEYDOWN, VK_NEXT);
    send(WM_KEYDOWN, VK_DOWN);
    EXPECT_EQ(ladder().get_Pos(), 2);
    send(WM_KEYDOWN, VK_HOME);
    EXPECT_EQ(ladder().get_Pos(), 2);
    EXPECT_TRUE(IsWindowVisible(bar()));
    send(WM_KEYDOWN, VK_ESCAPE);
    closed();
}

TEST_F(RangeBarWindow, TheButtonsKeysAreTheLaddersWhileItIsOpen) {
    SetFocus(window);
    SendMessageW(window, WM_KEYDOWN, VK_F4, 1);
    ASSERT_TRUE(IsWindowVisible(bar()));
    SendMessageW(window, WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(ladder().get_Pos(), 4);
    SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    EXPECT_EQ(ladder().get_Pos(), 5);
    SendMessageW(window, WM_KEYDOWN, VK_SPACE, 1);
    SendMessageW(window, WM_KEYUP, VK_SPACE, 1);
    closed();
    EXPECT_EQ(button.get_HitPrice(), 100.25) << "the row in the middle";
    pump();
    EXPECT_EQ(owner.commands, std::vector<int>{231});
    SendMessageW(window, WM_KEYDOWN, VK_F4, 1);
    SendMessageW(window, WM_KEYDOWN, VK_ESCAPE, 1);
    closed();
}

TEST_F(RangeBarWindow, LeavingTheApplicationHidesItAndGivesTheFocusBack) {
    open();
    owner.focused.clear();
    send(WM_ACTIVATEAPP, TRUE);
    EXPECT_TRUE(IsWindowVisible(bar()));
    send(WM_ACTIVATEAPP, FALSE);
    closed();
    EXPECT_EQ(owner.focused, std::vector<HWND>{window});
    owner.focused.clear();
    send(WM_ACTIVATEAPP, FALSE);
    EXPECT_TRUE(owner.focused.empty()) << "a hidden bar has nothing to give back";
}

TEST_F(RangeBarWindow, StaysWhenItsWindowIsNoLongerTheActiveOne) {
    open();
    send(WM_ACTIVATE, WA_INACTIVE);
    EXPECT_TRUE(IsWindowVisible(bar()));
}

TEST_F(RangeBarWindow, TheLossOfTheFocusIsItsOwnAffair) {
    open();
    RangeBar& ladder_window = button.get_RangeBar();
    LRESULT result = 7;
    EXPECT_TRUE(ladder_window.ProcessWindowMessage(bar(), WM_KILLFOCUS, 0, 0, result, 0));
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(ladder_window.ProcessWindowMessage(bar(), WM_SETFOCUS, 0, 0, result, 0));
    send(WM_MOUSEMOVE, 0, MAKELPARAM(10, y_of(1)));
    ASSERT_EQ(GetFocus(), bar());
    SetFocus(window);
    pump();
    EXPECT_TRUE(IsWindowVisible(bar()));
    EXPECT_TRUE(IsWindowEnabled(bar()));
    EXPECT_TRUE(owner.focused.empty());
}

TEST_F(RangeBarWindow, AnotherApplicationThatComesToTheFrontHidesIt) {
    const test::foreign_process other(L"top");
    ASSERT_NE(other.top_window(), nullptr);
    ShowWindow(other.top_window(), SW_SHOWNA);
    SetForegroundWindow(owner.hwnd());
    open();
    owner.focused.clear();
    SetForegroundWindow(other.top_window());
    const ULONGLONG end = GetTickCount64() + 300000;
    while (IsWindowVisible(bar()) && GetTickCount64() < end) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 1000, QS_ALLINPUT);
        pump();
    }
    closed();
    EXPECT_EQ(owner.focused, std::vector<HWND>{window});
    SetForegroundWindow(owner.hwnd());
    pump();
    closed();
}

TEST_F(RangeBarWindow, GrowsForALongPriceAndForgetsItWithTheSymbol) {
    button.SetQuotes(123456789.25, 1.0);
    button.Redraw();
    const LONG wide = ladder().get_Width();
    EXPECT_GT(wide, 40);
    RECT at = {};
    GetWindowRect(bar(), &at);
    EXPECT_EQ(at.right - at.left, wide);
    GetWindowRect(GetDlgItem(bar(), 10002), &at);
    EXPECT_EQ(at.right - at.left, wide);
    button.SetFormat(2, 1);
    EXPECT_EQ(ladder().get_Width(), 40);
    GetWindowRect(GetDlgItem(bar(), 10001), &at);
    EXPECT_EQ(at.right - at.left, 40);
}

TEST_F(RangeBarWindow, EndsWithItsButtonsWindow) {
    const HWND made = bar();
    DestroyWindow(window);
    EXPECT_FALSE(IsWindow(made));
}

TEST_F(RangeBarWindow, IsNamedForThoseWhoDoNotSeeIt) {
    EXPECT_EQ(window_text(bar()), L"買價/賣價");
    EXPECT_FALSE(window_text(GetDlgItem(bar(), 10001)).empty());
}

TEST_F(RangeBarWindow, AnUnexpectedMapIdOfASmallButtonIsReported) {
    CRangeArrow arrow;
    LRESULT result = 0;
    EXPECT_FALSE(arrow.ProcessWindowMessage(nullptr, WM_MOUSELEAVE, 0, 0, result, 1));
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"0");
}

TEST_F(RangeBarWindow, AnUnexpectedMapIdIsReported) {
    LRESULT result = 0;
    EXPECT_FALSE(button.get_RangeBar().ProcessWindowMessage(bar(), WM_SIZE, 0, 0, result, 1));
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"0");
}

}  // namespace
