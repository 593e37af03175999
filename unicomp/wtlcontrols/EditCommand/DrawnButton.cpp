#include "unicomp/wtlcontrols/EditCommand/DrawnButton.h"

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
            _set_state(pressed);
            return 0;
        case WM_LBUTTONUP:
            _on_button_up(frame::point_of(lParam));
            return 0;
        case WM_MOUSEMOVE:
            _on_mouse_move();
            return 0;
        case WM_MOUSELEAVE:
            _on_mouse_leave();
            return 0;
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

void drawn_button::_on_mouse_move() {
    if (m_tracking) {
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

void drawn_button::_on_button_up(POINT at) {
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    _set_state(::PtInRect(&client, at) ? hot : at_rest);
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
