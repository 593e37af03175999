#pragma once

#include "OrderDeck.h"
#include "platform/text.h"

namespace OV_OrderDeck {

// Symbol and account of a tab, for the root.
class ITradeInfoProperties {
public:
    virtual CString get_SymbolName() = 0;
    virtual void put_SymbolName(const wchar_t* name) = 0;
    virtual LONG get_SymbolId() = 0;
    virtual void put_SymbolId(LONG id) = 0;
    // The texts of info are replaced by new ones that the caller owns.
    virtual void get_SymbolInfo(OD_SSymbolInfo& info) = 0;
    virtual void put_SymbolInfo(const OD_SSymbolInfo& info) = 0;
    virtual CString get_Account() = 0;
    virtual void put_Account(const wchar_t* name) = 0;
    virtual ~ITradeInfoProperties() = default;
};

}  // namespace OV_OrderDeck
