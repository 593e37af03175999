// The buttons without a visual style, in a program of their own: it can't be had back in one process.
#include "tests/buttons/button_fixture.h"
#include "tests/support/screen_scheme.h"
#include "unicomp/wtlcontrols/buttonst/ButtonST.h"
#include "unicomp/wtlcontrols/buttonst/Colours.h"

namespace {

using namespace WTLControls;
using button_tests::snapshot;

class plain_button final : public CButtonST {
public:
    ~plain_button() = default;
};

class ClassicButton : public testing::Test {
protected:
    ClassicButton() {
        screen_scheme::leave_visual_style();
        window = owner.make_button(7, 70, 40);
        button.SubclassWindow(window);
        button.put_Flags(ButtonFlag::Gradient | ButtonFlag::Content);
        button.put_Colours(make_colour(192, 208, 241), make_colour(160, 176, 203));
        SetWindowTextW(window, L"");
    }
    void hide_focus() const {
        SendMessageW(owner.hwnd(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS), 0);
    }

    diagnostics_recorder reports;
    button_tests::owner_window owner;
    HWND window = nullptr;
    plain_button button;
};

TEST_F(ClassicButton, HasAPlainGradientInsideItsFrame) {
    ASSERT_FALSE(IsAppThemed());
    const snapshot shown(window);
    EXPECT_EQ(shown.at(30, 1), make_colour(192, 208, 241));
    EXPECT_EQ(shown.at(1, 1), make_colour(192, 208, 241)) << "no corner is cut";
    EXPECT_EQ(shown.at(30, 38), make_colour(160, 176, 203));
}

TEST_F(ClassicButton, WithTheFocusTheGradientEndsOneLineEarlier) {
    hide_focus();
    SetFocus(window);
    const snapshot shown(window);
    EXPECT_EQ(shown.at(30, 37), make_colour(160, 176, 203));
    EXPECT_NE(shown.at(30, 38), make_colour(160, 176, 203));
}

TEST_F(ClassicButton, WithoutAGradientItIsTheFrameOfThePlatform) {
    button.put_Flags(0);
    for (const bool pressed : {false, true}) {
        SendMessageW(window, BM_SETSTATE, pressed, 0);
        const snapshot shown(window);
        const HWND canvas = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 100, 10, 70, 40,
                                            owner.hwnd(), nullptr, nullptr, nullptr);
        const HDC dc = GetDC(canvas);
        RECT client = {0, 0, 70, 40};
        DrawFrameControl(dc, &client, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0U));
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 70; ++x) {
                ASSERT_EQ(GetPixel(dc, x, y), shown.at(x, y)) << x << ", " << y;
            }
        }
        ReleaseDC(canvas, dc);
        DestroyWindow(canvas);
    }
}

TEST_F(ClassicButton, ADisabledButtonHasNoGradient) {
    EnableWindow(window, FALSE);
    const snapshot shown(window);
    EXPECT_EQ(shown.at(30, 20), GetSysColor(COLOR_BTNFACE));
}

}  // namespace
