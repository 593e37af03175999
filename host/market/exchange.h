// A paper exchange. Orders trade with the quotes of a feed, never with each other: what the feed shows
// at the best bid and ask is all there is, until its next quote.
//
// Among the orders of one side a better price goes first, then the older order.
#pragma once

#include <functional>
#include <map>
#include <vector>

#include "market/order.h"
#include "market/quotes.h"

namespace host {

class exchange {
public:
    // now gives the local time as an OLE date. on_change hears of every change of an order,
    // after it, and must not call the exchange.
    exchange(std::function<double()> now, std::function<void(const order&)> on_change);

    // Takes an order for one of the accounts, or rejects it with a reason. The result is the order as it
    // stands after it met the present quote; it is valid until the next order.
    // An order that the broker refuses for a reason of its own is rejected with that.
    const order& place(const order_request& request, const std::vector<std::string>& accounts,
                       const std::string& broker_reason = {});

    // False when there is no such live order.
    bool cancel(int id);

    // A new quote: liquidity is fresh, stops may be touched, resting orders may trade.
    void on_quote(int instrument_id, const quote& value);

    // Ends the orders that do not live on into the present day.
    void end_of_day();

    // The orders of a profile go on under its new name.
    void rename_profile(const std::string& from, const std::string& to);

    // All orders, the oldest first.
    const std::vector<order>& orders() const { return m_orders; }

    std::vector<order> live_orders(const std::string& profile) const;

private:
    void match(int instrument_id);
    void touch_stops(int instrument_id, const quote& value);
    void match_side(int instrument_id, int action, quote& value);
    void trade(order& one, double price, int& available);
    void fill(order& one, double price, int quantity);
    void end(order& one, order_status status, std::string reason);
    int today() const;

    std::function<double()> m_now;
    std::function<void(const order&)> m_on_change;
    std::vector<order> m_orders;
    // What is left of the last quotes.
    std::map<int, quote> m_quotes;
};

}  // namespace host
