#include "charting/orderdeck/src/window/FieldTips.h"

#include <windows.h>

#include <commctrl.h>

#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"

namespace OV_OrderDeck {

namespace {

constexpr int widest_tip = 300;

TTTOOLINFOW tool_of(HWND field) {
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_TRACK | TTF_TRANSPARENT;
    tool.hwnd = ::GetParent(field);
    tool.uId = reinterpret_cast<UINT_PTR>(field);
    return tool;
}

}  // namespace

bool CFieldTips::Register(HWND panel, HWND field) {
    if (m_hWnd == nullptr) {
        const frame::common_controls_scope scope;
        m_hWnd = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                   WS_POPUP | TTS_BALLOON | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                   CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, panel, nullptr,
                                   frame::module_instance(), nullptr);
        ::SendMessageW(m_hWnd, TTM_SETMAXTIPWIDTH, 0, widest_tip);
    }
    TTTOOLINFOW tool = tool_of(field);
    wchar_t none[] = L"";
    tool.lpszText = none;
    return ::SendMessageW(m_hWnd, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)) != FALSE;
}

void CFieldTips::Show(HWND field, const CString& title, const CString& text) {
    if (m_shown != field) {
        Hide();
    }
    TTTOOLINFOW tool = tool_of(field);
    CString shown = text;
    tool.lpszText = shown.data();
    RECT at = {};
    ::GetWindowRect(field, &at);
    ::SendMessageW(m_hWnd, TTM_SETTITLEW, TTI_WARNING, reinterpret_cast<LPARAM>(title.c_str()));
    ::SendMessageW(m_hWnd, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    ::SendMessageW(m_hWnd, TTM_TRACKPOSITION, 0, MAKELPARAM((at.left + at.right) / 2, at.bottom));
    ::SendMessageW(m_hWnd, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
    m_shown = field;
}

void CFieldTips::Hide() {
    if (m_shown == nullptr) {
        return;
    }
    TTTOOLINFOW tool = tool_of(m_shown);
    ::SendMessageW(m_hWnd, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
    m_shown = nullptr;
}

}  // namespace OV_OrderDeck
