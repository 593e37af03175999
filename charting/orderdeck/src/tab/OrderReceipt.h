#pragma once

#include "TradingCenter.h"
#include "charting/orderdeck/interface/RowSight.h"
#include "charting/orderdeck/src/tab/OrderRequest.h"
#include "platform/com_ptr.h"

namespace OV_OrderDeck {

// Quotes as the tab last had them.
struct SKnownQuotes {
    double bid = 0.0;
    double ask = 0.0;
    // Milliseconds since they came; -1 without quotes.
    LONG age = -1;
};

// One order's receipt for a host that asks for it: what was seen and what is sent, before the order, and its
// result after it. Without such a host it does nothing. On the bar's thread.
class COrderReceipt {
public:
    // host may be null. The receipt takes the next number of the process.
    COrderReceipt(com_ptr<ITC_OrderSight> host, const CRowSight& sight, const SOrderRequest& request);

    // False when the host says no, or fails, which is reported.
    bool Before(const CString& feed, const SKnownQuotes& quotes);
    // E_ABORT for an order that was not sent. Nothing unless Before was agreed to.
    void After(HRESULT result);

private:
    com_ptr<ITC_OrderSight> m_host;
    const CRowSight& m_sight;
    const SOrderRequest& m_request;
    LONGLONG m_number = 0;
    bool m_agreed = false;
};

}  // namespace OV_OrderDeck
