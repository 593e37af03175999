// Queries of the host's symbol tables and the walk over their rows.
#pragma once

#include <functional>

#include "charting/orderdeck/src/lookup/SymbolFinders.h"

namespace OV_OrderDeck {

// Called once for each row with the table and whether it is the second one; true stops the walk.
using symbol_finder = std::function<bool(IovTable&, bool)>;

// A table that has not ended after so many rows is given up: a broken host must not keep its user waiting
// for ever. No exchange lists a tenth of it.
inline constexpr LONG most_rows = 16'777'216;

// Walks from the first row to the end or to where the finder stops. Whether it stopped. A failure of the
// table, and one that has more than the given rows (E_FAIL), is reported and thrown as _com_error.
bool _process_table(IovTable& table, const symbol_finder& finder, bool second, LONG rows = most_rows);

// Fills the ordinary or the second table and walks it. Nothing happens when the host has no query object.
// Creates all objects on the calling thread and lets go of them before it returns. Throws _com_error.
void _process_symbols(const symbol_finder& finder, bool second);

// The symbol of a request into info; whether there is exactly one. Where the host knows the symbol's id,
// its row is taken without a walk. Throws _com_error.
bool _process_symbols_by_req(OD_SSymbolInfo& info, const OD_SSymbolReq& req);

}  // namespace OV_OrderDeck
