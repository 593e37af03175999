#pragma once

#include "TradingCenter.h"

namespace OV_OrderDeck {

// What a profile's wrapper forwards to its tab, in the order of the host's events. On the thread of the
// host's call, which is the bar's. The result goes back to the host: 0 accepted, 1 refused. What is thrown
// ends in the wrapper, which reports it and gives its code.
class IOD_ProfileDataChange {
public:
    // 1 for a quote that is not one: not normal numbers, or a bid above the ask.
    virtual LONG OnQuote(double bid, double ask) = 0;
    virtual LONG OnConnectionState(ETM_ConnectionChanged state) = 0;
    virtual LONG OnTradingAllowed(bool allowed) = 0;
    // The text stays the host's.
    virtual LONG OnStatusText(BSTR text) = 0;
    virtual ~IOD_ProfileDataChange() = default;
};

}  // namespace OV_OrderDeck
