#pragma once

#include "TradingCenter.h"
#include "charting/orderdeck/interface/TradeInfo.h"

namespace OV_OrderDeck {

// All that goes out with an order, put together once.
struct SOrderRequest {
    // As the host was told it by SetSymbol.
    CSymbolInfo symbol;
    MTPA_OrdrActn action = eMTPA_OA_Buy;
    MTPA_OrdrCtgry category = eMTPA_OC_Market;
    LONG quantity = 0;
    // 0.0 for a field that is empty.
    double stop_price = 0.0;
    double limit_price = 0.0;
    CString account;
    LONG time_in_force = 0;
    // OLE date.
    double gtd_date = 0.0;
    // The buttons could be used: the profile was connected and there was a symbol.
    bool usable = false;
};

}  // namespace OV_OrderDeck
