#include "unicomp/wtlcontrols/buttonst/ButtonST.h"

#include <olectl.h>

#include <optional>

#include "tests/buttons/button_fixture.h"
#include "unicomp/wtlcontrols/buttonst/Colours.h"

namespace {

using namespace WTLControls;
using button_tests::pump;
using button_tests::snapshot;

constexpr DWORD drawn = ButtonFlag::HotTracking | ButtonFlag::Gradient | ButtonFlag::Content;

class url_button final : public CButtonST {
public:
    ~url_button() = default;
    std::vector<CString> opened;

protected:
    void OpenURL(const CString& url) override { opened.push_back(url); }
};

class recording_sink final : public IButtonSTEventSink {
public:
    std::vector<std::string> calls;
    void OnButtonClick() override { calls.emplace_back("button"); }
    void OnDropDownClick() override { calls.emplace_back("drop-down"); }
};

using calls = std::vector<std::string>;

class ButtonST : public testing::Test {
protected:
    ButtonST() : window(owner.make_button(7, 70, 40)) {
        button.SubclassWindow(window);
        button.put_Flags(drawn);
        button.put_Colours(make_colour(192, 208, 241), make_colour(160, 176, 203));
        SetWindowTextW(window, L"");
    }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window, message, wParam, lParam);
    }
    void move(int x, int y, WPARAM keys = 0) const { send(WM_MOUSEMOVE, keys, MAKELPARAM(x, y)); }
    void press(int x, int y) const { send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
    void release(int x, int y) const { send(WM_LBUTTONUP, 0, MAKELPARAM(x, y)); }
    // With something to repaint.
    bool waits_for_paint() const { return GetUpdateRect(window, nullptr, FALSE) != FALSE; }
    void paint() const { UpdateWindow(window); }
    void give_sink() {
        button.put_Style(ButtonStyle::DropDown, &sink);
        button.put_Split(54);
    }

    diagnostics_recorder reports;
    button_tests::owner_window owner;
    HWND window;
    recording_sink sink;
    url_button button;
};

TEST_F(ButtonST, ANewTextIsPaintedOnce) {
    paint();
    const int before = owner.drawn;
    SetWindowTextW(window, L"101.25");
    EXPECT_EQ(owner.drawn, before) << "not before the paint";
    EXPECT_TRUE(waits_for_paint());
    paint();
    EXPECT_EQ(owner.drawn, before + 1);
    EXPECT_EQ(button.get_Picture().text, L"101.25");
}

TEST_F(ButtonST, DrawsItselfThroughItsOwner) {
    EXPECT_EQ(GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK, BS_OWNERDRAW);
    SendMessageW(window, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    EXPECT_EQ(GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK, BS_OWNERDRAW);
}

TEST_F(ButtonST, TheTradeButtonsDifferInTheirColours) {
    CButtonSTForBuyAction buy;
    CButtonSTForSellAction sell;
    EXPECT_EQ(buy.get_Picture().colours, (button_colours{{1, RGB(192, 208, 241)}, {2, RGB(160, 176, 203)}}));
    EXPECT_EQ(sell.get_Picture().colours, (button_colours{{1, RGB(241, 197, 197)}, {2, RGB(215, 129, 129)}}));
}

TEST_F(ButtonST, InAVisualStyleItsGradientStandsInsideTheThemedFrame) {
    ASSERT_TRUE(IsAppThemed());
    const snapshot shown(window);
    EXPECT_EQ(shown.at(30, 4), between(make_colour(192, 208, 241), make_colour(160, 176, 203), 1, 32));
    EXPECT_EQ(shown.at(30, 3), blended(make_colour(222, 238, 255), make_colour(192, 208, 241), 140));
    EXPECT_EQ(shown.at(30, 34), between(make_colour(192, 208, 241), make_colour(160, 176, 203), 31, 32));
}

TEST_F(ButtonST, APressedFaceIsFifteenDarker) {
    SendMessageW(owner.hwnd(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS), 0);
    press(5, 5);
    const snapshot shown(window);
    EXPECT_EQ(shown.at(30, 4), between(make_colour(177, 193, 226), make_colour(145, 161, 188), 1, 32));
}

TEST_F(ButtonST, ADisabledButtonHasNoGradient) {
    EnableWindow(window, FALSE);
    const snapshot shown(window);
    button.put_Flags(ButtonFlag::Content);
    EXPECT_TRUE(shown == snapshot(window)) << "it is the plain themed button";
}

TEST_F(ButtonST, DrawsItsTextOnlyWithTheContentFlag) {
    SetWindowTextW(window, L"MMMM");
    const snapshot with(window);
    button.put_Flags(ButtonFlag::Gradient);
    const snapshot without(window);
    EXPECT_FALSE(with == without);
    SetWindowTextW(window, L"");
    EXPECT_TRUE(without == snapshot(window));
}

TEST_F(ButtonST, GetsHotUnderTheMouseAndTakesTheMouse) {
    paint();
    move(5, 5);
    EXPECT_TRUE(button.IsHot());
    EXPECT_EQ(GetCapture(), window);
    EXPECT_TRUE(waits_for_paint());
    paint();
    move(6, 6);
    EXPECT_FALSE(waits_for_paint()) << "once is enough";
    move(-1, 6);
    EXPECT_FALSE(button.IsHot());
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_TRUE(waits_for_paint());
}

TEST_F(ButtonST, StaysColdWhileItsWindowIsNotTheActiveOne) {
    const HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 5, 5, nullptr, nullptr,
                                       nullptr, nullptr);
    SetActiveWindow(other);
    move(5, 5);
    EXPECT_FALSE(button.IsHot());
    DestroyWindow(other);
}

