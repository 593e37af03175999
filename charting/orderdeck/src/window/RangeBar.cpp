#include "charting/orderdeck/src/window/RangeBar.h"

#include "charting/orderdeck/src/window/AskBidButtonImpl.h"
#include "charting/orderdeck/src/window/RangeImages.h"
#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/message_scope.h"
#include "platform/win32/frame/module_instance.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr int up_id = 10001;
constexpr int down_id = 10002;
constexpr UINT quotes_title = 140;
const wchar_t alphabet[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

HFONT bar_font() {
    return static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
}

// Deliberately without the task bar's part: nothing of the ladder is to lie behind it.
RECT room_of(HMONITOR monitor) {
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    ::GetMonitorInfoW(monitor, &info);
    return info.rcWork;
}

HMONITOR monitor_under_cursor() {
    POINT cursor = {};
    ::GetCursorPos(&cursor);
    return ::MonitorFromPoint(cursor, MONITOR_DEFAULTTONEAREST);
}

HWND make_arrow(HWND parent, int id, const wchar_t* name) {
    const frame::common_controls_scope scope;
    return ::CreateWindowExW(0, L"BUTTON", name, WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, 0, 0, 0, 0, parent,
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), frame::module_instance(),
                             nullptr);
}

}  // namespace

BOOL CRangeArrow::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                       DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    return frame::take(frame::guarded(BS_HERE, [&] { return _dispatch(uMsg, wParam, lParam); }), lResult);
}

frame::answer CRangeArrow::_dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    switch (uMsg) {
        case WM_MOUSEMOVE: {
            TRACKMOUSEEVENT request = {sizeof(request), TME_LEAVE, m_hWnd, 0};
            ::TrackMouseEvent(&request);
            _set_hot(true);
            return frame::declined;
        }
        case WM_MOUSELEAVE:
            _set_hot(false);
            return frame::declined;
        case WM_LBUTTONDBLCLK:
            // The second of two fast presses scrolls as well.
            return DefWindowProc(WM_LBUTTONDOWN, wParam, lParam);
        case WM_ERASEBKGND:
            return 1;
        default:
            return frame::declined;
    }
}

void CRangeArrow::_set_hot(bool hot) {
    if (m_hot != hot) {
        m_hot = hot;
        ::InvalidateRect(m_hWnd, nullptr, FALSE);
    }
}

platform::window_class RangeBar::s_class(L"OrderDeckRangeBar", &RangeBar::procedure);

RangeBar::RangeBar(AskBidButtonImpl& owner, const CAskBidPrices& market)
    : m_owner(&owner), m_ladder(market) {}

RangeBar::~RangeBar() {
    Destroy();
}

bool RangeBar::Create(HWND button) {
    s_class.Register();
    const CString title = resource_string::text(quotes_title);
    ::CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, s_class.name(), title.c_str(),
                      WS_POPUP | WS_DISABLED | WS_CLIPCHILDREN, 0, 0, 0, 0, ::GetAncestor(button, GA_ROOT),
                      nullptr, frame::module_instance(), this);
    return m_hWnd != nullptr;
}

void RangeBar::Destroy() {
    if (m_hWnd != nullptr) {
        ::DestroyWindow(m_hWnd);
    }
    _destroy_images();
}

void RangeBar::_destroy_images() {
    if (m_images != nullptr) {
        ::ImageList_Destroy(m_images);
        m_images = nullptr;
    }
}

