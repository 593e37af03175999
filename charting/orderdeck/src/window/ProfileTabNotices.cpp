// What the user does on the panel.
#include <windows.h>

#include <commctrl.h>

#include "charting/orderdeck/src/window/PanelItems.h"
#include "charting/orderdeck/src/window/ProfileTabWindow.h"
#include "charting/orderdeck/src/window/SettingFlag.h"
#include "charting/orderdeck/src/window/WindowText.h"
#include "diagnostics/BugSlayerUtil.h"
#include "unicomp/wtlcontrols/ActualCalendar/CalendarDates.h"

namespace OV_OrderDeck {

namespace {

// Runs a lookup and shows the symbol afterwards, whatever came of it: a name that failed must not stand in
// the edit as if it were the symbol.
template <class Lookup, class Show>
void look_up_and_show(Lookup&& lookup, Show&& show) {
    try {
        lookup();
    } catch (...) {
        show();
        throw;
    }
    show();
}

_variant_t date_variant(double date) {
    _variant_t value;
    value.vt = VT_DATE;
    value.date = date;
    return value;
}

}  // namespace

frame::answer CProfileTabWindow::OnBnClicked(int id) {
    const OD_UpdateEntity entity = entity_of_item(id);
    const auto field = get_Control(entity);
    if (!field) {
        return 0;
    }
    if (entity == eODUE_Buy || entity == eODUE_Sell) {
        _press(entity, field);
        return 0;
    }
    _on_input();
    if (entity == eODUE_AskBid) {
        field->put_Value(_variant_t(m_ask_bid.get_HitPrice()));
    } else {
        field->Select(0);
    }
    return 0;
}

frame::answer CProfileTabWindow::OnCBChange(int id) {
    const OD_UpdateEntity entity = entity_of_item(id);
    const auto field = get_Control(entity);
    if (!field) {
        return 0;
    }
    _on_input();
    const HWND combo = get_Window(entity);
    const LRESULT current = ::SendMessageW(combo, CB_GETCURSEL, 0, 0);
    const LRESULT key = ::SendMessageW(combo, CB_GETITEMDATA, static_cast<WPARAM>(current), 0);
    field->Select(static_cast<LONG>(key));
    return 0;
}

frame::answer CProfileTabWindow::OnUpdateEdit(int id) {
    if (m_bSettingText) {
        return 0;
    }
    _on_input();
    switch (id) {
        case PanelItem::FirstPrice:
            m_first_price.OnUpdate();
            return 0;
        case PanelItem::SecondPrice:
            m_second_price.OnUpdate();
            return 0;
        default:
            return frame::declined;
    }
}

frame::answer CProfileTabWindow::OnDeltaSpinChanged(const NMHDR& notice) {
    _on_input();
    const int delta = reinterpret_cast<const NMUPDOWN&>(notice).iDelta;
    if (notice.idFrom == PanelItem::FirstSpin) {
        m_first_price.OnDeltaSpinChanged(delta);
    } else if (notice.idFrom == PanelItem::SecondSpin) {
        m_second_price.OnDeltaSpinChanged(delta);
    } else if (notice.idFrom == CLayoutPanel::Arrows) {
        m_layout_panel.Scroll(delta);
        return 1;
    }
    return 0;
}

frame::answer CProfileTabWindow::OnDateTimeChange(const NMHDR& notice) {
    _on_input();
    const auto& change = reinterpret_cast<const NMDATETIMECHANGE&>(notice);
    m_calendar.put_IsToday(m_calendar.GetDateDay() == m_calendar.GetTodayDay());
    const auto field = get_Control(eODUE_GtdDate);
    if (!field) {
        return 0;
    }
    if (change.dwFlags == GDT_VALID) {
        field->put_Value(date_variant(WTLControls::ole_date(change.st)));
    } else {
        field->put_Value(date_variant(0.0));
    }
    return 0;
}

boost::shared_ptr<ISymbolCtrl> CProfileTabWindow::_symbol_field() const {
    const auto _ctrl = boost::dynamic_pointer_cast<ISymbolCtrl>(get_Control(eODUE_Symbol));
    BS_ASSERT(_ctrl);
    return _ctrl;
}

void CProfileTabWindow::OnButtonPressed(LONG) {
    const auto field = _symbol_field();
    if (!field) {
        return;
    }
    _on_input();
    look_up_and_show(
        [&] {
            const setting_flag running(m_bInSymbolAction);
            field->LookupWithDialog();
        },
        [this] { _show_symbol(); });
}

// While a lookup asks the user, the host may take the tab away or bring another one to the front. Its symbol
// is what the edit shows then: a name that stayed behind would be looked up for the wrong profile.
void CProfileTabWindow::_show_symbol() {
    if (const auto field = get_Control(eODUE_Symbol)) {
        _update_text(get_Item(PanelItem::Symbol), *field);
    }
}

void CProfileTabWindow::OnEditSetFocus(LONG) {
    const HWND edit = get_Item(PanelItem::Symbol);
    if (::GetWindowTextLengthW(edit) > 0) {
        ::SendMessageW(edit, EM_SETSEL, 0, -1);
    }
}

void CProfileTabWindow::OnEditEnd(LONG, bool accepted) {
    if (accepted) {
        _lookup_symbol(true, false);
        return;
    }
    const auto field = _symbol_field();
    if (field) {
        _update_text(get_Item(PanelItem::Symbol), *field);
    }
}

void CProfileTabWindow::OnEditKillFocus(LONG) {
    if (!m_bInSymbolAction) {
        _lookup_symbol(false, true);
    }
}

void CProfileTabWindow::_lookup_symbol(bool bAskConnect, bool bQuiet) {
    const setting_flag running(m_bInSymbolAction);
    const auto field = _symbol_field();
    if (!field) {
        return;
    }
    const HWND edit = get_Item(PanelItem::Symbol);
    const CString text = window_text(edit);
    if (text == text_of_value(*field)) {
        return;
    }
    look_up_and_show([&] { field->LookupByText(text, bAskConnect, bQuiet); }, [this] { _show_symbol(); });
}

void CProfileTabWindow::OnFormatChange(int, WTLControls::NumberEditors::eFormats) {
    BS_ASSERT_TEXT(false, "0");
}

void CProfileTabWindow::OnStringChanged(int, const _bstr_t& text) {
    const auto _ctrl = get_Control(eODUE_Quantity);
    if (BS_ASSERT(_ctrl)) {
        _ctrl->put_Value(_variant_t(text));
    }
}

}  // namespace OV_OrderDeck
