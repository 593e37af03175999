#pragma once

#include <limits>

#include "charting/orderdeck/src/tab/Controls/UnifyControlImpl.h"

namespace OV_OrderDeck {

// The last quotes. Shows exactly what the last event said; the prices change only when the user picks a
// quote.
class CAskBidButton : public CUnifyControlImpl<IAskBidCtrl> {
public:
    static constexpr double NoQuote = std::numeric_limits<double>::max();

    bool get_Enabled() override;
    // VT_R8: the picked quote goes into the prices. Throws _com_error (DISP_E_TYPEMISMATCH) for any other
    // type.
    void put_Value(const VARIANT& value) override;
    bool IsEmpty() override;
    double get_Ask() override { return m_ask; }
    double get_Bid() override { return m_bid; }

    // For the tab.
    void SetQuotes(double ask, double bid);
    // No quotes, and not usable until there are some.
    void Reset();

private:
    double m_ask = NoQuote;
    double m_bid = NoQuote;
};

}  // namespace OV_OrderDeck
