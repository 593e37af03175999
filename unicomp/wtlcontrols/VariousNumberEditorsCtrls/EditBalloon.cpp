#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/EditBalloon.h"

#include <commctrl.h>

#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"

namespace WTLControls::NumberEditors {

namespace {

constexpr int widest_tip = 300;

TTTOOLINFOW tool_of(HWND edit) {
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_TRACK | TTF_TRANSPARENT;
    tool.hwnd = ::GetParent(edit);
    tool.uId = reinterpret_cast<UINT_PTR>(edit);
    return tool;
}

HWND make_tip(HWND edit) {
    const frame::common_controls_scope scope;
    const HWND tip = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                       WS_POPUP | TTS_BALLOON | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                       CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, ::GetParent(edit),
                                       nullptr, frame::module_instance(), nullptr);
    ::SendMessageW(tip, TTM_SETMAXTIPWIDTH, 0, widest_tip);
    TTTOOLINFOW tool = tool_of(edit);
    wchar_t none[] = L"";
    tool.lpszText = none;
    ::SendMessageW(tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    return tip;
}

}  // namespace

void CEditBalloon::Show(HWND edit, const CString& title, const CString& text, UINT icon) {
    EDITBALLOONTIP balloon = {};
    balloon.cbStruct = sizeof(balloon);
    balloon.pszTitle = title.c_str();
    balloon.pszText = text.c_str();
    balloon.ttiIcon = static_cast<INT>(icon);
    if (::SendMessageW(edit, EM_SHOWBALLOONTIP, 0, reinterpret_cast<LPARAM>(&balloon)) == FALSE) {
        _show_tip(edit, title, text);
    }
}

void CEditBalloon::_show_tip(HWND edit, const CString& title, const CString& text) {
    if (!::IsWindow(m_tip)) {
        m_tip = make_tip(edit);
    }
    TTTOOLINFOW tool = tool_of(edit);
    CString shown = text;
    tool.lpszText = shown.data();
    RECT at = {};
    ::GetWindowRect(edit, &at);
    ::SendMessageW(m_tip, TTM_SETTITLEW, TTI_ERROR, reinterpret_cast<LPARAM>(title.c_str()));
    ::SendMessageW(m_tip, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    ::SendMessageW(m_tip, TTM_TRACKPOSITION, 0, MAKELPARAM((at.left + at.right) / 2, at.bottom));
    ::SendMessageW(m_tip, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
}

void CEditBalloon::Hide(HWND edit) {
    ::SendMessageW(edit, EM_HIDEBALLOONTIP, 0, 0);
    if (::IsWindow(m_tip)) {
        TTTOOLINFOW tool = tool_of(edit);
        ::SendMessageW(m_tip, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
    }
}

}  // namespace WTLControls::NumberEditors
