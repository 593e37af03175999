// Mouse and keys on a drawn button.
#include "unicomp/wtlcontrols/buttonst/ButtonST.h"

namespace WTLControls {

namespace {

WPARAM click_of(HWND window) {
    return MAKEWPARAM(::GetDlgCtrlID(window), BN_CLICKED);
}

}  // namespace

void CButtonST::_cool() {
    m_state &= ~ButtonState::Hot;
    Repaint();
}

void CButtonST::_relay(UINT uMsg, WPARAM wParam, LPARAM lParam) const {
    if (m_tooltip != nullptr) {
        MSG message = {};
        message.hwnd = m_hWnd;
        message.message = uMsg;
        message.wParam = wParam;
        message.lParam = lParam;
        ::SendMessageW(m_tooltip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
    }
}

// By the mouse, or by the space key.
bool CButtonST::_is_held(WPARAM keys) const {
    return (keys & MK_LBUTTON) != 0 || (::SendMessageW(m_hWnd, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
}

void CButtonST::_give_mouse_back() const {
    if (m_hWnd != nullptr && ::GetCapture() == m_hWnd) {
        ::ReleaseCapture();
    }
}

void CButtonST::_on_mouse_move(WPARAM keys, POINT at) {
    if (contains(_client(), at)) {
        if (!IsHot() && ::IsChild(::GetActiveWindow(), m_hWnd)) {
            m_state |= ButtonState::Hot;
            ::SetCapture(m_hWnd);
            Repaint();
        }
        return;
    }
    if (IsHot()) {
        _cool();
    }
    // A button that is held goes on watching for its release.
    if (!_is_held(keys)) {
        _give_mouse_back();
    }
}

void CButtonST::_tell_press(bool by_key) const {
    if (m_press_sink != nullptr && ::IsWindowEnabled(m_hWnd)) {
        m_press_sink->OnPressBegins(m_hWnd, by_key);
    }
}

void CButtonST::_tell_release(bool inside) const {
    if (m_press_sink != nullptr) {
        const bool pushed = (::SendMessageW(m_hWnd, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
        m_press_sink->OnPressEnds(m_hWnd, pushed && inside);
    }
}

frame::answer CButtonST::_on_second_down(WPARAM keys, LPARAM at) {
    if (!m_one_press) {
        // An owner-drawn button would take the second of two fast presses for something else.
        return _on_button_down(keys, at);
    }
    m_double_click = ::GetMessageTime();
    return frame::declined;
}

// The third of fast clicks comes as if it were a first one.
bool CButtonST::_follows_double_click() const {
    // The clock of messages wraps.
    return m_double_click && static_cast<DWORD>(::GetMessageTime()) - static_cast<DWORD>(*m_double_click) <=
                                 ::GetDoubleClickTime();
}

LRESULT CButtonST::_on_button_down(WPARAM keys, LPARAM at) {
    // Before the focus moves: what it leaves may change the row.
    _tell_press(false);
    ::SendMessageW(::GetParent(m_hWnd), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(m_hWnd), TRUE);
    const LRESULT result = DefWindowProc(WM_LBUTTONDOWN, keys, at);
    if ((m_flags & ButtonFlag::AutoRepeat) != 0) {
        _repeat_until_released();
    }
    if (_has_sink()) {
        _tell_sink(frame::point_of(at));
    }
    return result;
}

void CButtonST::_repeat_until_released() {
    const HWND parent = ::GetParent(m_hWnd);
    const auto click = [&] {
        ::SendMessageW(parent, WM_COMMAND, click_of(m_hWnd), reinterpret_cast<LPARAM>(m_hWnd));
    };
    ::SetCapture(m_hWnd);
    bool even = true;
    MSG release = {};
    while (!::PeekMessageW(&release, m_hWnd, WM_LBUTTONUP, WM_LBUTTONUP, PM_REMOVE)) {
        click();
        ::Sleep(m_repeat_delay);
        even = !even;
    }
    // Owners count on an even number of repeats.
    if (!even) {
        click();
    }
    ::ReleaseCapture();
    ::SendMessageW(m_hWnd, WM_LBUTTONUP, 0, 0);
    POINT at = {};
    ::GetCursorPos(&at);
    ::ScreenToClient(m_hWnd, &at);
    ::SendMessageW(m_hWnd, WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y));
}

// The place of the press counts, so that a press which a program sends works wherever the mouse is.
void CButtonST::_tell_sink(POINT at) {
    const RECT client = _client();
    if (is_drop_down_part(client, m_split, at)) {
        m_told = true;
        m_sink->OnDropDownClick();
    } else if (contains(client, at)) {
        m_told = true;
        m_sink->OnButtonClick();
    }
}

frame::answer CButtonST::_on_button_up() {
    if (!m_told) {
        return frame::declined;
    }
    m_told = false;
    // Losing the mouse ends the press without the click that a release would be.
    ::ReleaseCapture();
    ::SendMessageW(m_hWnd, BM_SETSTATE, FALSE, 0);
    return 0;
}

frame::answer CButtonST::_on_mouse(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    switch (uMsg) {
        case WM_MOUSEMOVE:
            _on_mouse_move(wParam, frame::point_of(lParam));
            return frame::declined;
        case WM_LBUTTONDOWN:
            return _follows_double_click() ? 0 : _on_button_down(wParam, lParam);
        case WM_LBUTTONDBLCLK:
            return _on_second_down(wParam, lParam);
        case WM_LBUTTONUP:
            _tell_release(contains(_client(), frame::point_of(lParam)));
            return _on_button_up();
        default:
            return frame::declined;
    }
}

frame::answer CButtonST::_on_released_key() {
    ::ReleaseCapture();
    ::SendMessageW(m_hWnd, BM_SETSTATE, FALSE, 0);
    m_sink->OnButtonClick();
    return 0;
}

bool CButtonST::is_drop_down_key(UINT uMsg, WPARAM key) {
    return (uMsg == WM_KEYDOWN && key == VK_F4) || (uMsg == WM_SYSKEYDOWN && key == VK_DOWN);
}

// A button with two parts has keys for both: space and Enter for the first, F4 and Alt with the down
// arrow for the drop-down.
frame::answer CButtonST::_on_key(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    if (uMsg == WM_KEYDOWN && wParam == VK_SPACE && !is_held_key(lParam)) {
        _tell_press(true);
    }
    if (uMsg == WM_KEYUP && wParam == VK_SPACE) {
        _tell_release(true);
    }
    if (!_has_sink()) {
        return frame::declined;
    }
    if (is_drop_down_key(uMsg, wParam)) {
        m_sink->OnDropDownClick();
        return 0;
    }
    if (uMsg == WM_KEYDOWN && wParam == VK_RETURN) {
        m_sink->OnButtonClick();
        return 0;
    }
    if (uMsg == WM_KEYUP && wParam == VK_SPACE &&
        (::SendMessageW(m_hWnd, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0) {
        return _on_released_key();
    }
    const auto* const message = reinterpret_cast<const MSG*>(lParam);
    if (uMsg == WM_GETDLGCODE && message != nullptr && message->wParam == VK_RETURN) {
        return DLGC_WANTALLKEYS;
    }
    return frame::declined;
}

LRESULT CButtonST::_after_losing_heat(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = DefWindowProc(uMsg, wParam, lParam);
    if ((m_flags & ButtonFlag::HotTracking) != 0) {
        if (IsHot()) {
            _cool();
        }
        _give_mouse_back();
    }
    return result;
}

}  // namespace WTLControls
