#include "charting/orderdeck/src/tab/Controls/BuySellButton.h"

#include <stdexcept>

#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"
#include "charting/orderdeck/src/tab/Controls/QuantityEdit.h"
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
    const CControlsHolder& fields = _tab().get_Controls();
    // The key as it is: without an order type the face is refused like any other unknown category.
    const UINT word = word_of(fields.m_pOrderType->get_SelectedItem(nullptr));
    return resource_string::text(verb) + L" " + resource_string::text(word) + L"\n" +
           local_format::CNumberFormat::IntegerToText(fields.m_pQuantity->get_Quantity());
}

void CBuySellButtonBase::_place_order(LONG action) {
    _tab()._on_place_order(action);
}

}  // namespace OV_OrderDeck
