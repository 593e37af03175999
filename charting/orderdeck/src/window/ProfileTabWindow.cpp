#include "charting/orderdeck/src/window/ProfileTabWindow.h"

#include <windows.h>

#include <commctrl.h>

#include <uxtheme.h>

#include "charting/orderdeck/src/window/OrderDeckWindow.h"
#include "charting/orderdeck/src/window/PanelItems.h"
#include "charting/orderdeck/src/window/ProfileMenu.h"
#include "charting/orderdeck/src/window/RowRoom.h"
#include "charting/orderdeck/src/window/SettingFlag.h"
#include "charting/orderdeck/src/window/WindowText.h"
#include "diagnostics/BugSlayerUtil.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT panel_template = 202;
constexpr UINT symbol_images = 232;
constexpr UINT quantity_images = 211;
constexpr int symbol_button = 203;
constexpr UINT symbol_title = 111;
constexpr UINT quantity_title = 128;
constexpr UINT first_price_title = 126;
constexpr UINT second_price_title = 127;
constexpr UINT order_type_name = 301;
constexpr UINT account_name = 302;
constexpr UINT time_in_force_name = 303;
constexpr UINT date_name = 304;
constexpr UINT first_price_cue = 134;
constexpr UINT second_price_cue = 135;
constexpr int longest_price = 15;
constexpr int combo_frame = 6;
// What the drawn buttons are given: hot tracking and a gradient, and for the quotes all that there is. The
// content is drawn on every one of them.
constexpr DWORD trade_button_value = 5;
constexpr DWORD quote_button_value = 15;

}  // namespace

CProfileTabWindow::CProfileTabWindow(COrderDeckWindow* bar)
    : m_pBar(bar),
      m_first_price(*this, PanelItem::FirstPrice, first_price_title),
      m_second_price(*this, PanelItem::SecondPrice, second_price_title),
      m_quantity(this),
      m_symbol(*this, PanelItem::Symbol) {
    BS_REQUIRE(m_pBar != nullptr, E_POINTER);
}

CProfileTabWindow::~CProfileTabWindow() {
    DestroyWindow();
}

bool CProfileTabWindow::Create(HWND parent) {
    return dialog::Create(panel_template, parent);
}

HWND CProfileTabWindow::get_Window(OD_UpdateEntity entity) const {
    return get_Item(item_of_entity(entity));
}

boost::shared_ptr<IUnifyControl> CProfileTabWindow::get_Control(OD_UpdateEntity entity) const {
    return m_pBar->get_Control(entity);
}

BOOL CProfileTabWindow::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                             DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    using frame::guarded;
    switch (uMsg) {
        case WM_INITDIALOG:
            return frame::take(guarded(BS_HERE, [&] { return OnInitDialog(); }), lResult);
        case WM_RBUTTONDOWN: {
            const POINT at = frame::point_of(lParam);
            return frame::take(guarded(BS_HERE, [&] { return OnTabRClick(at); }), lResult);
        }
        case WM_ERASEBKGND: {
            const auto dc = reinterpret_cast<HDC>(wParam);
            return frame::take(guarded(BS_HERE, [&] { return OnEraseBackground(dc); }), lResult);
        }
        case WM_SHOWWINDOW:
            if (wParam == FALSE) {
                m_ask_bid.CloseLadder();
            }
            return FALSE;
        case WM_TIMER:
            return frame::take(guarded(BS_HERE, [&] { return OnTimer(wParam); }), lResult);
        case WM_SIZE:
            BugSlayerUtil::guard(BS_HERE, [&] { m_layout_panel.Fit(); });
            return FALSE;
        case WM_COMMAND:
            return frame::take(_dispatch_command(wParam), lResult);
        case WM_NOTIFY:
            return frame::take(_dispatch_notify(*reinterpret_cast<const NMHDR*>(lParam)), lResult);
        default:
            return FALSE;
    }
}

frame::answer CProfileTabWindow::_dispatch_command(WPARAM wParam) {
    const int id = LOWORD(wParam);
    switch (HIWORD(wParam)) {
        case CBN_SELCHANGE:
            return frame::guarded(BS_HERE, [&] { return OnCBChange(id); });
        case BN_CLICKED:
            return frame::guarded(BS_HERE, [&] { return OnBnClicked(id); });
        case EN_UPDATE:
            return frame::guarded(BS_HERE, [&] { return OnUpdateEdit(id); });
        default:
            return frame::declined;
    }
}

frame::answer CProfileTabWindow::_dispatch_notify(const NMHDR& notice) {
    switch (notice.code) {
        case DTN_DATETIMECHANGE:
            return frame::guarded(BS_HERE, [&] { return OnDateTimeChange(notice); });
        case UDN_DELTAPOS:
            return frame::guarded(BS_HERE, [&] { return OnDeltaSpinChanged(notice); });
        default:
            return frame::declined;
    }
}

frame::answer CProfileTabWindow::OnInitDialog() {
    m_layout_panel.Attach(m_hWnd);
    m_eyes.Attach(m_hWnd, m_calendar);
    m_marks.Attach(m_hWnd);
    m_calendar.SubclassWindow(get_Item(PanelItem::GtdDate));
    m_calendar.StartTimer();
    m_calendar.SetRange();
    _init_trade_buttons();
    const HWND symbol = get_Item(PanelItem::Symbol);
    if (::IsWindow(symbol)) {
        m_symbol.SubclassWindow(symbol);
        ::SetWindowLongPtrW(symbol, GWL_STYLE, ::GetWindowLongPtrW(symbol, GWL_STYLE) | WS_CLIPCHILDREN);
        m_symbol.CreateButton(symbol_button, symbol_images);
    }
    _init_prices();
    m_quantity.get_Editor().put_Id(PanelItem::Quantity);
    m_quantity.SubclassWindow(get_Item(PanelItem::Quantity));
    m_quantity.put_Images(quantity_images);
    m_ask_bid.SubclassWindow(get_Item(PanelItem::AskBid));
    m_ask_bid.put_Flags(quote_button_value | WTLControls::ButtonFlag::Content);
    _init_combo_heights();
    _init_theme();
    _init_names();
    make_room_for_texts(m_hWnd, m_layout_panel);
    m_layout.Build();
    m_layout_panel.Follow();
    return 0;
}