LRESULT CALLBACK RangeBar::procedure(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam) {
    const frame::message_scope scope;
    if (uMsg == WM_NCCREATE) {
        auto* const made =
            static_cast<RangeBar*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        made->m_hWnd = hWnd;
        ::SetWindowLongPtrW(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* const self = reinterpret_cast<RangeBar*>(::GetWindowLongPtrW(hWnd, GWLP_USERDATA));
    LRESULT result = 0;
    if (self != nullptr && self->ProcessWindowMessage(hWnd, uMsg, wParam, lParam, result, 0)) {
        return result;
    }
    if (self != nullptr && uMsg == WM_NCDESTROY) {
        self->m_hWnd = nullptr;
        ::SetWindowLongPtrW(hWnd, GWLP_USERDATA, 0);
    }
    return ::DefWindowProcW(hWnd, uMsg, wParam, lParam);
}

BOOL RangeBar::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                    DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    return frame::take(frame::guarded(BS_HERE, [&] { return _dispatch(uMsg, wParam, lParam); }), lResult);
}

frame::answer RangeBar::_dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    switch (uMsg) {
        case WM_CREATE:
            return _on_create();
        case WM_DESTROY:
            _destroy_images();
            return frame::declined;
        case WM_PAINT:
            _on_paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_ACTIVATE:
            return _on_activate(wParam, lParam);
        case WM_ACTIVATEAPP:
            if (wParam == FALSE && IsVisible()) {
                _focus_owner();
                Hide();
            }
            return frame::declined;
        case WM_MOUSEACTIVATE:
            return MA_NOACTIVATE;
        case WM_LBUTTONDOWN:
            if ((wParam & MK_LBUTTON) != 0) {
                Select(m_ladder.HitTest(frame::point_of(lParam).y));
            }
            return 0;
        case WM_COMMAND:
            return _on_command(LOWORD(wParam));
        case WM_DRAWITEM:
            return _on_draw_item(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        case WM_MOUSEWHEEL:
            if (m_ladder.Wheel(GET_WHEEL_DELTA_WPARAM(wParam))) {
                Recalculate();
            }
            return 0;
        case WM_MOUSEMOVE:
            return _on_mouse_move(frame::point_of(lParam));
        case WM_MOUSELEAVE:
            m_tracking = false;
            _set_hot_row(-1);
            return 0;
        case WM_KEYDOWN:
            Key(static_cast<int>(wParam));
            return 0;
        case WM_THEMECHANGED:
            _build_images();
            ::InvalidateRect(m_hWnd, nullptr, FALSE);
            return 0;
        case WM_KILLFOCUS:
            return 0;
        default:
            return frame::declined;
    }
}

LRESULT RangeBar::_on_create() {
    m_up.SubclassWindow(make_arrow(m_hWnd, up_id, L"\u25B2"));
    m_down.SubclassWindow(make_arrow(m_hWnd, down_id, L"\u25BC"));
    _measure_font();
    _build_images();
    _resize();
    return 0;
}

void RangeBar::_measure_font() {
    const HDC dc = ::GetDC(m_hWnd);
    const HGDIOBJ old = ::SelectObject(dc, bar_font());
    SIZE size = {};
    ::GetTextExtentPoint32W(dc, alphabet, static_cast<int>(std::size(alphabet)) - 1, &size);
    TEXTMETRICW metrics = {};
    ::GetTextMetricsW(dc, &metrics);
    ::SelectObject(dc, old);
    ::ReleaseDC(m_hWnd, dc);
    m_ladder.SetFont(static_cast<int>(size.cx), static_cast<int>(metrics.tmHeight));
}

void RangeBar::_build_images() {
    _destroy_images();
    m_images = make_range_images(m_hWnd, m_ladder.get_Width(), m_ladder.get_ButtonHeight());
}

void RangeBar::_resize() {
    const auto width = static_cast<int>(m_ladder.get_Width());
    const auto height = static_cast<int>(m_ladder.get_Height());
    const auto button = static_cast<int>(m_ladder.get_ButtonHeight());
    ::SetWindowPos(m_hWnd, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    ::MoveWindow(m_up.get_Hwnd(), 0, 0, width, button, TRUE);
    ::MoveWindow(m_down.get_Hwnd(), 0, height - button, width, button, TRUE);
}

void RangeBar::Show() {
    ::ShowWindow(m_hWnd, SW_SHOWNA);
    ::EnableWindow(m_hWnd, TRUE);
}

void RangeBar::Hide() {
    ::ShowWindow(m_hWnd, SW_HIDE);
    ::EnableWindow(m_hWnd, FALSE);
}

bool RangeBar::_has_focus() const {
    const HWND focus = ::GetFocus();
    return focus != nullptr && (focus == m_hWnd || ::IsChild(m_hWnd, focus));
}

void RangeBar::Close() {
    if (!IsVisible()) {
        return;
    }
    const bool had_focus = _has_focus();
    Hide();
    if (had_focus) {
        _focus_owner();
    }
}

// A host may have put its bar under another window since.
void RangeBar::_follow_root(HWND button) {
    const HWND root = ::GetAncestor(button, GA_ROOT);
    if (::GetWindow(m_hWnd, GW_OWNER) != root) {
        ::SetWindowLongPtrW(m_hWnd, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(root));
    }
}

void RangeBar::Place(HWND button, bool by_key) {
    _follow_root(button);
    RECT from = {};
    ::GetWindowRect(button, &from);
    const HMONITOR monitor =
        by_key ? ::MonitorFromWindow(button, MONITOR_DEFAULTTONEAREST) : monitor_under_cursor();
    const RECT at = m_ladder.get_Placement(from, room_of(monitor));
    ::SetWindowPos(m_hWnd, HWND_TOPMOST, at.left, at.top, at.right - at.left, at.bottom - at.top,
                   SWP_NOACTIVATE);
    m_ladder.Open();
    _redraw();
}

void RangeBar::Recalculate() {
    m_ladder.Recalculate();
    _redraw();
}

void RangeBar::_redraw() const {
    if (m_hWnd != nullptr) {
        ::InvalidateRect(m_hWnd, nullptr, FALSE);
    }
}

void RangeBar::Refresh() {
    if (m_ladder.Widen() && m_hWnd != nullptr) {
        _build_images();
        _resize();
    }
    m_ladder.Follow();
    _redraw();
    // A host that hides its bar tells the button nothing.
    if (IsVisible() && !::IsWindowVisible(m_owner->get_Hwnd())) {
        Close();
    }
}

void RangeBar::ResetWidth() {
    if (m_ladder.ResetWidth() && m_hWnd != nullptr) {
        _build_images();
        _resize();
    }
}

void RangeBar::_focus_owner() {
    const HWND button = m_owner->get_Hwnd();
    if (::IsWindowEnabled(button)) {
        ::SendMessageW(::GetParent(button), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(button), TRUE);
    } else {
        ::SetFocus(::GetParent(button));
    }
}

void RangeBar::Select(LONG row) {
    const double price = m_ladder.get_Price(row);
    if (m_ladder.IsFresh(row)) {
        return;
    }
    m_ladder.Pick(row);
    m_owner->OnRangeSelect(m_ladder.get_Pick(), price);
    Hide();
    _focus_owner();
}

bool RangeBar::Key(int code) {
    switch (m_ladder.Key(code)) {
        case CRangeLadder::action::hide:
            Hide();
            _focus_owner();
            return true;
        case CRangeLadder::action::moved:
            Recalculate();
            return true;
        case CRangeLadder::action::none:
            break;
    }
    return false;
}

LRESULT RangeBar::_on_activate(WPARAM wParam, LPARAM lParam) {
    if (LOWORD(wParam) == WA_INACTIVE && IsVisible() && m_hide_on_deactivate) {
        Hide();
    }
    return ::DefWindowProcW(m_hWnd, WM_ACTIVATE, wParam, lParam);
}

frame::answer RangeBar::_on_command(int id) {
    if (id != up_id && id != down_id) {
        return frame::declined;
    }
    m_ladder.Scroll(id == up_id ? 1 : -1);
    Recalculate();
    // The small button took the focus; the bar's keys go on working.
    ::SetFocus(m_hWnd);
    return 0;
}

frame::answer RangeBar::_on_mouse_move(POINT at) {
    if (!m_tracking) {
        TRACKMOUSEEVENT request = {sizeof(request), TME_LEAVE, m_hWnd, 0};
        m_tracking = ::TrackMouseEvent(&request) != FALSE;
        ::SetFocus(m_hWnd);
    }
    _set_hot_row(m_ladder.HitTest(at.y));
    return 0;
}

void RangeBar::_set_hot_row(LONG row) {
    if (m_ladder.put_HotRow(row)) {
        ::InvalidateRect(m_hWnd, nullptr, FALSE);
    }
}

}  // namespace OV_OrderDeck
