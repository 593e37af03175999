#pragma once

#include <windows.h>

#include "platform/text.h"
#include "platform/win32/frame/subclassed_window.h"

namespace frame {

// Gives a control that has no label a name for those who do not see the screen. In everything else the
// control answers as it would without. Lives on the control's thread.
class accessible_name final : public subclassed_window {
public:
    // False when the window can't be subclassed.
    bool Attach(HWND control, const CString& name);
    // The name that is told from now on.
    void put_Name(const CString& name) { m_name = name; }
    const CString& get_Name() const { return m_name; }

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    answer _on_get_object(WPARAM wParam, LPARAM lParam) const;

    CString m_name;
};

}  // namespace frame
