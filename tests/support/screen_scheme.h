// The look of the screen for a test: without a visual style, or in a scheme of high contrast. Windows
// only. Other programs on the same desktop see the colours change, so a test that uses this takes the
// screen's lock.
#pragma once

#include <windows.h>

#include <uxtheme.h>

#include <array>

namespace screen_scheme {

// The process draws without a visual style from now on: Wine has no way back. The stored setting of the
// user stays, so that programs started later have theirs.
inline void leave_visual_style() {
    if (!::IsThemeActive()) {
        return;
    }
    ::EnableTheming(FALSE);
    constexpr wchar_t active[] = L"1";
    ::RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager",
                      L"ThemeActive", REG_SZ, active, sizeof(active));
}

// White and yellow on black while this lives.
class high_contrast {
public:
    high_contrast() {
        for (std::size_t i = 0; i < items.size(); ++i) {
            m_before[i] = ::GetSysColor(items[i]);
        }
        ::SetSysColors(static_cast<int>(items.size()), items.data(), colours.data());
        tell_common_controls();
    }
    ~high_contrast() {
        ::SetSysColors(static_cast<int>(items.size()), items.data(), m_before.data());
        tell_common_controls();
    }
    high_contrast(const high_contrast&) = delete;
    high_contrast& operator=(const high_contrast&) = delete;

private:
    // They keep copies of the colours, and learn of new ones through any list.
    static void tell_common_controls() {
        const HWND list = ::CreateWindowExW(0, L"SysListView32", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                            nullptr, nullptr);
        ::SendMessageW(list, WM_SYSCOLORCHANGE, 0, 0);
        ::DestroyWindow(list);
    }

    static constexpr std::array<int, 12> items = {COLOR_WINDOW,       COLOR_WINDOWTEXT,  COLOR_BTNFACE,
                                                  COLOR_BTNTEXT,      COLOR_HIGHLIGHT,   COLOR_HIGHLIGHTTEXT,
                                                  COLOR_GRAYTEXT,     COLOR_WINDOWFRAME, COLOR_BTNSHADOW,
                                                  COLOR_BTNHIGHLIGHT, COLOR_3DLIGHT,     COLOR_3DDKSHADOW};
    static constexpr std::array<COLORREF, 12> colours = {
        RGB(0, 0, 0),       RGB(255, 255, 255), RGB(0, 0, 0),    RGB(255, 255, 255),
        RGB(255, 255, 0),   RGB(0, 0, 0),       RGB(0, 255, 0),  RGB(255, 255, 255),
        RGB(128, 128, 128), RGB(192, 192, 192), RGB(96, 96, 96), RGB(255, 255, 255)};
    std::array<COLORREF, 12> m_before = {};
};

}  // namespace screen_scheme
