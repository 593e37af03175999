#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberEditCtrl.h"

#include <windows.h>

#include <commctrl.h>
#include <olectl.h>

#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"
#include "platform/win32/frame/resolution.h"
#include "platform/win32/frame/window_text.h"

namespace WTLControls::NumberEditors {

namespace {

constexpr UINT_PTR caret_timer = 125;
constexpr UINT caret_delay_ms = 100;
constexpr UINT tell_host = WM_USER + 1;
// A message that the system registers for its own use.
constexpr UINT registered_message = 49750;
// The caret blinks.
constexpr UINT system_timer = 0x118;
constexpr UINT repaint = RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW;
constexpr int margin = 2;

}  // namespace

bool CNumberEditCtrl::SubclassWindow(HWND hWnd) {
    if (!subclassed_window::SubclassWindow(hWnd)) {
        return false;
    }
    Init();
    return true;
}

void CNumberEditCtrl::Init() {
    BS_ASSERT(::IsWindow(m_hWnd));
    const int size = frame::scaled_metric(m_hWnd, SM_CXHSCROLL);
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    const LONG width = client.right - client.left;
    const LONG top = (client.bottom - client.top - size) / 2 + client.top;
    // Deliberately no "left + size" on the right: wheel and arrow keys spin, and the edit keeps its room.
    const RECT place = {width - size, top, size, top + size};
    const frame::common_controls_scope scope;
    m_spin = ::CreateWindowExW(0, UPDOWN_CLASSW, L"", WS_CHILD | WS_VISIBLE, place.left, place.top,
                               place.right - place.left, place.bottom - place.top, m_hWnd,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(editor_child_id)),
                               frame::module_instance(), nullptr);
    _widen_spin(size);
    ::SendMessageW(m_hWnd, EM_SETMARGINS, EC_RIGHTMARGIN, MAKELPARAM(0, size + margin));
    AddStyle(WS_CLIPCHILDREN | (m_digits_only ? ES_NUMBER : 0));
}

// Out of such a place the system makes a spin of a width of its own, which is that of 96 to the inch.
void CNumberEditCtrl::_widen_spin(int size) const {
    RECT made = {};
    if (frame::resolution_of(m_hWnd) > USER_DEFAULT_SCREEN_DPI && ::GetWindowRect(m_spin, &made) &&
        made.right > made.left && made.right - made.left < size) {
        ::SetWindowPos(m_spin, nullptr, 0, 0, size, static_cast<int>(made.bottom - made.top),
                       SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

// Without a window the system would draw all of the screen anew.
void CNumberEditCtrl::Invalidate(HWND child) {
    if (child != nullptr) {
        ::InvalidateRect(child, nullptr, TRUE);
    }
}

void CNumberEditCtrl::AddStyle(LONG_PTR style) const {
    ::SetWindowLongPtrW(m_hWnd, GWL_STYLE, ::GetWindowLongPtrW(m_hWnd, GWL_STYLE) | style);
}

void CNumberEditCtrl::SetParams(double step, double min, double max, EEditType type) {
    m_editor.SetParams(step, min, max, type);
}

bool CNumberEditCtrl::DrawsOverChildren(UINT uMsg) {
    return uMsg == registered_message || uMsg == OCM_CTLCOLOREDIT || uMsg == system_timer ||
           uMsg == OCM_COMMAND;
}

BOOL CNumberEditCtrl::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                           DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    return frame::take(frame::guarded(BS_HERE, [&] { return _dispatch(uMsg, wParam, lParam); }), lResult);
}

frame::answer CNumberEditCtrl::_dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    switch (uMsg) {
        case WM_MOUSEWHEEL:
            m_editor.Spin(GET_WHEEL_DELTA_WPARAM(wParam), GetStepMultiplier(), false);
            return 0;
        case WM_KEYDOWN:
            _on_key(wParam);
            return frame::declined;
        case tell_host:
            m_editor.TellHost();
            return 0;
        case WM_ERASEBKGND:
            DefWindowProc(uMsg, wParam, lParam);
            Invalidate(m_spin);
            return 1;
        case WM_TIMER:
            if (wParam != caret_timer) {
                // Deliberately: the edit has timers of its own.
                return frame::declined;
            }
            ::KillTimer(m_hWnd, caret_timer);
            m_editor.OnCaretTimer();
            return 0;
        case WM_NOTIFY:
            return _on_spin(*reinterpret_cast<const NMHDR*>(lParam));
        case OCM_COMMAND:
            return _on_notice(wParam, lParam);
        default:
            return _on_default(uMsg, wParam, lParam);
    }
}

// An arrow key goes on to the edit, where it moves the caret back.
void CNumberEditCtrl::_on_key(WPARAM key) {
    if (key == VK_UP) {
        m_editor.Spin(1, GetStepMultiplier(), true);
    } else if (key == VK_DOWN) {
        m_editor.Spin(-1, GetStepMultiplier(), true);
    }
}

frame::answer CNumberEditCtrl::_on_spin(const NMHDR& notice) {
    if (notice.idFrom != editor_child_id || notice.code != UDN_DELTAPOS) {
        return frame::declined;
    }
    m_editor.Spin(-reinterpret_cast<const NMUPDOWN&>(notice).iDelta, GetStepMultiplier(), false);
    return 0;
}

frame::answer CNumberEditCtrl::_on_notice(WPARAM wParam, LPARAM lParam) {
    if (reinterpret_cast<HWND>(lParam) == m_hWnd) {
        switch (HIWORD(wParam)) {
            case EN_UPDATE:
                m_editor.OnUpdate();
                break;
            case EN_SETFOCUS:
                m_editor.OnSetFocus();
                break;
            case EN_KILLFOCUS:
                m_editor.OnKillFocus();
                break;
            default:
                break;
        }
    }
    return _on_default(OCM_COMMAND, wParam, lParam);
}

// The spin sits inside the edit, which draws itself at these messages.
frame::answer CNumberEditCtrl::_on_default(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    if (!DrawsOverChildren(uMsg)) {
        return frame::declined;
    }
    const LRESULT result = DefWindowProc(uMsg, wParam, lParam);
    if (m_spin != nullptr) {
        ::RedrawWindow(m_spin, nullptr, nullptr, repaint);
    }
    return result;
}

CString CNumberEditCtrl::get_Text() const {
    return frame::window_text(m_hWnd);
}

void CNumberEditCtrl::get_Selection(LONG& from, LONG& to) const {
    DWORD first = 0;
    DWORD last = 0;
    ::SendMessageW(m_hWnd, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    from = static_cast<LONG>(first);
    to = static_cast<LONG>(last);
}

void CNumberEditCtrl::put_Selection(LONG from, LONG to) {
    ::SendMessageW(m_hWnd, EM_SETSEL, static_cast<WPARAM>(from), to);
}

void CNumberEditCtrl::MoveCaretToEnd() {
    put_Selection(0, -1);
    put_Selection(-1, 0);
}

void CNumberEditCtrl::StartCaretTimer() {
    ::SetTimer(m_hWnd, caret_timer, caret_delay_ms, nullptr);
}

void CNumberEditCtrl::ShowBox(const CString& title, const CString& text, UINT icon) {
    ::MessageBoxW(::GetParent(m_hWnd), text.c_str(), title.c_str(), icon);
}

void CNumberEditCtrl::ShowBalloon(const CString& title, const CString& text, UINT icon) {
    m_balloon.Show(m_hWnd, title, text, icon);
}

}  // namespace WTLControls::NumberEditors
