#pragma once

#include "TradingCenter.h"
#include "charting/orderdeck/src/tab/Controls/ListImpl.h"

namespace OV_OrderDeck {

// The order type. Its items are fixed and stand in the order of their keys, stop before limit.
class COrderTypeCombo : public CListImpl<IUnifyControl> {
public:
    COrderTypeCombo();

    // Picking the selected type again changes nothing; any other pick clears the tab's prices.
    void Select(LONG key) override;
    bool get_Enabled() override;

    // Throws _com_error (E_FAIL) when nothing is selected.
    MTPA_OrdrCtgry get_OrderType();
};

}  // namespace OV_OrderDeck
