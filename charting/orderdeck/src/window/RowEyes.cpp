#include "charting/orderdeck/src/window/RowEyes.h"

#include "charting/orderdeck/src/tab/DifferenceText.h"
#include "charting/orderdeck/src/window/PanelItems.h"
#include "platform/win32/frame/window_text.h"

namespace OV_OrderDeck {

namespace {

constexpr int usual_text = 128;

constexpr std::array entities{eODUE_Symbol,      eODUE_OrderType, eODUE_Quantity,    eODUE_FirstPrice,
                              eODUE_SecondPrice, eODUE_Account,   eODUE_TimeInForce, eODUE_GtdDate,
                              eODUE_AskBid,      eODUE_Buy,       eODUE_Sell};

// In one message, whatever the text; a long one takes more.
CString text_of(HWND window) {
    wchar_t buffer[usual_text] = {};
    const LRESULT length = ::SendMessageW(window, WM_GETTEXT, usual_text, reinterpret_cast<LPARAM>(buffer));
    return length < usual_text - 1 ? CString(buffer) : frame::window_text(window);
}

}  // namespace

void CRowEyes::Attach(HWND panel, const WTLControls::CActualCalendar& calendar) {
    m_calendar = &calendar;
    for (std::size_t i = 0; i < entities.size(); ++i) {
        m_items[i] = {entities[i], ::GetDlgItem(panel, item_of_entity(entities[i]))};
    }
}

CRowSight CRowEyes::Read(OD_UpdateEntity button, EPressSource source) const {
    CRowSight sight;
    sight.source = source;
    for (const auto& [entity, window] : m_items) {
        const LONG_PTR style = ::GetWindowLongPtrW(window, GWL_STYLE);
        SShownItem& item = sight[entity];
        item.shown = (style & WS_VISIBLE) != 0;
        item.enabled = (style & WS_DISABLED) == 0;
        const bool is_button = entity == eODUE_AskBid || entity == eODUE_Buy || entity == eODUE_Sell;
        if (!item.shown || (is_button && entity != button)) {
            continue;
        }
        if (entity == eODUE_GtdDate) {
            sight.day = m_calendar->GetDateDay();
            item.text = text_of_day(sight.day);
        } else {
            item.text = text_of(window);
        }
    }
    return sight;
}

}  // namespace OV_OrderDeck
