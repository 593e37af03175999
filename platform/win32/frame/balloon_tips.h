#pragma once

#include <windows.h>

#include <commctrl.h>

#include "platform/text.h"

namespace frame {

// Balloon tips over the children of a window, each with a title. One shows at a time. Lives on the
// window's thread; the tips end with the object.
class balloon_tips {
public:
    balloon_tips() = default;
    ~balloon_tips();
    balloon_tips(const balloon_tips&) = delete;
    balloon_tips& operator=(const balloon_tips&) = delete;

    // A child must be registered before it can show a tip. False when that failed.
    bool Register(HWND parent, HWND child);
    // Points at the lower edge of the child until Hide or the next Show. icon: of a tip's title.
    void Show(HWND child, const CString& title, const CString& text, WPARAM icon = TTI_WARNING);
    void Hide();

    // The balloon's window, null before the first Register.
    HWND get_Hwnd() const { return m_hWnd; }

private:
    HWND m_hWnd = nullptr;
    HWND m_shown = nullptr;
};

}  // namespace frame
