#include "charting/orderdeck/src/tab/Controls/BuySellButton.h"

#include <stdexcept>

#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"
#include "charting/orderdeck/src/tab/Controls/Usable.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {
namespace {

UINT word_of(LONG category) {
    switch (category) {
        case eMTPA_OC_Market:
            return 136;
        case eMTPA_OC_Stop:
            return 139;
        case eMTPA_OC_Limit:
            return 142;
        case eMTPA_OC_StopLimit:
            return 137;
        default:
            throw std::out_of_range("wrong order category");
    }
}

}  // namespace

bool CBuySellButtonBase::get_Enabled() {
    return m_bEnabled && is_connected_with_symbol(_tab());
}

CString CBuySellButtonBase::_caption(UINT verb) {
    // The key as it is: without an order type the face is refused like any other unknown category.
    const UINT word = word_of(_tab().get_Controls().m_pOrderType->get_SelectedItem(nullptr));
    _variant_t quantity = _tab()._get_quantity();
    quantity.ChangeType(VT_I4);
    return resource_string::text(verb) + L" " + resource_string::text(word) + L"\n" +
           local_format::CNumberFormat::IntegerToText(V_I4(&quantity));
}

void CBuySellButtonBase::_place_order(LONG action) {
    _tab()._on_place_order(action);
}

// Looked at again here: the press began on a button that could be used, and the focus has moved since.
row_differences CBuySellButtonBase::_press(OD_UpdateEntity button, LONG action, const CRowSight& sight) {
    if (!sight[button].enabled || !get_Enabled()) {
        return _tab()._refuse_unusable(button, sight);
    }
    return _tab()._on_place_order(action, sight);
}

}  // namespace OV_OrderDeck
