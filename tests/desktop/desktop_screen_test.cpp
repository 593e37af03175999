// The system's desktop with real windows; needs a display.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/desktop.h"
#include "tests/desktop/foreign_process.h"
#include "tests/support/win32/told_import.h"

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

// The system's menus, whose calls are noted and which at once give the answer.
class told_menus {
public:
    BOOL answer = 0;
    // The menu that was shown last, and how.
    HMENU menu = nullptr;
    UINT flags = 0;
    POINT at = {};
    HWND owner = nullptr;
    std::vector<std::pair<UINT_PTR, std::wstring>> lines;

private:
    test::told_import<"TrackPopupMenu", decltype(TrackPopupMenu)> m_track{
        [this](HMENU shown, UINT how, int x, int y, int, HWND asker, const RECT*) {
            menu = shown;
            flags = how;
            at = {x, y};
            owner = asker;
            for (int i = 0; i < GetMenuItemCount(shown); ++i) {
                wchar_t text[64] = {};
                GetMenuStringW(shown, static_cast<UINT>(i), text, 64, MF_BYPOSITION);
                lines.emplace_back(GetMenuItemID(shown, i), text);
            }
            return answer;
        }};
};

TEST(SystemDesktop, AMenuStandsAtItsPlaceWithItsLinesAndEndsWithTheCall) {
    const top_window window(L"orderdeck_test_window");
    told_menus menus;
    menus.answer = 7;
    EXPECT_EQ(desktop().popup_menu(window.handle(), s_items, {-40, 41}), 7U);
    EXPECT_EQ(menus.flags, 0x180U);
    EXPECT_EQ(menus.at.x, -40);
    EXPECT_EQ(menus.at.y, 41);
    EXPECT_EQ(menus.owner, window.handle());
    EXPECT_EQ(menus.lines, (std::vector<std::pair<UINT_PTR, std::wstring>>{{1, L"one"}, {2, L"模擬"}}));
    EXPECT_FALSE(IsMenu(menus.menu));
}

// The code of the error that asking for a menu raises, S_OK when it raises none.
HRESULT raised_by_a_menu() {
    try {
        desktop().popup_menu(nullptr, s_items, {0, 0});
    } catch (const _com_error& error) {
        return error.Error();
    }
    return S_OK;
}

TEST(SystemDesktop, AMenuThatCannotBeMadeIsAFailureAndNoneIsShown) {
    const told_menus menus;
    const test::told_import<"CreatePopupMenu", decltype(CreatePopupMenu)> refusing(
        [] { return HMENU{nullptr}; });
    EXPECT_EQ(raised_by_a_menu(), E_FAIL);
    EXPECT_EQ(menus.menu, nullptr);
}

TEST(SystemDesktop, ALineThatCannotBeAppendedIsAFailureAndTheMenuEnds) {
    using create = test::told_import<"CreatePopupMenu", decltype(CreatePopupMenu)>;
    const told_menus menus;
    HMENU made = nullptr;
    const create noting([&] {
        made = create::real();
        return made;
    });
    const test::told_import<"AppendMenuW", decltype(AppendMenuW)> refusing(
        [](HMENU, UINT, UINT_PTR, LPCWSTR) { return BOOL{FALSE}; });
    EXPECT_EQ(raised_by_a_menu(), E_FAIL);
    EXPECT_EQ(menus.menu, nullptr);
    EXPECT_NE(made, nullptr);
    EXPECT_FALSE(IsMenu(made));
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
