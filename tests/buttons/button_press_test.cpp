// Which of the user's doings are a press of a drawn button, and who hears that one begins.
#include <windows.h>

#include <limits>

#include "tests/buttons/button_fixture.h"
#include "tests/support/message_spy.h"
#include "tests/support/win32/told_import.h"
#include "unicomp/wtlcontrols/buttonst/ButtonST.h"

namespace {

using namespace WTLControls;

class press_recorder final : public IButtonPressSink {
public:
    struct press {
        HWND button;
        bool by_key;
        // As they were when the press was told.
        HWND focus;
        bool pushed;
    };
    std::vector<press> presses;
    // Whether each release was a click.
    std::vector<bool> releases;
    void OnPressEnds(HWND, bool clicks) override { releases.push_back(clicks); }
    void OnPressBegins(HWND button, bool byKey) override {
        presses.push_back(
            {button, byKey, GetFocus(), (SendMessageW(button, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0});
    }
};

class plain_button final : public CButtonST {
public:
    ~plain_button() = default;
};

class ButtonPress : public testing::Test {
protected:
    ButtonPress() : window(owner.make_button(7, 70, 40)) {
        button.SubclassWindow(window);
        button.put_PressSink(&sink);
    }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window, message, wParam, lParam);
    }
    void mouse_down(UINT message = WM_LBUTTONDOWN) const { send(message, MK_LBUTTON, MAKELPARAM(5, 5)); }
    void mouse_up() const { send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5)); }
    void key_down(WPARAM key, bool held = false) const {
        send(WM_KEYDOWN, key, held ? LPARAM{KF_REPEAT} << 16 | 1 : 1);
    }

    diagnostics_recorder reports;
    button_tests::owner_window owner;
    HWND window;
    press_recorder sink;
    plain_button button;
};

TEST_F(ButtonPress, EndsWithAClickOnlyWhereTheButtonIsReleased) {
    mouse_down();
    mouse_up();
    mouse_down();
    send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-30, -30));
    send(WM_LBUTTONUP, 0, MAKELPARAM(-30, -30));
    key_down(VK_SPACE);
    send(WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(sink.releases, (std::vector<bool>{true, false, true}));
    EXPECT_EQ(sink.presses.size(), 3u);
}

TEST_F(ButtonPress, OfTheMouseIsToldBeforeTheFocusMoves) {
    ASSERT_EQ(GetFocus(), owner.hwnd());
    mouse_down();
    ASSERT_EQ(sink.presses.size(), 1u);
    EXPECT_EQ(sink.presses[0].button, window);
    EXPECT_FALSE(sink.presses[0].by_key);
    EXPECT_EQ(sink.presses[0].focus, owner.hwnd());
    EXPECT_FALSE(sink.presses[0].pushed);
    EXPECT_EQ(GetFocus(), window);
    mouse_up();
    EXPECT_EQ(sink.presses.size(), 1u) << "a release begins nothing";
    EXPECT_EQ(owner.commands, std::vector<int>{7});
}

