#include "charting/orderdeck/src/window/AskBidButtonImpl.h"

#include <algorithm>

#include "charting/orderdeck/src/window/PanelItems.h"
#include "charting/orderdeck/src/window/WindowText.h"
#include "platform/win32/frame/resolution.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT quotes_title = 140;
constexpr int text_margin = 4;
// At 96 to the inch.
constexpr int widest_drop_down = 15;
// The row that the keys take: it stays in the middle while the ladder moves past it.
constexpr LONG middle_row = 3;

LONG client_width(HWND window) {
    RECT client = {};
    ::GetClientRect(window, &client);
    return client.right;
}

}  // namespace

AskBidButtonImpl::AskBidButtonImpl() {
    put_Style(WTLControls::ButtonStyle::DropDown, this);
    _update_face();
}

bool AskBidButtonImpl::SubclassWindow(HWND button) {
    if (!CButtonST::SubclassWindow(button)) {
        return false;
    }
    // Here and not at WM_CREATE, which a window that exists already does not get.
    m_name.Attach(button, resource_string::text(quotes_title));
    _place_split();
    return m_range_bar.Create(button);
}

void AskBidButtonImpl::put_Symbol(LONG tab, const CString& name) {
    if (tab != m_tab || name != m_symbol) {
        CloseLadder();
    }
    m_tab = tab;
    m_symbol = name;
}

void AskBidButtonImpl::SetFormat(LONG code, LONG minMove) {
    if (m_prices.SetFormat(code, minMove)) {
        CloseLadder();
    }
    m_range_bar.ResetWidth();
}

void AskBidButtonImpl::_update_face() {
    const COLORREF face = m_prices.get_Face().value_or(::GetSysColor(COLOR_BTNFACE));
    put_Colours(face, face);
}

void AskBidButtonImpl::Redraw() {
    _update_face();
    UpdateText();
}

void AskBidButtonImpl::UpdateText() {
    if (!m_prices.IsDirty()) {
        return;
    }
    m_prices.ClearBadQuotes();
    m_range_bar.Refresh();
    if (IsIdle()) {
        // Before the text is taken: the button's notice of this asks for a new one.
        ::EnableWindow(m_hWnd, FALSE);
    }
    const CString caption = m_prices.TakeCaption(::IsWindowEnabled(m_hWnd) != FALSE);
    if (caption != window_text(m_hWnd)) {
        const LONG room = client_width(m_hWnd) - widest_drop_down - 2 * text_margin;
        m_font.Fit(m_hWnd, caption, static_cast<int>(room));
        ::SetWindowTextW(m_hWnd, caption.c_str());
        m_name.put_Name(_spoken(caption));
        Repaint();
    }
}

// For those who do not see the button: what the number on it is.
CString AskBidButtonImpl::_spoken(const CString& shown) {
    const CString title = resource_string::text(quotes_title);
    return shown == title + L' ' ? title : title + L' ' + shown;
}

void AskBidButtonImpl::_post_command() const {
    ::PostMessageW(::GetParent(m_hWnd), WM_COMMAND, MAKEWPARAM(PanelItem::AskBid, BN_CLICKED),
                   reinterpret_cast<LPARAM>(m_hWnd));
}

void AskBidButtonImpl::OnButtonClick() {
    m_range_bar.Hide();
    m_prices.Choose();
    _post_command();
}

void AskBidButtonImpl::OnDropDownClick() {
    _toggle_ladder(false);
}

void AskBidButtonImpl::_toggle_ladder(bool by_key) {
    const bool was_visible = m_range_bar.IsVisible();
    m_range_bar.Place(m_hWnd, by_key);
    if (was_visible) {
        m_range_bar.Hide();
    } else {
        m_range_bar.Show();
    }
}

void AskBidButtonImpl::OnRangeSelect(LONG position, double price) {
    m_prices.Choose(position, price);
    Redraw();
    _post_command();
}

void AskBidButtonImpl::_place_split() {
    const LONG width = client_width(m_hWnd);
    put_Split(width - std::min<LONG>(frame::scaled(m_hWnd, widest_drop_down), width / 2));
}

// While the ladder is open the button's keys are the ladder's: it scrolls, Enter takes the price in its
// middle, and Esc closes it.
frame::answer AskBidButtonImpl::_on_ladder_key(WPARAM key, bool held) {
    if (key == VK_RETURN || key == VK_SPACE) {
        // A key that goes on being held is no press of what has come under it.
        if (!held) {
            m_range_bar.Select(middle_row);
        }
        return 0;
    }
    return m_range_bar.Key(static_cast<int>(key)) ? frame::answer(0) : frame::declined;
}

frame::answer AskBidButtonImpl::_on_key_down(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    if (uMsg == WM_KEYDOWN && m_range_bar.IsVisible()) {
        const frame::answer taken = _on_ladder_key(wParam, is_held_key(lParam));
        if (taken) {
            return taken;
        }
    }
    if (is_drop_down_key(uMsg, wParam)) {
        _toggle_ladder(true);
        return 0;
    }
    return frame::declined;
}

frame::answer AskBidButtonImpl::_ProcessWindowMessage(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    switch (uMsg) {
        case WM_MOUSEMOVE:
            if (!m_tracking) {
                TRACKMOUSEEVENT request = {sizeof(request), TME_LEAVE, m_hWnd, 0};
                m_tracking = ::TrackMouseEvent(&request) != FALSE;
            }
            break;
        case WM_MOUSELEAVE:
            m_tracking = false;
            break;
        case WM_SIZE:
            _place_split();
            break;
        case WM_ENABLE:
            // What a button that can't be used shows is another text.
            m_prices.SetDirty();
            [[fallthrough]];
        case WM_SHOWWINDOW:
            if (wParam == FALSE) {
                CloseLadder();
            }
            break;
        case WM_GETDLGCODE:
            if (m_range_bar.IsVisible() && wParam != VK_TAB) {
                return DLGC_WANTALLKEYS;
            }
            break;
        case WM_MOUSEWHEEL:
            if (m_range_bar.IsVisible()) {
                return ::SendMessageW(m_range_bar.get_Hwnd(), uMsg, wParam, lParam);
            }
            break;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: {
            const frame::answer taken = _on_key_down(uMsg, wParam, lParam);
            if (taken) {
                return taken;
            }
            break;
        }
        case WM_NCDESTROY:
            m_range_bar.Destroy();
            break;
        default:
            break;
    }
    return CButtonST::_ProcessWindowMessage(uMsg, wParam, lParam);
}

}  // namespace OV_OrderDeck
