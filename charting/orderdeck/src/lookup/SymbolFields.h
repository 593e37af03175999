// Values of a symbol table's current row.
#pragma once

#include "TradingCenter.h"
#include "charting/orderdeck/src/lookup/OwnedText.h"
#include "platform/text.h"

namespace OV_OrderDeck {

using IOV_ovudfcom::IovTable;
using IOV_ovudfcom::tagOVFIELDID;

// Each reader reports an assertion and throws _com_error when the field can't be had, is null (E_POINTER),
// or has no such value. Thread of the table.
LONG GetAsLong(tagOVFIELDID id, IovTable& table);
double GetAsDouble(tagOVFIELDID id, IovTable& table);
// Null when the host's text is.
_bstr_t GetAsString(tagOVFIELDID id, IovTable& table);
CString GetAsStringStr(tagOVFIELDID id, IovTable& table);
// The host's own text, for rows that are only looked at.
owned_text read_text(tagOVFIELDID id, IovTable& table);

}  // namespace OV_OrderDeck
