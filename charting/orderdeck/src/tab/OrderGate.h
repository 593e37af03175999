#pragma once

#include "charting/orderdeck/interface/RowSight.h"
#include "charting/orderdeck/src/tab/ControlsHolder.h"
#include "charting/orderdeck/src/tab/OrderRequest.h"

class CPriceToString;

namespace OV_OrderDeck {

// Stands between the fields of a row and the host: puts an order together and holds it against what the
// screen showed. What the screen shows at the press is what goes out, or nothing goes. On the bar's thread.
class COrderGate {
public:
    // The fields are not owned and outlive the gate.
    explicit COrderGate(const CControlsHolder& fields) : m_fields(&fields) {}

    // Throws _com_error (E_FAIL) without an order type.
    SOrderRequest Compose(LONG action) const;

    // The items of the sight that do not read as what the request would send. Hidden items don't count, but
    // a price that the category needs, or a date that the time in force needs, must be on the screen.
    row_differences Compare(const CRowSight& sight, const SOrderRequest& request,
                            const CPriceToString& format) const;

    // The items in which the fields have moved away from the request since it was put together.
    row_differences Moved(const SOrderRequest& request) const;

private:
    const CControlsHolder* m_fields;
};

}  // namespace OV_OrderDeck
