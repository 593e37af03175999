#include "charting/orderdeck/src/tab/Controls/BuySellButton.h"

#include <stdexcept>
#include <utility>

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

row_differences CBuySellButtonBase::Press(const CRowSight& sight) {
    // A press inside the press has a sight of its own.
    const CRowSight* const before = std::exchange(m_sight, &sight);
    m_differences.clear();
    try {
        Select(0);
    } catch (...) {
        m_sight = before;
        throw;
    }
    m_sight = before;
    return std::exchange(m_differences, {});
}

void CBuySellButtonBase::_place_order(OD_UpdateEntity button, LONG action) {
    if (m_sight == nullptr) {
        _tab()._on_place_order(action);
        return;
    }
    const CRowSight& sight = *m_sight;
    // Looked at again: the press began on a button that could be used, and the focus has moved since.
    if (!sight[button].enabled || !get_Enabled()) {
        m_differences = _tab()._refuse_unusable(button, sight);
    } else {
        row_differences differences = _tab()._on_place_order(action, sight);
        m_differences = std::move(differences);
    }
}

}  // namespace OV_OrderDeck
