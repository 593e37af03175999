// When a drawn button has the mouse, and when it gives it back.
#include <windows.h>

#include "tests/buttons/button_fixture.h"
#include "unicomp/wtlcontrols/buttonst/ButtonST.h"

namespace {

using namespace WTLControls;

class plain_button final : public CButtonST {
public:
    ~plain_button() = default;
};

class ButtonMouse : public testing::Test {
protected:
    ButtonMouse() : window(owner.make_button(7, 70, 40)) {
        button.SubclassWindow(window);
        button.put_Flags(ButtonFlag::HotTracking);
    }
    ~ButtonMouse() override { ReleaseCapture(); }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window, message, wParam, lParam);
    }
    void move(int x, int y, WPARAM keys = 0) const { send(WM_MOUSEMOVE, keys, MAKELPARAM(x, y)); }
    void get_hot() const {
        move(5, 5);
        ASSERT_TRUE(button.IsHot());
        ASSERT_EQ(GetCapture(), window);
    }

    diagnostics_recorder reports;
    button_tests::owner_window owner;
    HWND window;
    plain_button button;
};

TEST_F(ButtonMouse, IsGivenBackOutsideByAButtonThatCooledWhileItWasHeld) {
    get_hot();
    send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    move(-1, 5, MK_LBUTTON);
    EXPECT_FALSE(button.IsHot());
    EXPECT_EQ(GetCapture(), window) << "it waits for its release";
    // The release went elsewhere.
    move(-1, 5);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ButtonMouse, IsGivenBackOutsideByAButtonThatWasNeverHot) {
    SetCapture(window);
    move(-1, 5);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ButtonMouse, IsGivenBackWithTheFocus) {
    SetFocus(window);
    get_hot();
    SetFocus(owner.hwnd());
    EXPECT_FALSE(button.IsHot());
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ButtonMouse, IsGivenBackByAButtonThatIsDisabled) {
    get_hot();
    EnableWindow(window, FALSE);
    EXPECT_FALSE(button.IsHot());
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ButtonMouse, IsGivenBackWhenTheWindowIsLeftOrTheModeEnds) {
    get_hot();
    send(WM_ACTIVATE, WA_INACTIVE);
    EXPECT_EQ(GetCapture(), nullptr);
    get_hot();
    send(WM_CANCELMODE);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ButtonMouse, OfAnotherWindowStaysThere) {
    get_hot();
    SetCapture(owner.hwnd());
    move(-1, 5);
    send(WM_KILLFOCUS);
    send(WM_ENABLE, FALSE);
    EXPECT_EQ(GetCapture(), owner.hwnd());
}

TEST_F(ButtonMouse, MayMoveWhileTheSpaceKeyIsHeld) {
    SetFocus(window);
    send(WM_KEYDOWN, VK_SPACE, 1);
    move(-1, 5);
    send(WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(owner.commands, std::vector<int>{7});
    EXPECT_EQ(GetCapture(), nullptr);
    get_hot();
    send(WM_KEYDOWN, VK_SPACE, 1);
    move(-1, 5);
    EXPECT_FALSE(button.IsHot());
    send(WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(owner.commands.size(), 2u);
    EXPECT_EQ(GetCapture(), nullptr);
}

}  // namespace
