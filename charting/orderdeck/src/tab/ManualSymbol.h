#pragma once

#include "TradingCenter.h"
#include "charting/orderdeck/interface/TradeInfo.h"

namespace OV_OrderDeck {

// The host's form of a symbol, all zero for a record that is not valid, padding included. The texts are
// borrowed from the record and live as long as it keeps them.
SManualSymbol make_manual_symbol(const CSymbolInfo& symbol);

}  // namespace OV_OrderDeck
