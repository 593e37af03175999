#pragma once

#include "OrderDeck.h"
#include "charting/orderdeck/src/lookup/SymbolFields.h"

namespace OV_OrderDeck {

// Gives the text to target, whose old text is freed. Throws _com_error (E_POINTER) when a copy shares the
// text; target is then as it was. A null text is taken as a null one.
void take_over(BSTR& target, _bstr_t& text);

// Fills the record, whose old texts are freed, from the current row of the ordinary or the second table.
// DataFeed stays as it is. What a reader throws leaves the record partly filled.
void fill_symbol_info(IovTable& table, bool second, OD_SSymbolInfo& info);

// Without a currency lookup the currency stays as it is. Throws _com_error when the lookup fails.
void _fill_currency(IovTable& table, OD_SSymbolInfo& info);

}  // namespace OV_OrderDeck
