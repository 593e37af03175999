#include "charting/orderdeck/src/tab/Controls/Usable.h"

#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/tab/Controls/Lookup.h"
#include "charting/orderdeck/src/tab/Tab.h"

namespace OV_OrderDeck {

bool is_connected(CTab& tab) {
    return tab.get_Profile()->get_ConnectionState(true) == eTM_CC_Connected;
}

bool has_symbol(CTab& tab) {
    return tab.get_Controls().m_pSymbol->get_Symbol().valid();
}

}  // namespace OV_OrderDeck
