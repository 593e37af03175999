#pragma once

#include <windows.h>

#include "platform/text.h"
#include "platform/win32/frame/balloon_tips.h"

namespace WTLControls::NumberEditors {

// The balloon over one edit: the edit's own, and a tip where edits have none. Lives on the edit's thread.
class CEditBalloon {
public:
    // icon: of a message box. Stays until Hide or the next Show.
    void Show(HWND edit, const CString& title, const CString& text, UINT icon);
    void Hide(HWND edit);

    // The tip's window, null while the edit's own balloon serves.
    HWND get_Tip() const { return m_tips.get_Hwnd(); }

private:
    frame::balloon_tips m_tips;
};

}  // namespace WTLControls::NumberEditors
