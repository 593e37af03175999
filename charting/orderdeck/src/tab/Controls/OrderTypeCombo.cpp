#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"

#include "charting/orderdeck/src/tab/Controls/Usable.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

COrderTypeCombo::COrderTypeCombo() {
    m_items = {{eMTPA_OC_Market, resource_string::text(130)},
               {eMTPA_OC_Stop, resource_string::text(132)},
               {eMTPA_OC_Limit, resource_string::text(131)},
               {eMTPA_OC_StopLimit, resource_string::text(133)}};
    m_selected = eMTPA_OC_Market;
}

// A key that the list refuses clears the prices all the same, on purpose: a price must never outlive the
// moment in which the user meant another order type.
void COrderTypeCombo::Select(LONG key) {
    if (key == m_selected) {
        return;
    }
    CListImpl::Select(key);
    _tab()._on_order_type_changed();
}

bool COrderTypeCombo::get_Enabled() {
    return m_bEnabled && is_connected_with_symbol(_tab());
}

MTPA_OrdrCtgry COrderTypeCombo::get_OrderType() {
    BS_REQUIRE(!IsEmpty(), E_FAIL);
    return static_cast<MTPA_OrdrCtgry>(m_selected);
}

}  // namespace OV_OrderDeck
