#pragma once

#include "TradingCenter.h"

namespace OV_OrderDeck {

// What a profile's wrapper forwards to its tab, in the order of the host's events.
class IOD_ProfileDataChange {
public:
    virtual LONG OnQuote(double bid, double ask) = 0;
    virtual LONG OnConnectionState(ETM_ConnectionChanged state) = 0;
    virtual LONG OnTradingAllowed(bool allowed) = 0;
    virtual LONG OnStatusText(BSTR text) = 0;
    virtual ~IOD_ProfileDataChange() = default;
};

}  // namespace OV_OrderDeck
