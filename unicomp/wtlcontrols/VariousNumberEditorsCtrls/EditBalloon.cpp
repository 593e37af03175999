#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/EditBalloon.h"

#include <commctrl.h>

namespace WTLControls::NumberEditors {

void CEditBalloon::Show(HWND edit, const CString& title, const CString& text, UINT icon) {
    EDITBALLOONTIP balloon = {};
    balloon.cbStruct = sizeof(balloon);
    balloon.pszTitle = title.c_str();
    balloon.pszText = text.c_str();
    balloon.ttiIcon = static_cast<INT>(icon);
    if (::SendMessageW(edit, EM_SHOWBALLOONTIP, 0, reinterpret_cast<LPARAM>(&balloon)) != FALSE) {
        return;
    }
    if (!::IsWindow(get_Tip())) {
        m_tips.Register(::GetParent(edit), edit);
    }
    m_tips.Show(edit, title, text, TTI_ERROR);
}

void CEditBalloon::Hide(HWND edit) {
    ::SendMessageW(edit, EM_HIDEBALLOONTIP, 0, 0);
    m_tips.Hide();
}

}  // namespace WTLControls::NumberEditors
