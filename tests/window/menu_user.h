// A person at a popup menu of this thread.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace window_tests {

struct menu_line {
    UINT id;
    std::wstring text;
    bool usable;
    bool operator==(const menu_line&) const = default;
};

inline std::vector<menu_line> lines_of(HMENU menu) {
    std::vector<menu_line> result;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[200] = {};
        MENUITEMINFOW item = {};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_ID | MIIM_STATE | MIIM_STRING;
        item.dwTypeData = text;
        item.cch = 200;
        GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &item);
        result.push_back({item.wID, text, (item.fState & MFS_DISABLED) == 0});
    }
    return result;
}

// Waits for a popup menu of this thread, notes its lines, and presses keys in it. The menu's own loop
// serves the timer.
class menu_user {
public:
    static void press(const std::vector<WPARAM>& keys) {
        press([keys] { return keys; });
    }
    // Who has seen the lines chooses the keys.
    static void press(std::function<std::vector<WPARAM>()> choose) {
        s_choose = std::move(choose);
        s_lines.clear();
        s_seen = 0;
        s_deadline = GetTickCount64() + 300000;
        s_timer = SetTimer(nullptr, 0, 20, &menu_user::look);
    }
    static const std::vector<menu_line>& lines() { return s_lines; }
    static int seen() { return s_seen; }
    // When no menu came.
    static void give_up() { KillTimer(nullptr, s_timer); }

private:
    static void CALLBACK look(HWND, UINT, UINT_PTR timer, DWORD) {
        GUITHREADINFO info = {};
        info.cbSize = sizeof(info);
        const HWND menu_window = FindWindowW(MAKEINTRESOURCEW(32768), nullptr);
        if (!GetGUIThreadInfo(GetCurrentThreadId(), &info) || (info.flags & GUI_INMENUMODE) == 0 ||
            menu_window == nullptr) {
            if (GetTickCount64() > s_deadline) {
                KillTimer(nullptr, timer);
                EndMenu();
            }
            return;
        }
        KillTimer(nullptr, timer);
        ++s_seen;
        constexpr UINT get_menu = 0x1E1;
        s_lines = lines_of(reinterpret_cast<HMENU>(SendMessageW(menu_window, get_menu, 0, 0)));
        for (const WPARAM key : s_choose()) {
            PostMessageW(info.hwndMenuOwner, WM_KEYDOWN, key, 1);
        }
    }

    inline static std::function<std::vector<WPARAM>()> s_choose;
    inline static std::vector<menu_line> s_lines;
    inline static int s_seen = 0;
    inline static UINT_PTR s_timer = 0;
    inline static ULONGLONG s_deadline = 0;
};

}  // namespace window_tests