void CProfileTabWindow::_init_prices() {
    struct price {
        details::CPriceEdit& edit;
        int item;
        UINT cue;
    };
    for (const price& each : {price{m_first_price, PanelItem::FirstPrice, first_price_cue},
                              price{m_second_price, PanelItem::SecondPrice, second_price_cue}}) {
        const HWND edit = get_Item(each.item);
        each.edit.SubclassWindow(edit);
        ::SendMessageW(edit, EM_SETLIMITTEXT, longest_price, 0);
        const CString cue = L" " + resource_string::text(each.cue);
        ::SendMessageW(edit, EM_SETCUEBANNER, FALSE, reinterpret_cast<LPARAM>(cue.c_str()));
        m_tips.Register(m_hWnd, edit);
    }
}

void CProfileTabWindow::_init_names() {
    constexpr std::array<std::pair<int, UINT>, 8> titles{{{PanelItem::Symbol, symbol_title},
                                                          {PanelItem::OrderType, order_type_name},
                                                          {PanelItem::Quantity, quantity_title},
                                                          {PanelItem::FirstPrice, first_price_title},
                                                          {PanelItem::SecondPrice, second_price_title},
                                                          {PanelItem::Account, account_name},
                                                          {PanelItem::TimeInForce, time_in_force_name},
                                                          {PanelItem::GtdDate, date_name}}};
    for (std::size_t i = 0; i < titles.size(); ++i) {
        m_names[i].Attach(get_Item(titles[i].first), resource_string::text(titles[i].second));
    }
}

void CProfileTabWindow::_init_trade_buttons() {
    m_buy.SubclassWindow(get_Item(PanelItem::Buy));
    m_sell.SubclassWindow(get_Item(PanelItem::Sell));
    m_buy.put_Flags(trade_button_value | WTLControls::ButtonFlag::Content);
    m_sell.put_Flags(trade_button_value | WTLControls::ButtonFlag::Content);
    m_buy.put_PressSink(this);
    m_sell.put_PressSink(this);
    m_tips.Register(m_hWnd, m_buy.get_Hwnd());
    m_tips.Register(m_hWnd, m_sell.get_Hwnd());
}

void CProfileTabWindow::_init_combo_heights() {
    const RECT symbol = m_layout_panel.get_ItemRect(get_Item(PanelItem::Symbol));
    const LPARAM height = symbol.bottom - symbol.top - combo_frame;
    for (const int item : {PanelItem::OrderType, PanelItem::Account, PanelItem::TimeInForce}) {
        ::SendMessageW(get_Item(item), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
        ::SendMessageW(get_Item(item), CB_SETITEMHEIGHT, 0, height);
    }
}

void CProfileTabWindow::_init_theme() {
    if (::IsAppThemed() && ::IsThemeDialogTextureEnabled(m_hWnd)) {
        BS_ASSERT_OK(::EnableThemeDialogTexture(m_hWnd, ETDT_ENABLETAB));
    }
}

frame::answer CProfileTabWindow::OnTimer(UINT_PTR id) {
    m_layout.OnTimer(reinterpret_cast<const void*>(id));
    return 0;
}

frame::answer CProfileTabWindow::OnEraseBackground(HDC dc) {
    if (m_bErasing) {
        return frame::declined;
    }
    if (!m_marks.IsEmpty()) {
        const setting_flag erasing(m_bErasing);
        ::DefDlgProcW(m_hWnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
        m_marks.Draw(dc);
        return 1;
    }
    const auto tab = m_pBar->get_CurTab();
    COLORREF from = 0;
    COLORREF to = 0;
    if (!tab || !tab->get_GradientColors(from, to)) {
        return frame::declined;
    }
    const auto corner = [](LONG x, LONG y, COLORREF colour) {
        return TRIVERTEX{x,
                         y,
                         static_cast<COLOR16>(GetRValue(colour) << 8),
                         static_cast<COLOR16>(GetGValue(colour) << 8),
                         static_cast<COLOR16>(GetBValue(colour) << 8),
                         0};
    };
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    TRIVERTEX corners[] = {corner(client.left, client.top, from), corner(client.right, client.bottom, to)};
    GRADIENT_RECT whole = {0, 1};
    ::GradientFill(dc, corners, 2, &whole, 1, GRADIENT_FILL_RECT_H);
    return 1;
}

frame::answer CProfileTabWindow::OnTabRClick(POINT point) {
    BS_REQUIRE(::ClientToScreen(m_hWnd, &point), E_FAIL);
    const auto tab = m_pBar->get_CurTab();
    BS_REQUIRE(tab, E_POINTER);
    run_profile_menu(m_hWnd, point, tab->get_Profile());
    return 0;
}

CString CProfileTabWindow::GetDisplayText(double value) {
    return local_format::CNumberFormat::QuantityToText(static_cast<LONG>(value));
}

}  // namespace OV_OrderDeck