TEST_F(ButtonST, CoolsWhenItLosesFocusUseOrModeWithHotTracking) {
    const struct {
        UINT message;
        WPARAM wParam;
    } losses[] = {{WM_KILLFOCUS, 0}, {WM_CANCELMODE, 0}, {WM_ACTIVATE, WA_INACTIVE}, {WM_ENABLE, FALSE}};
    for (const auto& each : losses) {
        move(5, 5);
        ASSERT_TRUE(button.IsHot()) << each.message;
        send(each.message, each.wParam);
        EXPECT_FALSE(button.IsHot()) << each.message;
        ReleaseCapture();
    }
    move(5, 5);
    send(WM_ACTIVATE, WA_ACTIVE);
    send(WM_ENABLE, TRUE);
    EXPECT_TRUE(button.IsHot());
}

TEST_F(ButtonST, WithoutHotTrackingOnlyTheMouseCools) {
    button.put_Flags(ButtonFlag::Gradient);
    move(5, 5);
    send(WM_KILLFOCUS);
    EXPECT_TRUE(button.IsHot());
    ReleaseCapture();
    EXPECT_FALSE(button.IsHot()) << "the mouse was taken away";
}

TEST_F(ButtonST, APressGivesItTheFocusAndAReleaseOverItClicks) {
    press(5, 5);
    EXPECT_EQ(owner.focused, std::vector<HWND>{window});
    EXPECT_EQ(GetFocus(), window);
    EXPECT_TRUE(owner.commands.empty());
    release(5, 5);
    EXPECT_EQ(owner.commands, std::vector<int>{7});
    press(5, 5);
    release(500, 5);
    EXPECT_EQ(owner.commands.size(), 1u);
}

TEST_F(ButtonST, EveryOneOfFastPressesClicks) {
    press(5, 5);
    release(5, 5);
    send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    release(5, 5);
    EXPECT_EQ(owner.commands, (std::vector<int>{7, 7}));
}

TEST_F(ButtonST, ShowsItsCursorWhenItHasOne) {
    const LPARAM over = MAKELPARAM(HTCLIENT, WM_MOUSEMOVE);
    const HCURSOR cross = LoadCursorW(nullptr, MAKEINTRESOURCEW(32515));
    SetCursor(nullptr);
    send(WM_SETCURSOR, reinterpret_cast<WPARAM>(window), over);
    EXPECT_NE(GetCursor(), cross);
    button.put_Cursor(cross);
    EXPECT_EQ(send(WM_SETCURSOR, reinterpret_cast<WPARAM>(window), over), 1);
    EXPECT_EQ(GetCursor(), cross);
}

TEST_F(ButtonST, AnswersForItsGroundWithTheStockNullBrush) {
    EXPECT_EQ(send(OCM_CTLCOLORBTN), reinterpret_cast<LRESULT>(GetStockObject(NULL_BRUSH)));
}

TEST_F(ButtonST, IsNotErasedBeforeItIsDrawn) {
    EXPECT_EQ(send(WM_ERASEBKGND), 1);
}

TEST_F(ButtonST, AClickTogglesACheckButton) {
    button.put_Flags(drawn | ButtonFlag::Check);
    button.put_URL(L"https://example.org");
    send(OCM_COMMAND, MAKEWPARAM(7, 0));
    EXPECT_TRUE(button.get_Check());
    EXPECT_TRUE(button.get_Picture().look.pressed);
    send(OCM_COMMAND, MAKEWPARAM(7, 0));
    EXPECT_FALSE(button.get_Check());
    EXPECT_TRUE(button.opened.empty()) << "a check button opens nothing";
}

TEST_F(ButtonST, AClickOpensTheUrl) {
    send(OCM_COMMAND, MAKEWPARAM(7, 0));
    EXPECT_TRUE(button.opened.empty());
    button.put_URL(L"https://example.org");
    send(OCM_COMMAND, MAKEWPARAM(7, 5));
    EXPECT_TRUE(button.opened.empty()) << "another notice";
    send(OCM_COMMAND, MAKEWPARAM(7, 0));
    EXPECT_EQ(button.opened, std::vector<CString>{L"https://example.org"});
}

