// What a button draws, and what it gets it from.
#include <windows.h>

#include <commctrl.h>
#include <olectl.h>
#include <vssym32.h>

#include "tests/buttons/button_fixture.h"
#include "tests/support/message_spy.h"
#include "tests/support/win32/told_import.h"
#include "unicomp/wtlcontrols/buttonst/ButtonST.h"

namespace {

using namespace WTLControls;
using button_tests::snapshot;

constexpr int width = 70;
constexpr int height = 40;
constexpr COLORREF red = RGB(255, 0, 0);

class plain_button final : public CButtonST {
public:
    ~plain_button() = default;
};

class ButtonPicture : public testing::Test {
protected:
    ButtonPicture() : window(owner.make_button(7, width, height)) {
        below.SubclassWindow(window);
        button.SubclassWindow(window);
        SetWindowTextW(window, L"");
    }

    diagnostics_recorder reports;
    button_tests::owner_window owner;
    HWND window;
    // What the button leaves to the system's.
    message_spy below;
    plain_button button;
};

// The themed push button in a state, on the face colour.
snapshot themed_push_button(const button_tests::owner_window& owner, int state) {
    class canvas final : public frame::subclassed_window {
    public:
        canvas(HWND window, int part_state) : m_state(part_state) { SubclassWindow(window); }
        ~canvas() = default;
        BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM, LPARAM, LRESULT&, DWORD) override {
            if (uMsg != WM_PAINT) {
                return FALSE;
            }
            PAINTSTRUCT painting = {};
            const HDC dc = BeginPaint(hWnd, &painting);
            RECT client = {0, 0, width, height};
            FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
            const HTHEME theme = OpenThemeData(nullptr, L"BUTTON");
            DrawThemeBackground(theme, dc, BP_PUSHBUTTON, m_state, &client, nullptr);
            CloseThemeData(theme);
            EndPaint(hWnd, &painting);
            return TRUE;
        }

    private:
        int m_state;
    };
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 100, 10, width, height,
                                        owner.hwnd(), nullptr, nullptr, nullptr);
    const canvas drawing(window, state);
    const snapshot shown(window);
    DestroyWindow(window);
    return shown;
}

TEST_F(ButtonPicture, InAVisualStyleItsFrameIsTheThemedPushButtonInItsState) {
    ASSERT_TRUE(IsAppThemed());
    const auto expect_state = [&](int state) {
        EXPECT_TRUE(snapshot(window) == themed_push_button(owner, state)) << state;
    };
    EXPECT_FALSE(themed_push_button(owner, PBS_NORMAL) == themed_push_button(owner, PBS_DEFAULTED));
    expect_state(PBS_NORMAL);
    SendMessageW(window, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    expect_state(PBS_DEFAULTED);
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    expect_state(PBS_HOT);
    SendMessageW(window, BM_SETSTATE, TRUE, 0);
    expect_state(PBS_PRESSED);
    EnableWindow(window, FALSE);
    expect_state(PBS_DISABLED);
}

// A list of one red square.
HIMAGELIST red_images(int size) {
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size, size);
    const HGDIOBJ old = SelectObject(dc, bitmap);
    const HBRUSH brush = CreateSolidBrush(red);
    const RECT all = {0, 0, size, size};
    FillRect(dc, &all, brush);
    DeleteObject(brush);
    SelectObject(dc, old);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    const HIMAGELIST images = ImageList_Create(size, size, ILC_COLOR24, 1, 0);
    ImageList_Add(images, bitmap, nullptr);
    DeleteObject(bitmap);
    return images;
}

// The first column in which two pictures differ; the width when they are equal.
int first_difference(const snapshot& one, const snapshot& other) {
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y) {
            if (one.at(x, y) != other.at(x, y)) {
                return x;
            }
        }
    }
    return width;
}

TEST_F(ButtonPicture, AnImageStandsBeforeTheText) {
    constexpr int size = 8;
    button.put_Flags(ButtonFlag::Content);
    const snapshot empty(window);
    SetWindowTextW(window, L"MM");
    const int alone = first_difference(snapshot(window), empty);
    const HIMAGELIST images = red_images(size);
    button.put_Images(images);
    const snapshot both(window);
    SetWindowTextW(window, L"");
    const snapshot image(window);
    const int left = first_difference(image, empty);
    EXPECT_LT(left, 8) << "at the left end";
    constexpr int top = (height - size) / 2;
    for (int i = 0; i < size * size; ++i) {
        ASSERT_EQ(both.at(left + i % size, top + i / size), red) << i;
    }
    const int beside = first_difference(both, image);
    EXPECT_GT(beside, left + size) << "the text keeps off it";
    EXPECT_GT(beside, alone);
    EXPECT_LT(beside, width);
    button.put_Images(nullptr);
    ImageList_Destroy(images);
}

TEST_F(ButtonPicture, AMissingColourIsReportedOnceAPaint) {
    button.put_Style(ButtonStyle::DropDown, nullptr);
    button.put_Flags(ButtonFlag::Gradient | ButtonFlag::Content);
    SetFocus(window);
    UpdateWindow(window);
    reports.clear();
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    ASSERT_EQ(reports.assertions().size(), 2u);
    EXPECT_EQ(reports.assertions()[0].description, L"0xFFFFFFFFL != c0");
    EXPECT_EQ(reports.assertions()[1].description, L"0xFFFFFFFFL != c1");
}

TEST_F(ButtonPicture, ANewThemeIsOpenedAndDrawn) {
    // The system's button would open one for the window too.
    below.answers[WM_THEMECHANGED] = [](WPARAM, LPARAM) { return 0; };
    UpdateWindow(window);
    const HTHEME other = OpenThemeData(window, L"SPIN");
    ASSERT_EQ(GetWindowTheme(window), other);
    SendMessageW(window, WM_THEMECHANGED, 0, 0);
    EXPECT_NE(GetWindowTheme(window), other);
    EXPECT_EQ(GetWindowTheme(window), button.get_Picture().theme);
    EXPECT_TRUE(GetUpdateRect(window, nullptr, FALSE));
    EXPECT_EQ(below.count(WM_THEMECHANGED), 1) << "it goes on";
    CloseThemeData(other);
}

TEST_F(ButtonPicture, AUrlIsOpenedWithTheVerbOpen) {
    std::vector<std::wstring> opened;
    const test::told_import<"ShellExecuteW", HINSTANCE(HWND, LPCWSTR, LPCWSTR, LPCWSTR, LPCWSTR, INT)> system(
        [&](HWND, LPCWSTR verb, LPCWSTR what, LPCWSTR, LPCWSTR, INT) {
            opened = {verb, what};
            return HINSTANCE();
        });
    button.put_URL(L"https://example.org");
    SendMessageW(window, OCM_COMMAND, MAKEWPARAM(7, BN_CLICKED), 0);
    EXPECT_EQ(opened, (std::vector<std::wstring>{L"open", L"https://example.org"}));
}

}  // namespace
