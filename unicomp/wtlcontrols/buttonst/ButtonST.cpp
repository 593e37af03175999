#include "unicomp/wtlcontrols/buttonst/ButtonST.h"

#include <olectl.h>
#include <shellapi.h>

#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"

namespace WTLControls {

namespace {

bool is_mouse_message(UINT uMsg) {
    return uMsg >= WM_MOUSEFIRST && uMsg <= WM_MOUSELAST;
}

constexpr std::size_t longest_text = 256;

// The text as the system keeps it, without a message to the window that paints.
CString text_of(HWND window) {
    CString text(longest_text, L'\0');
    text.resize(static_cast<std::size_t>(
        ::InternalGetWindowText(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace

CButtonST::~CButtonST() {
    _let_go();
}

bool CButtonST::SubclassWindow(HWND button) {
    if (!subclassed_window::SubclassWindow(button)) {
        return false;
    }
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(button, GWL_STYLE));
    m_state = (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON ? ButtonState::Default : 0;
    ::SetWindowLongPtrW(button, GWL_STYLE, static_cast<LONG_PTR>((style & ~BS_TYPEMASK) | BS_OWNERDRAW));
    m_split = _client().right;
    _open_theme();
    Repaint();
    return true;
}

void CButtonST::put_Flags(DWORD flags) {
    m_flags = flags;
    Repaint();
}

void CButtonST::put_Style(DWORD style, IButtonSTEventSink* sink) {
    m_style = style;
    m_sink = sink;
    Repaint();
}

void CButtonST::put_Split(LONG split) {
    m_split = split;
    Repaint();
}

void CButtonST::put_Colour(DWORD key, COLORREF colour) {
    const auto [at, fresh] = m_colours.try_emplace(key, colour);
    if (fresh || at->second != colour) {
        at->second = colour;
        Repaint();
    }
}

void CButtonST::put_Colours(COLORREF top, COLORREF bottom) {
    put_Colour(ButtonColour::Top, top);
    put_Colour(ButtonColour::Bottom, bottom);
}

void CButtonST::put_Images(HIMAGELIST images) {
    m_images = images;
    Repaint();
}

void CButtonST::put_Check(bool checked) {
    m_checked = checked;
    Repaint();
}

void CButtonST::put_Tooltip(const CString& text) {
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = m_hWnd;
    tool.rect = _client();
    tool.lpszText = const_cast<wchar_t*>(text.c_str());
    if (m_tooltip != nullptr) {
        ::SendMessageW(m_tooltip, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
        return;
    }
    const frame::common_controls_scope scope;
    m_tooltip = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0,
                                  0, m_hWnd, nullptr, frame::module_instance(), nullptr);
    ::SendMessageW(m_tooltip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

SButtonPicture CButtonST::get_Picture() const {
    return _picture((::SendMessageW(m_hWnd, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0, ::GetFocus() == m_hWnd);
}

SButtonPicture CButtonST::_picture(bool pressed, bool focused) const {
    SButtonPicture picture;
    picture.look.flags = m_flags;
    picture.look.state = m_state | (::IsWindowEnabled(m_hWnd) ? 0 : ButtonState::Disabled);
    picture.look.pressed = m_checked || pressed;
    picture.look.focused = focused;
    picture.look.themed = m_theme != nullptr;
    picture.client = _client();
    picture.theme = m_theme;
    picture.colours = m_colours;
    picture.text = text_of(m_hWnd);
    picture.font = reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0));
    if (picture.font == nullptr) {
        picture.font = static_cast<HFONT>(::GetStockObject(SYSTEM_FONT));
    }
    picture.images = m_images;
    picture.split = m_split;
    picture.drop_down = (m_style & ButtonStyle::DropDown) != 0;
    picture.show_focus = focused && (::SendMessageW(m_hWnd, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) == 0;
    return picture;
}

void CButtonST::Repaint() const {
    if (m_hWnd != nullptr) {
        ::InvalidateRect(m_hWnd, nullptr, FALSE);
    }
}

void CButtonST::OpenURL(const CString& url) {
    ::ShellExecuteW(m_hWnd, L"open", url.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

RECT CButtonST::_client() const {
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    return client;
}

void CButtonST::_draw(const DRAWITEMSTRUCT& item) {
    // The item tells what the window would have to be asked for, which costs as much as the drawing.
    m_renderer.DrawBackground(
        item.hDC, m_surface,
        _picture((item.itemState & ODS_SELECTED) != 0, (item.itemState & ODS_FOCUS) != 0));
}

// Past the button's own procedure, which paints at once: the text would be painted twice.
LRESULT CButtonST::_on_set_text(WPARAM wParam, LPARAM lParam) const {
    const LRESULT result = ::DefWindowProcW(m_hWnd, WM_SETTEXT, wParam, lParam);
    Repaint();
    return result;
}

void CButtonST::_on_reflected_click() {
    if ((m_flags & ButtonFlag::Check) != 0) {
        put_Check(!m_checked);
    } else if (!m_url.empty()) {
        OpenURL(m_url);
    }
}

frame::answer CButtonST::_on_reflected(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    switch (uMsg) {
        case OCM_DRAWITEM:
            _draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case OCM_CTLCOLORBTN:
            return reinterpret_cast<LRESULT>(::GetStockObject(NULL_BRUSH));
        case OCM_COMMAND:
            if (HIWORD(wParam) != BN_CLICKED) {
                return frame::declined;
            }
            _on_reflected_click();
            return 0;
        default:
            return frame::declined;
    }
}

void CButtonST::_open_theme() {
    m_theme = ::IsAppThemed() ? ::OpenThemeData(m_hWnd, L"BUTTON") : nullptr;
}

void CButtonST::_close_theme() {
    if (m_theme != nullptr) {
        ::CloseThemeData(m_theme);
        m_theme = nullptr;
    }
}

// Gives back all that belongs to the window.
void CButtonST::_let_go() {
    _close_theme();
    m_surface.Release();
    if (m_tooltip != nullptr) {
        ::DestroyWindow(m_tooltip);
        m_tooltip = nullptr;
    }
}

BOOL CButtonST::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                     DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    return frame::take(frame::guarded(BS_HERE, [&] { return _ProcessWindowMessage(uMsg, wParam, lParam); }),
                       lResult);
}

frame::answer CButtonST::_ProcessWindowMessage(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    if (is_mouse_message(uMsg)) {
        _relay(uMsg, wParam, lParam);
        return _on_mouse(uMsg, wParam, lParam);
    }
    switch (uMsg) {
        case WM_KILLFOCUS:
        case WM_CANCELMODE:
            return _after_losing_heat(uMsg, wParam, lParam);
        case WM_ACTIVATE:
            return LOWORD(wParam) == WA_INACTIVE ? frame::answer(_after_losing_heat(uMsg, wParam, lParam))
                                                 : frame::declined;
        case WM_ENABLE:
            return wParam == FALSE ? frame::answer(_after_losing_heat(uMsg, wParam, lParam))
                                   : frame::declined;
        case WM_CAPTURECHANGED:
            if (IsHot()) {
                _cool();
            }
            return frame::declined;
        case WM_SETCURSOR:
            if (m_cursor == nullptr) {
                return frame::declined;
            }
            ::SetCursor(m_cursor);
            return 1;
        case WM_ERASEBKGND:
            // Every pixel is drawn by the paint; erasing first would flicker.
            return 1;
        case WM_SETTEXT:
            return _on_set_text(wParam, lParam);
        case BM_SETSTYLE:
            m_state = (wParam & BS_TYPEMASK) == BS_DEFPUSHBUTTON ? m_state | ButtonState::Default
                                                                 : m_state & ~ButtonState::Default;
            return DefWindowProc(uMsg, (wParam & ~WPARAM{BS_TYPEMASK}) | BS_OWNERDRAW, lParam);
        case WM_THEMECHANGED:
            _close_theme();
            _open_theme();
            Repaint();
            return frame::declined;
        case WM_NCDESTROY:
            _let_go();
            return frame::declined;
        default: {
            const frame::answer key = _on_key(uMsg, wParam, lParam);
            return key ? key : _on_reflected(uMsg, wParam, lParam);
        }
    }
}

}  // namespace WTLControls