TEST_F(ButtonST, RepeatsUntilTheReleaseAndMakesTheCountEven) {
    button.put_Flags(drawn | ButtonFlag::AutoRepeat);
    button.put_RepeatDelay(0);
    // Afterwards the button looks where the mouse is, which may be left over it by another program.
    SetCursorPos(0, 0);
    for (const std::size_t until : {1u, 2u, 3u}) {
        owner.commands.clear();
        owner.on_command = [&] {
            if (owner.commands.size() == until) {
                PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
            }
        };
        press(5, 5);
        EXPECT_EQ(owner.commands.size(), until + until % 2);
        EXPECT_NE(GetCapture(), window);
        pump();
    }
}

TEST_F(ButtonST, ThePartThatIsPressedIsTold) {
    give_sink();
    press(54, 5);
    release(54, 5);
    press(53, 5);
    release(53, 5);
    EXPECT_EQ(sink.calls, (calls{"drop-down", "button"}));
    EXPECT_TRUE(owner.commands.empty()) << "the sink alone hears of it";
    EXPECT_FALSE(button.get_Picture().look.pressed);
}

TEST_F(ButtonST, TellsNobodyWithoutTheDropDownStyle) {
    button.put_Style(0, &sink);
    press(54, 5);
    release(54, 5);
    EXPECT_TRUE(sink.calls.empty());
    EXPECT_EQ(owner.commands, std::vector<int>{7});
}

TEST_F(ButtonST, BothPartsHaveKeys) {
    give_sink();
    send(WM_KEYDOWN, VK_SPACE, 1);
    send(WM_KEYUP, VK_SPACE, 1);
    send(WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_EQ(sink.calls, (calls{"button", "button"}));
    sink.calls.clear();
    send(WM_KEYDOWN, VK_F4, 1);
    send(WM_SYSKEYDOWN, VK_DOWN, 1);
    EXPECT_EQ(sink.calls, (calls{"drop-down", "drop-down"}));
    EXPECT_TRUE(owner.commands.empty());
    MSG enter = {};
    enter.message = WM_KEYDOWN;
    enter.wParam = VK_RETURN;
    EXPECT_EQ(send(WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter)), DLGC_WANTALLKEYS);
}

TEST_F(ButtonST, AReleasedSpaceThatWasNotPressedHereIsNoClick) {
    give_sink();
    send(WM_KEYUP, VK_SPACE, 1);
    EXPECT_TRUE(sink.calls.empty());
}

TEST_F(ButtonST, MouseMessagesGoToTheTooltipFirst) {
    static std::vector<UINT> relayed;
    relayed.clear();
    button.put_Tooltip(L"what it does");
    ASSERT_NE(button.get_Tooltip(), nullptr);
    const auto spy = [](HWND tip, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                        DWORD_PTR) -> LRESULT {
        if (message == TTM_RELAYEVENT) {
            relayed.push_back(reinterpret_cast<const MSG*>(lParam)->message);
        }
        return DefSubclassProc(tip, message, wParam, lParam);
    };
    SetWindowSubclass(button.get_Tooltip(), spy, 1, 0);
    move(5, 5);
    press(5, 5);
    release(5, 5);
    send(WM_KEYDOWN, VK_F2, 1);
    ASSERT_GE(relayed.size(), 3u);
    EXPECT_EQ(relayed.front(), UINT{WM_MOUSEMOVE});
    EXPECT_EQ(relayed[1], UINT{WM_LBUTTONDOWN});
    EXPECT_EQ(relayed.back(), UINT{WM_LBUTTONUP});
    button.put_Tooltip(L"something else");
}

TEST_F(ButtonST, AChangeIsPaintedOnce) {
    paint();
    EXPECT_FALSE(waits_for_paint());
    button.put_Colours(make_colour(192, 208, 241), make_colour(160, 176, 203));
    EXPECT_FALSE(waits_for_paint()) << "equal colours are no change";
    button.put_Colours(1, 2);
    EXPECT_TRUE(waits_for_paint());
}

TEST_F(ButtonST, GivesBackWhatItHeldWhenItsWindowEnds) {
    button.put_Tooltip(L"tip");
    paint();
    const HWND tip = button.get_Tooltip();
    DestroyWindow(window);
    EXPECT_FALSE(IsWindow(tip));
    EXPECT_EQ(button.get_Hwnd(), nullptr);
}

TEST_F(ButtonST, AnUnexpectedMapIdIsReported) {
    LRESULT result = 0;
    EXPECT_FALSE(button.ProcessWindowMessage(window, WM_SIZE, 0, 0, result, 1));
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"0");
}

}  // namespace
