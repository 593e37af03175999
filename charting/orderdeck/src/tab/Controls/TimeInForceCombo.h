#pragma once

#include "TradingCenter.h"
#include "charting/orderdeck/src/tab/Controls/ListImpl.h"

namespace OV_OrderDeck {

// The time in force. Keys are its codes; a code that is not known has no text.
class CTimeInForceCombo : public CListImpl<IUnifyControl> {
public:
    // Names the date field to the bar, also for a key that the list refused.
    void Select(LONG key) override;
    bool get_Enabled() override;

    // Reads the codes that the host offers for a category. A host that gives no list leaves the old one.
    void Update(MTPA_OrdrCtgry category);
};

}  // namespace OV_OrderDeck