TEST_F(ButtonPress, OfTheSpaceKeyIsToldBeforeTheButtonIsPushed) {
    SetFocus(window);
    key_down(VK_SPACE);
    ASSERT_EQ(sink.presses.size(), 1u);
    EXPECT_EQ(sink.presses[0].button, window);
    EXPECT_TRUE(sink.presses[0].by_key);
    EXPECT_FALSE(sink.presses[0].pushed);
    send(WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(sink.presses.size(), 1u);
}

TEST_F(ButtonPress, OfAHeldKeyIsToldOnceAndClicksOnce) {
    SetFocus(window);
    key_down(VK_SPACE);
    for (int i = 0; i < 5; ++i) {
        key_down(VK_SPACE, true);
    }
    EXPECT_EQ(sink.presses.size(), 1u);
    EXPECT_TRUE(owner.commands.empty()) << "not before the key is released";
    send(WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(owner.commands, std::vector<int>{7});
}

TEST_F(ButtonPress, NoOtherKeyBeginsOne) {
    SetFocus(window);
    for (const WPARAM key : {VK_RETURN, VK_F4, VK_DOWN, VK_ESCAPE, 'B' + 0}) {
        key_down(key);
        send(WM_KEYUP, key, 1);
    }
    EXPECT_TRUE(sink.presses.empty());
    EXPECT_TRUE(owner.commands.empty());
}

TEST_F(ButtonPress, AProgramsClickBeginsOne) {
    send(BM_CLICK);
    ASSERT_EQ(sink.presses.size(), 1u);
    EXPECT_FALSE(sink.presses[0].by_key);
    EXPECT_EQ(sink.presses[0].focus, owner.hwnd());
}

TEST_F(ButtonPress, ADisabledButtonTellsNone) {
    EnableWindow(window, FALSE);
    mouse_down();
    mouse_up();
    key_down(VK_SPACE);
    EXPECT_TRUE(sink.presses.empty());
}

TEST_F(ButtonPress, IsToldToNobodyWithoutASink) {
    button.put_PressSink(nullptr);
    mouse_down();
    mouse_up();
    EXPECT_TRUE(sink.presses.empty());
    EXPECT_EQ(owner.commands, std::vector<int>{7});
}

TEST_F(ButtonPress, EveryFastOneOfAPlainButtonIsTold) {
    mouse_down();
    mouse_up();
    mouse_down(WM_LBUTTONDBLCLK);
    mouse_up();
    EXPECT_EQ(sink.presses.size(), 2u);
}

// A trade button, and what the time of its messages is said to be.
class TradeButtonPress : public testing::Test {
protected:
    TradeButtonPress() : window(owner.make_button(7, 70, 40)), spy(owner.hwnd()) {
        button.SubclassWindow(window);
        button.put_PressSink(&sink);
    }
    void click(UINT down, LONG at) {
        now = at;
        SendMessageW(window, down, MK_LBUTTON, MAKELPARAM(5, 5));
        pushed.push_back((SendMessageW(window, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0);
        SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    }
    // What the system makes of so many fast clicks.
    void fast_clicks(int count, LONG first, LONG apart) {
        for (int i = 0; i < count; ++i) {
            click(i % 2 == 0 ? WM_LBUTTONDOWN : WM_LBUTTONDBLCLK, first + i * apart);
        }
    }

    static constexpr LONG double_click_time = 500;
    LONG now = 0;
    const test::told_import<"GetMessageTime", LONG()> time{[this] { return now; }};
    const test::told_import<"GetDoubleClickTime", UINT()> pace{[] { return UINT{double_click_time}; }};
    diagnostics_recorder reports;
    button_tests::owner_window owner;
    HWND window;
    message_spy spy;
    press_recorder sink;
    std::vector<bool> pushed;
    CButtonSTForBuyAction button;
};

TEST_F(TradeButtonPress, OfADoubleClickIsOne) {
    fast_clicks(2, 1000, 200);
    EXPECT_EQ(owner.commands, std::vector<int>{7});
    EXPECT_EQ(sink.presses.size(), 1u);
    EXPECT_EQ(pushed, (std::vector<bool>{true, false})) << "the second is not even seen";
}

TEST_F(TradeButtonPress, OfSellIsOneForADoubleClickToo) {
    const HWND other = owner.make_button(8, 70, 40);
    CButtonSTForSellAction sell;
    sell.SubclassWindow(other);
    for (const UINT down : {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK}) {
        SendMessageW(other, down, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageW(other, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    }
    EXPECT_EQ(owner.commands, std::vector<int>{8});
}

// The parent hears of the second mouse-down as of any button's; what it does with it is its affair.
TEST_F(TradeButtonPress, TheSecondMouseDownIsANoticeOfItsOwn) {
    std::vector<WPARAM> notices;
    spy.answers[WM_COMMAND] = [&](WPARAM notice, LPARAM) {
        notices.push_back(notice);
        return 0;
    };
    fast_clicks(2, 1000, 200);
    EXPECT_EQ(notices, (std::vector<WPARAM>{MAKEWPARAM(7, BN_CLICKED), MAKEWPARAM(7, BN_DOUBLECLICKED)}));
}

TEST_F(TradeButtonPress, OfATripleClickIsOne) {
    fast_clicks(3, 1000, 200);
    EXPECT_EQ(owner.commands, std::vector<int>{7});
    EXPECT_EQ(sink.presses.size(), 1u);
    EXPECT_EQ(pushed, (std::vector<bool>{true, false, false}));
}

TEST_F(TradeButtonPress, OfAChainOfFastClicksIsOne) {
    fast_clicks(9, 1000, 400);
    EXPECT_EQ(owner.commands, std::vector<int>{7});
    EXPECT_EQ(sink.presses.size(), 1u);
}

TEST_F(TradeButtonPress, AfterTheDoubleClicksTimeIsANewOne) {
    fast_clicks(2, 1000, 200);
    click(WM_LBUTTONDOWN, 1200 + double_click_time);
    EXPECT_EQ(owner.commands.size(), 1u) << "still on its heels";
    click(WM_LBUTTONDOWN, 1200 + double_click_time + 1);
    EXPECT_EQ(owner.commands.size(), 2u);
    EXPECT_EQ(sink.presses.size(), 2u);
}

TEST_F(TradeButtonPress, TheTimeMayWrap) {
    const LONG last = std::numeric_limits<LONG>::max();
    click(WM_LBUTTONDOWN, last - 200);
    click(WM_LBUTTONDBLCLK, last);
    click(WM_LBUTTONDOWN, std::numeric_limits<LONG>::min() + 200);
    EXPECT_EQ(owner.commands.size(), 1u);
    click(WM_LBUTTONDOWN, std::numeric_limits<LONG>::min() + double_click_time);
    EXPECT_EQ(owner.commands.size(), 2u);
}

TEST_F(TradeButtonPress, ClicksThatAreNoDoubleClickAreOneEach) {
    for (LONG i = 0; i < 4; ++i) {
        click(WM_LBUTTONDOWN, 1000 + i);
    }
    EXPECT_EQ(owner.commands.size(), 4u);
    EXPECT_EQ(sink.presses.size(), 4u);
}

TEST_F(TradeButtonPress, KeysAfterADoubleClickCount) {
    fast_clicks(2, 1000, 200);
    SendMessageW(window, WM_KEYDOWN, VK_SPACE, 1);
    SendMessageW(window, WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(owner.commands.size(), 2u);
    EXPECT_EQ(sink.presses.size(), 2u);
}

}  // namespace
