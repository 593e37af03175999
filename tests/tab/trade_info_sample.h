// An instrument with a value of its own in every field.
#pragma once

#include "charting/orderdeck/interface/TradeInfo.h"

namespace OV_OrderDeck {

inline void fill(OD_SSymbolInfo& info) {
    info.id = 77;
    info.DataFeed = SysAllocString(L"Feed");
    info.Name = SysAllocString(L"ESZ6");
    info.Root = SysAllocString(L"ES");
    info.Description = SysAllocString(L"E-mini 指數");
    info.Exchange = SysAllocString(L"CME");
    info.ExchangeTZI = SysAllocString(L"Central");
    info.Category = 3;
    info.Currency = 12;
    info.Expiry = 42000.5;
    info.PriceScaleCode = 'g';
    info.MinMovement = 2.0;
    info.BigPointValue = 50.0;
    info.PutOrCall = VARIANT_TRUE;
    info.StrikePrice = 2100.25;
}

inline CSymbolInfo taken_from(const OD_SSymbolInfo& info) {
    CSymbolInfo result;
    result = info;
    return result;
}

inline CSymbolInfo sample() {
    symbol_info_holder info;
    fill(info);
    return taken_from(info);
}

}  // namespace OV_OrderDeck
