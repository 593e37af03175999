// Which of the user's doings are a press of a drawn button, and who hears that one begins.
#include <windows.h>

#include "tests/buttons/button_fixture.h"
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

}  // namespace
