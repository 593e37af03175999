#include "centre/symbol_record.h"

#include "com/text.h"

namespace host {

void fill_symbol(const instrument& one, OD_SSymbolInfo& out) {
    out.id = one.id;
    out.DataFeed = to_bstr(one.feed);
    out.Name = to_bstr(one.name);
    out.Root = to_bstr(one.root);
    out.Description = to_bstr(one.description);
    out.Exchange = to_bstr(one.exchange);
    out.ExchangeTZI = to_bstr(one.time_zone);
    out.Category = static_cast<LONG>(one.kind);
    out.Currency = currency_code(one.currency);
    out.Expiry = one.expiry;
    out.PriceScaleCode = one.scale;
    out.MinMovement = one.min_move;
    out.BigPointValue = one.point_value;
    out.PutOrCall = one.put ? VARIANT_TRUE : VARIANT_FALSE;
    out.StrikePrice = one.strike;
}

void clear_symbol(OD_SSymbolInfo& record) {
    for (BSTR text : {record.DataFeed, record.Name, record.Root, record.Description, record.Exchange,
                      record.ExchangeTZI}) {
        SysFreeString(text);
    }
    record = {};
}

}  // namespace host
