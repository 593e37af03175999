#pragma once

#include <vector>

#include "platform/port.h"
#include "platform/text.h"

namespace platform {

struct popup_item {
    UINT id = 0;
    CString text;
    bool enabled = true;
};

// What the logic asks of the user's desktop. All operations belong on the thread that owns the
// windows concerned. Natively there are no windows: the headless desktop knows only the windows it was
// told of, answers message boxes and menus as told, and keeps a record of what was asked.
class desktop {
public:
    virtual ~desktop() = default;

    // True exactly when IsWindow gives 1.
    virtual bool is_window(HWND window) = 0;

    // The host's main window in this process (class "ATL_QVMDIMainFrame"), or null.
    virtual HWND main_frame() = 0;

    // The active window of this thread, or null.
    virtual HWND active_window() = 0;

    virtual void set_window_text(HWND window, const CString& text) = 0;
    virtual CString window_text(HWND window) = 0;

    virtual LRESULT send_message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) = 0;

    // Modal. flags: MB_...; gives ID..., 0 on failure.
    virtual int message_box(HWND owner, const CString& text, const CString& caption, UINT flags) = 0;

    // Shows a menu at a screen point and waits. Gives the chosen id, 0 for none. Throws _com_error
    // (E_FAIL) when the menu can't be made.
    virtual UINT popup_menu(HWND owner, const std::vector<popup_item>& items, POINT at) = 0;
};

template <>
desktop& port<desktop>::system();

}  // namespace platform
