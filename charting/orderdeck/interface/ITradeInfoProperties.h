#pragma once

#include "OrderDeck.h"
#include "platform/text.h"

namespace OV_OrderDeck {

// Symbol and account of a tab, for the root. All on the bar's thread. Texts are borrowed for the call; a null
// one counts as empty. Operations that ask the host or the lookup service may dispatch messages and throw
// _com_error with what these give.
class ITradeInfoProperties {
public:
    // Empty without a symbol.
    virtual CString get_SymbolName() = 0;
    // Looks the name up, without a dialog, and takes what is found. Does nothing for a profile whose symbols
    // the service knows by id. Throws _com_error: E_FAIL for an empty name, or the service's failure.
    virtual void put_SymbolName(const wchar_t* name) = 0;
    // 0 without a symbol.
    virtual LONG get_SymbolId() = 0;
    // Looks the id up, without a dialog, and takes what is found. Throws _com_error: E_FAIL for an id of 0 or
    // below, or the service's failure.
    virtual void put_SymbolId(LONG id) = 0;
    // The texts of info are replaced by new ones that the caller owns. Without a symbol that is reported, and
    // the values of a new record are given.
    virtual void get_SymbolInfo(OD_SSymbolInfo& info) = 0;
    // Copies the texts. A record of another data feed, or one that counts as the present one, changes
    // nothing. Throws std::range_error for an expiry outside the calendar.
    virtual void put_SymbolInfo(const OD_SSymbolInfo& info) = 0;
    // Empty for none.
    virtual CString get_Account() = 0;
    // Selects the account of that name and names it to the host; a name that isn't in the list names the
    // selected one once more. Throws _com_error (E_POINTER) when the profile has no order entry.
    virtual void put_Account(const wchar_t* name) = 0;
    virtual ~ITradeInfoProperties() = default;
};

}  // namespace OV_OrderDeck
