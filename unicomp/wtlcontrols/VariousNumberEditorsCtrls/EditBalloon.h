#pragma once

#include <windows.h>

#include "platform/text.h"

namespace WTLControls::NumberEditors {

// The balloon over one edit: the edit's own, and a tip window where edits have none. Lives on the edit's
// thread; its window ends with the edit's parent.
class CEditBalloon {
public:
    CEditBalloon() = default;
    CEditBalloon(const CEditBalloon&) = delete;
    CEditBalloon& operator=(const CEditBalloon&) = delete;

    // icon: of a message box. Stays until Hide or the next Show.
    void Show(HWND edit, const CString& title, const CString& text, UINT icon);
    void Hide(HWND edit);

    // The tip window, null when the edit's own balloon serves.
    HWND get_Tip() const { return m_tip; }

private:
    void _show_tip(HWND edit, const CString& title, const CString& text);

    HWND m_tip = nullptr;
};

}  // namespace WTLControls::NumberEditors
