// When the ladder closes by itself, where it opens, and which presses on it count.
#include "platform/clock.h"
#include "tests/range_bar/range_bar_fixture.h"
#include "tests/support/win32/told_import.h"

namespace {

using button_tests::pump;

// Time goes as the test says.
class told_clock final : public platform::clock {
public:
    DWORD now = 5000;
    SYSTEMTIME local_time() override { return {}; }
    DWORD tick_count() override { return now; }
    double milliseconds() override { return 0.0; }

private:
    platform::port<platform::clock>::replacement m_replacement{*this};
};

class LadderClosing : public range_bar_tests::range_bar_test {
protected:
    void give_ladder_the_focus() {
        SetFocus(bar());
        ASSERT_EQ(GetFocus(), bar());
    }
    void key(WPARAM code, LPARAM details = 1) { SendMessageW(window, WM_KEYDOWN, code, details); }

    told_clock clock;
};

TEST_F(LadderClosing, ComesWithAnotherSymbolOrTab) {
    button.put_Symbol(1, L"KO");
    open();
    button.put_Symbol(1, L"KO");
    EXPECT_TRUE(IsWindowVisible(bar())) << "the same symbol, told again";
    button.put_Symbol(1, L"MSFT");
    closed();
    open();
    button.put_Symbol(2, L"MSFT");
    closed();
}

TEST_F(LadderClosing, ComesWithAnotherScaleOrTick) {
    open();
    button.SetFormat(2, 25);
    EXPECT_TRUE(IsWindowVisible(bar())) << "the same scale, told again";
    button.SetFormat(2, 50);
    closed();
    open();
    button.SetFormat(3, 50);
    closed();
}

TEST_F(LadderClosing, ComesWhenTheButtonIsDisabledOrHidden) {
    open();
    EnableWindow(window, FALSE);
    closed();
    EnableWindow(window, TRUE);
    open();
    ShowWindow(window, SW_HIDE);
    closed();
}

TEST_F(LadderClosing, ComesWithTheNextQuoteWhenTheHostHidTheButton) {
    open();
    ShowWindow(owner.hwnd(), SW_HIDE);
    button.SetQuotes(100.25, 99.75);
    button.Redraw();
    closed();
    ShowWindow(owner.hwnd(), SW_SHOW);
}

TEST_F(LadderClosing, LeavesNoFocusBehind) {
    open();
    give_ladder_the_focus();
    button.CloseLadder();
    closed();
    EXPECT_EQ(GetFocus(), window);
    open();
    give_ladder_the_focus();
    EnableWindow(window, FALSE);
    EXPECT_EQ(GetFocus(), owner.hwnd()) << "a button that can't be used can't have it";
}

TEST_F(LadderClosing, TakesNoFocusThatIsElsewhere) {
    SetFocus(owner.hwnd());
    open();
    button.CloseLadder();
    EXPECT_EQ(GetFocus(), owner.hwnd());
    EXPECT_TRUE(owner.focused.empty());
    button.CloseLadder();
    EXPECT_TRUE(owner.focused.empty()) << "it is closed already";
}

TEST_F(LadderClosing, ByEscGivesTheFocusToTheButton) {
    open();
    give_ladder_the_focus();
    send(WM_KEYDOWN, VK_ESCAPE);
    closed();
    EXPECT_EQ(GetFocus(), window);
}

TEST_F(LadderClosing, TheOwnerIsLookedUpAtEachOpening) {
    EXPECT_EQ(GetWindow(bar(), GW_OWNER), owner.hwnd());
    const HWND floating = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 100,
                                          100, 200, 80, nullptr, nullptr, nullptr, nullptr);
    SetParent(window, floating);
    open();
    EXPECT_EQ(GetWindow(bar(), GW_OWNER), floating);
    button.OnDropDownClick();
    SetParent(window, owner.hwnd());
    open();
    EXPECT_EQ(GetWindow(bar(), GW_OWNER), owner.hwnd());
    DestroyWindow(floating);
}

