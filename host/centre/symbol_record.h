// An instrument in the form in which symbols cross the component's interfaces.
#pragma once

#include <OrderDeck.h>

#include "market/instruments.h"

namespace host {

// Fills a record of zeros; its texts become the caller's.
void fill_symbol(const instrument& one, OD_SSymbolInfo& out);

// Frees the texts and zeroes the record.
void clear_symbol(OD_SSymbolInfo& record);

}  // namespace host
