#include "charting/orderdeck/src/tab/Controls/AskBidButton.h"

#include "charting/orderdeck/src/tab/Controls/Usable.h"
#include "charting/orderdeck/src/tab/Tab.h"

namespace OV_OrderDeck {

bool CAskBidButton::get_Enabled() {
    return m_bEnabled && has_symbol(_tab()) && !IsEmpty() && is_connected(_tab());
}

void CAskBidButton::put_Value(const VARIANT& value) {
    BS_REQUIRE(value.vt == VT_R8, DISP_E_TYPEMISMATCH);
    _tab()._apply_price(value.dblVal);
}

bool CAskBidButton::IsEmpty() {
    return m_ask == NoQuote || m_bid == NoQuote;
}

void CAskBidButton::SetQuotes(double ask, double bid) {
    m_ask = ask;
    m_bid = bid;
    m_bEnabled = true;
}

void CAskBidButton::Reset() {
    m_ask = NoQuote;
    m_bid = NoQuote;
    m_bEnabled = false;
}

}  // namespace OV_OrderDeck