// The cursor is on another monitor than the button.
TEST_F(LadderClosing, ByKeyItOpensOnTheMonitorOfItsButton) {
    RECT at = {};
    GetWindowRect(window, &at);
    const LONG right = at.right + 10;
    const LONG bottom = at.bottom + 400;
    const auto of_button = reinterpret_cast<HMONITOR>(static_cast<INT_PTR>(0x77));
    const auto of_cursor = reinterpret_cast<HMONITOR>(static_cast<INT_PTR>(0x78));
    const test::told_import<"MonitorFromPoint", HMONITOR(POINT, DWORD)> by_point(
        [&](POINT, DWORD) { return of_cursor; });
    const test::told_import<"MonitorFromWindow", HMONITOR(HWND, DWORD)> by_window(
        [&](HWND which, DWORD) { return which == window ? of_button : nullptr; });
    const test::told_import<"GetMonitorInfoW", BOOL(HMONITOR, MONITORINFO*)> info([&](HMONITOR which,
                                                                                      MONITORINFO* out) {
        out->rcWork = which == of_button ? RECT{0, 0, right, bottom} : RECT{right, 0, right + 2000, bottom};
        return TRUE;
    });
    key(VK_F4);
    GetWindowRect(bar(), &at);
    EXPECT_EQ(at.right, right);
    key(VK_F4);
    SendMessageW(window, WM_SYSKEYDOWN, VK_DOWN, 1);
    GetWindowRect(bar(), &at);
    EXPECT_EQ(at.right, right);
    button.OnDropDownClick();
    button.OnDropDownClick();
    GetWindowRect(bar(), &at);
    EXPECT_GE(at.left, right) << "by the mouse it is the mouse's";
}

TEST_F(LadderClosing, APressOnARowThatJustMovedIsNone) {
    open();
    button.SetQuotes(100.25, 99.5);
    button.Redraw();
    click_row(2);
    EXPECT_TRUE(IsWindowVisible(bar()));
    clock.now += 299;
    click_row(2);
    pump();
    EXPECT_TRUE(owner.commands.empty());
    clock.now += 1;
    click_row(2);
    closed();
    EXPECT_EQ(button.get_HitPrice(), 100.25);
    pump();
    EXPECT_EQ(owner.commands, std::vector<int>{231});
}

TEST_F(LadderClosing, ARowThatDidNotMoveMayBePressedAtOnce) {
    open();
    button.SetQuotes(100.25, 99.5);
    button.Redraw();
    click_row(4);
    closed();
    EXPECT_EQ(button.get_HitPrice(), 99.5);
}

TEST_F(LadderClosing, KeysOnARowThatJustMovedArePressesOfNone) {
    for (const WPARAM code : {VK_RETURN, VK_SPACE}) {
        open();
        clock.now += 1000;
        button.SetQuotes(clock.now, 99.5);
        button.Redraw();
        key(code);
        SendMessageW(window, WM_KEYUP, code, 1);
        EXPECT_TRUE(IsWindowVisible(bar()));
        clock.now += 300;
        key(code, LPARAM{KF_REPEAT} << 16 | 1);
        EXPECT_TRUE(IsWindowVisible(bar())) << "a held key is no new press";
        key(code);
        closed();
    }
}

TEST_F(LadderClosing, WhatTheUserScrollsHeMayPressAtOnce) {
    open();
    send(WM_KEYDOWN, VK_UP);
    click_row(3);
    closed();
    EXPECT_EQ(button.get_HitPrice(), 100.0);
}

TEST_F(LadderClosing, WhatMovedBeforeTheOpeningMayBePressedAtOnce) {
    button.SetQuotes(101.0, 100.0);
    button.Redraw();
    open();
    click_row(2);
    EXPECT_EQ(button.get_HitPrice(), 101.0);
}

}  // namespace
