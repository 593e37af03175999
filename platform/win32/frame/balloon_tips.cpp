#include "platform/win32/frame/balloon_tips.h"

#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"

namespace frame {

namespace {

constexpr int widest_tip = 300;

TTTOOLINFOW tool_of(HWND child) {
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_TRACK | TTF_TRANSPARENT;
    tool.hwnd = ::GetParent(child);
    tool.uId = reinterpret_cast<UINT_PTR>(child);
    return tool;
}

}  // namespace

balloon_tips::~balloon_tips() {
    if (::IsWindow(m_hWnd)) {
        ::DestroyWindow(m_hWnd);
    }
}

bool balloon_tips::Register(HWND parent, HWND child) {
    // The tips' window may have ended with an earlier parent.
    if (!::IsWindow(m_hWnd)) {
        const common_controls_scope scope;
        m_hWnd = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                   WS_POPUP | TTS_BALLOON | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                   CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parent, nullptr,
                                   module_instance(), nullptr);
        ::SendMessageW(m_hWnd, TTM_SETMAXTIPWIDTH, 0, widest_tip);
    }
    TTTOOLINFOW tool = tool_of(child);
    wchar_t none[] = L"";
    tool.lpszText = none;
    return ::SendMessageW(m_hWnd, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)) != FALSE;
}

void balloon_tips::Show(HWND child, const CString& title, const CString& text, WPARAM icon) {
    if (m_shown != child) {
        Hide();
    }
    TTTOOLINFOW tool = tool_of(child);
    CString shown = text;
    tool.lpszText = shown.data();
    RECT at = {};
    ::GetWindowRect(child, &at);
    ::SendMessageW(m_hWnd, TTM_SETTITLEW, icon, reinterpret_cast<LPARAM>(title.c_str()));
    ::SendMessageW(m_hWnd, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    ::SendMessageW(m_hWnd, TTM_TRACKPOSITION, 0, MAKELPARAM((at.left + at.right) / 2, at.bottom));
    ::SendMessageW(m_hWnd, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
    m_shown = child;
}

void balloon_tips::Hide() {
    if (m_shown == nullptr) {
        return;
    }
    TTTOOLINFOW tool = tool_of(m_shown);
    ::SendMessageW(m_hWnd, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
    m_shown = nullptr;
}

}  // namespace frame
