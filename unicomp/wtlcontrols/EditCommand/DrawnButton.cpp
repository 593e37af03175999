#include "unicomp/wtlcontrols/EditCommand/DrawnButton.h"

#include <utility>

namespace WTLControls {

using drawn_button = CSimpleFuckingButtonThatCanDrawWithoutReflectFuckingNotifications;

namespace {

// By state; 3 is none. A pressed button, 4, shows the picture of one at rest on purpose: the press is
// seen as the hover picture going away. Nothing sets the state 2, whose picture the strip has all the same.
constexpr int no_image = -1;
constexpr int images_of_states[] = {0, 1, 2, no_image, 0};

}  // namespace

void drawn_button::Repaint() const {
    if (::IsWindow(m_hWnd) && ::IsWindowVisible(m_hWnd)) {
        ::RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN | RDW_ERASENOW);
    }
}

BOOL drawn_button::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                        DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    return frame::take(frame::guarded(BS_HERE, [&] { return _dispatch(uMsg, wParam, lParam); }), lResult);
}

frame::answer drawn_button::_dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    switch (uMsg) {
        case WM_ERASEBKGND:
            _paint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_PAINT:
            _on_paint();
            return 0;
        case WM_LBUTTONDOWN:
            _on_button_down();
            return 0;
        case WM_LBUTTONUP:
            _on_button_up(frame::point_of(lParam));
            return 0;
        case WM_MOUSEMOVE:
            _on_mouse_move(frame::point_of(lParam));
            return 0;
        case WM_MOUSELEAVE:
            _on_mouse_leave();
            return 0;
        case WM_CAPTURECHANGED:
        case WM_CANCELMODE:
        case WM_DESTROY:
            _give_up_press();
            return frame::declined;
        default:
            return frame::declined;
    }
}

void drawn_button::_on_paint() {
    PAINTSTRUCT painting = {};
    const HDC target = ::BeginPaint(m_hWnd, &painting);
    _paint(target);
    ::EndPaint(m_hWnd, &painting);
}

void drawn_button::_paint(HDC target) {
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    const HDC memory = ::CreateCompatibleDC(target);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(target, client.right, client.bottom);
    const HGDIOBJ old = ::SelectObject(memory, bitmap);
    if (!::IsRectEmpty(&client)) {
        ::FillRect(memory, &client,
                   ::GetSysColorBrush(::IsWindowEnabled(m_hWnd) ? COLOR_WINDOW : COLOR_BTNFACE));
    }
    ::ImageList_Draw(m_images, images_of_states[m_state], memory, 0, 0, ILD_NORMAL);
    ::BitBlt(target, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
    ::SelectObject(memory, old);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
}

bool drawn_button::_contains(POINT at) const {
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    return ::PtInRect(&client, at) != FALSE;
}

void drawn_button::_on_mouse_move(POINT at) {
    // While it is dragged off, the mouse is still told, but it is not over the button.
    if (m_tracking || (m_held && !_contains(at))) {
        return;
    }
    TRACKMOUSEEVENT request = {sizeof(request), TME_LEAVE, m_hWnd, 0};
    const BOOL bResult = ::TrackMouseEvent(&request);
    BS_ASSERT(bResult);
    m_tracking = bResult != FALSE;
    _set_state(hot);
}

void drawn_button::_on_mouse_leave() {
    if (m_tracking) {
        _set_state(at_rest);
    }
    m_tracking = false;
}

void drawn_button::_on_button_down() {
    m_given_up = false;
    m_held = true;
    ::SetCapture(m_hWnd);
    _set_state(pressed);
}

// True when the button had the mouse.
bool drawn_button::_give_mouse_back() {
    const bool held = std::exchange(m_held, false);
    if (held && ::GetCapture() == m_hWnd) {
        ::ReleaseCapture();
    }
    return held;
}

void drawn_button::_give_up_press() {
    if (_give_mouse_back()) {
        m_given_up = true;
        _set_state(at_rest);
    }
}

void drawn_button::_on_button_up(POINT at) {
    // Before anybody is told: a dialog that opens needs the mouse.
    _give_mouse_back();
    _set_state(_contains(at) ? hot : at_rest);
    if (std::exchange(m_given_up, false)) {
        return;
    }
    // A press counts wherever the mouse was released, on purpose: the place only picks the picture.
    const HWND parent = ::GetParent(m_hWnd);
    _tell_press();
    // Whoever was told may have run a dialog, and the button may be gone with its window.
    if (::IsWindow(parent)) {
        ::SetFocus(parent);
    }
}

void drawn_button::_tell_press() const {
    if (m_sink != nullptr) {
        m_sink->OnButtonPressed(0);
        return;
    }
    const auto id = static_cast<WORD>(::GetDlgCtrlID(m_hWnd));
    ::SendMessageW(::GetParent(m_hWnd), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                   reinterpret_cast<LPARAM>(m_hWnd));
}

void drawn_button::_set_state(state next) {
    m_state = next;
    Repaint();
}

}  // namespace WTLControls
