// The system's desktop with real windows; needs a display.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop.h"
#include "tests/desktop/foreign_process.h"

namespace {

platform::desktop& desktop() {
    return platform::port<platform::desktop>::system();
}

// A top-level window that counts what a menu tells it.
class top_window {
public:
    explicit top_window(const wchar_t* name) : m_name(name) {
        WNDCLASSW window_class{};
        window_class.lpfnWndProc = procedure;
        window_class.hInstance = GetModuleHandleW(nullptr);
        window_class.lpszClassName = name;
        RegisterClassW(&window_class);
        m_handle = CreateWindowExW(0, name, L"", WS_POPUP | WS_VISIBLE, 20, 20, 200, 100, nullptr, nullptr,
                                   window_class.hInstance, nullptr);
        SetWindowLongPtrW(m_handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~top_window() {
        DestroyWindow(m_handle);
        UnregisterClassW(m_name, GetModuleHandleW(nullptr));
    }
    top_window(const top_window&) = delete;
    top_window& operator=(const top_window&) = delete;

    HWND handle() const { return m_handle; }
    int notifications() const { return m_notifications; }
    void press(std::vector<WPARAM> keys) const {
        for (const WPARAM key : keys) {
            PostMessageW(m_handle, WM_KEYDOWN, key, 0);
        }
    }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_COMMAND || message == WM_INITMENUPOPUP) {
            const auto self = reinterpret_cast<top_window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
            ++self->m_notifications;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    const wchar_t* m_name;
    HWND m_handle = nullptr;
    int m_notifications = 0;
};

const std::vector<platform::popup_item> s_items = {{1, L"one", true}, {2, L"模擬", true}};

TEST(SystemDesktop, FindsTheFrameOfThisProcessAmongTheTopWindows) {
    const test::foreign_process other(L"top");
    ASSERT_NE(other.top_window(), nullptr);
    EXPECT_EQ(desktop().main_frame(), nullptr);
    HWND frame = nullptr;
    {
        const top_window window(L"ATL_QVMDIMainFrame");
        frame = window.handle();
        ASSERT_NE(frame, nullptr);
        EXPECT_EQ(desktop().main_frame(), frame);
        EXPECT_TRUE(desktop().is_window(frame));
    }
    EXPECT_FALSE(desktop().is_window(frame));
    EXPECT_EQ(desktop().main_frame(), nullptr);
}

TEST(SystemDesktop, GivesTheActiveWindowOfTheThread) {
    const top_window window(L"orderdeck_test_window");
    SetActiveWindow(window.handle());
    EXPECT_EQ(desktop().active_window(), window.handle());
}

TEST(SystemDesktop, ReadsBackTheTextOfAWindow) {
    const top_window window(L"orderdeck_test_window");
    EXPECT_EQ(desktop().window_text(window.handle()), L"");
    desktop().set_window_text(window.handle(), L"經紀商 Alpha");
    EXPECT_EQ(desktop().window_text(window.handle()), L"經紀商 Alpha");
}

TEST(SystemDesktop, AMenuGivesTheChosenIdAndTellsItsOwnerNothing) {
    const top_window window(L"orderdeck_test_window");
    window.press({VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_EQ(desktop().popup_menu(window.handle(), s_items, {40, 40}), 2U);
    EXPECT_EQ(window.notifications(), 0);
}

TEST(SystemDesktop, ADismissedMenuGivesZero) {
    const top_window window(L"orderdeck_test_window");
    window.press({VK_DOWN, VK_ESCAPE});
    EXPECT_EQ(desktop().popup_menu(window.handle(), s_items, {40, 40}), 0U);
}

// What a message box showed before it was answered.
struct box_seen {
    std::wstring text;
    HWND owner = nullptr;
} s_box;

// Answers the box as soon as it stands.
void CALLBACK answer_box(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND box = FindWindowW(L"#32770", L"orderdeck caption");
    if (box == nullptr) {
        return;
    }
    KillTimer(nullptr, timer);
    wchar_t text[64] = {};
    GetDlgItemTextW(box, 0xFFFF, text, 64);
    s_box = {text, GetWindow(box, GW_OWNER)};
    PostMessageW(box, WM_COMMAND, IDNO, 0);
}

TEST(SystemDesktop, AMessageBoxShowsItsTextOnItsOwnerAndGivesTheAnswer) {
    const top_window window(L"orderdeck_test_window");
    SetTimer(nullptr, 0, 10, answer_box);
    EXPECT_EQ(desktop().message_box(window.handle(), L"已連線", L"orderdeck caption", MB_YESNO), IDNO);
    EXPECT_EQ(s_box.text, L"已連線");
    EXPECT_EQ(s_box.owner, window.handle());
}

}  // namespace
