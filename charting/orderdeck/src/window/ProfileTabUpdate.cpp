// What the panel shows of its fields.
#include <windows.h>

#include <commctrl.h>

#include "charting/orderdeck/src/tab/Truncate.h"
#include "charting/orderdeck/src/window/OrderDeckWindow.h"
#include "charting/orderdeck/src/window/PanelItems.h"
#include "charting/orderdeck/src/window/ProfileTabWindow.h"
#include "charting/orderdeck/src/window/SettingFlag.h"
#include "charting/orderdeck/src/window/WindowText.h"
#include "diagnostics/BugSlayerUtil.h"
#include "unicomp/wtlcontrols/ActualCalendar/CalendarDates.h"

namespace OV_OrderDeck {

namespace {

constexpr double stock_quantity = 100.0;
constexpr double other_quantity = 1.0;
constexpr int mid_mode = 2;
constexpr int idle_mode = 0;

}  // namespace

void CProfileTabWindow::Update(OD_UpdateEntity entity, bool bNoAnimation, bool bKeepQuantity) {
    const auto field = get_Control(entity);
    BS_REQUIRE(field, E_POINTER);
    if (m_bNotSentShown && m_pBar->get_CurTab().get() != m_marked_tab) {
        _on_input();
    }
    const HWND window = get_Window(entity);
    ::EnableWindow(window, field->get_Enabled());
    m_layout.Update(entity, *field, !bNoAnimation);
    switch (entity) {
        case eODUE_Symbol:
            _update_lookup(window, *field, bKeepQuantity);
            break;
        case eODUE_OrderType:
        case eODUE_Account:
        case eODUE_TimeInForce:
            _update_combo_box_ctrl(window, *field);
            break;
        case eODUE_Quantity:
            _update_quantity_ctrl(*field);
            break;
        case eODUE_FirstPrice:
        case eODUE_SecondPrice:
            _update_price(entity, window, *field);
            break;
        case eODUE_GtdDate:
            _update_date_time_picker_ctrl(window, *field);
            break;
        case eODUE_AskBid:
            _update_ask_bid(*field);
            break;
        case eODUE_Buy:
        case eODUE_Sell:
            _update_text(window, *field);
            break;
    }
}

// Equal text is not written: the caret stays where it is.
void CProfileTabWindow::_update_text(HWND window, IUnifyControl& field) {
    if (!::IsWindow(window)) {
        return;
    }
    const CString text = text_of_value(field);
    if (text != window_text(window)) {
        const setting_flag guard(m_bSettingText);
        ::SetWindowTextW(window, text.c_str());
    }
}

void CProfileTabWindow::_update_lookup(HWND window, IUnifyControl& field, bool bKeepQuantity) {
    auto* const pSymbolCtrl = dynamic_cast<ISymbolCtrl*>(&field);
    if (!BS_ASSERT(pSymbolCtrl)) {
        return;
    }
    const auto tab = m_pBar->get_CurTab();
    m_ask_bid.put_Symbol(tab ? tab->get_Id() : 0, text_of_value(field));
    if (!pSymbolCtrl->IsEmpty()) {
        const LONG category = pSymbolCtrl->get_Category();
        m_quantity.put_Mode(category);
        if (!bKeepQuantity && category != m_lastCategory) {
            m_quantity.SetValue(category == WTLControls::NumberEditors::stock_category ? stock_quantity
                                                                                       : other_quantity);
        }
        m_lastCategory = category;
        m_ask_bid.SetFormat(pSymbolCtrl->get_PriceScaleCode(), truncate(pSymbolCtrl->get_MinMovement()));
        m_ask_bid.Redraw();
    }
    _update_text(window, field);
}

void CProfileTabWindow::_update_combo_box_ctrl(HWND window, IUnifyControl& field) {
    ::SendMessageW(window, CB_RESETCONTENT, 0, 0);
    const LONG selected = field.get_SelectedItem(nullptr);
    LRESULT shown = CB_ERR;
    const LONG count = field.get_Count();
    for (LONG i = 0; i < count; ++i) {
        CString text;
        const LONG key = field.get_Item(i, &text);
        const LRESULT iIndex =
            ::SendMessageW(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        if (!BS_ASSERT(iIndex != CB_ERR && iIndex != CB_ERRSPACE)) {
            continue;
        }
        const LRESULT iRes = ::SendMessageW(window, CB_SETITEMDATA, static_cast<WPARAM>(iIndex), key);
        BS_ASSERT(iRes != (-1));
        if (key == selected) {
            shown = iIndex;
        }
    }
    if (shown != CB_ERR) {
        ::SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(shown), 0);
    }
    widen_list(window);
}

void CProfileTabWindow::_update_quantity_ctrl(IUnifyControl& field) {
    BS_REQUIRE(!field.IsEmpty(), E_FAIL);
    _variant_t value = field.get_Value();
    value.ChangeType(VT_R8);
    if (m_quantity.GetValue() != value.dblVal) {
        m_quantity.SetValue(value.dblVal);
    }
}

void CProfileTabWindow::_update_price(OD_UpdateEntity entity, HWND window, IUnifyControl& field) {
    const HWND spin = get_Item(spin_of_entity(entity));
    LONG low = 0;
    LONG high = 0;
    field.get_SpinRange(&low, &high);
    int low_now = 0;
    int high_now = 0;
    ::SendMessageW(spin, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low_now),
                   reinterpret_cast<LPARAM>(&high_now));
    if (low_now != low || high_now != high) {
        ::SendMessageW(spin, UDM_SETRANGE32, static_cast<WPARAM>(low), high);
    }
    ::EnableWindow(spin, field.get_Enabled());
    _update_text(window, field);
}

void CProfileTabWindow::_update_date_time_picker_ctrl(HWND window, IUnifyControl& field) {
    if (field.IsEmpty()) {
        ::SendMessageW(window, DTM_SETSYSTEMTIME, GDT_NONE, 0);
        return;
    }
    _variant_t value = field.get_Value();
    BS_REQUIRE(value.vt == VT_DATE, E_INVALIDARG);
    // A day that has passed while the tab was not shown can't be meant any more.
    if (const LONG today = m_calendar.GetTodayDay(); static_cast<LONG>(value.date) < today) {
        value.date = today;
        field.put_Value(value);
    }
    SYSTEMTIME shown = WTLControls::system_time_of_ole_date(value.date);
    ::SendMessageW(window, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&shown));
    // A picker keeps its own date where the range does not allow the field's: what is shown is what counts.
    if (m_calendar.GetDateDay() != static_cast<LONG>(value.date)) {
        value.date = WTLControls::ole_date(m_calendar.get_Date());
        field.put_Value(value);
    }
}

void CProfileTabWindow::_update_ask_bid(IUnifyControl& field) {
    auto* const quotes = dynamic_cast<IAskBidCtrl*>(&field);
    BS_REQUIRE(quotes != nullptr, E_POINTER);
    if (quotes->IsEmpty()) {
        m_ask_bid.put_Mode(idle_mode);
    } else {
        m_ask_bid.SetQuotes(quotes->get_Ask(), quotes->get_Bid());
        if (m_ask_bid.IsIdle()) {
            m_ask_bid.put_Mode(mid_mode);
        }
    }
    m_ask_bid.Redraw();
}

}  // namespace OV_OrderDeck
