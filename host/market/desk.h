// The paper trading desk: one feed, one exchange, one order log.
#pragma once

#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "market/exchange.h"
#include "market/order_log.h"
#include "market/quotes.h"
#include "market/symbol_store.h"
#include "options.h"

namespace host {

// All operations on one thread.
class desk {
public:
    // now gives the local time as an OLE date. Throws std::runtime_error when the order log of the
    // options can't be written.
    desk(const options& settings, std::function<double()> now);

    // Hears of every change of an order; must not place or cancel orders.
    std::function<void(const order&)> on_order = [](const order&) {};
    // Hears what happens at the desk, one line each, UTF-8.
    std::function<void(const std::string&)> on_event = [](const std::string&) {};

    const quote& get_quote(int instrument_id) const { return m_feed.get(instrument_id); }
    const std::vector<order>& orders() const { return m_exchange.orders(); }
    std::vector<order> live_orders(const std::string& profile) const {
        return m_exchange.live_orders(profile);
    }
    double now() const { return m_now(); }

    // Every instrument that may be asked for beyond those that are traded already.
    void use(symbol_store known) { m_known = std::move(known); }
    const symbol_store& known() const { return m_known; }

    // The instrument that the key names, or null. One that was not traded so far is from now on.
    const instrument* find(const symbol_key& key);

    // Writes the order down before anything judges it, then takes it to the exchange. The result is
    // valid until the next order.
    // Of a hundred orders reject_percent are rejected by the broker, as the seed draws them.
    const order& place(const order_request& request, const std::vector<std::string>& accounts,
                       unsigned reject_percent = 0);

    // Writes down what the bar got of the order whose sight had the number.
    void note_result(long long number, long result) { m_log.write_result(number, result); }

    // Writes an order down that can't go to the exchange, and says why.
    void refuse(const order_request& request, const std::string& why);

    void rename_profile(const std::string& from, const std::string& to) {
        m_exchange.rename_profile(from, to);
    }

    bool cancel(int order_id) { return m_exchange.cancel(order_id); }

    // One step of the feed; the exchange gets every quote, and the end of a day that passed.
    void tick();

private:
    std::function<double()> m_now;
    quote_feed m_feed;
    exchange m_exchange;
    order_log m_log;
    symbol_store m_known;
    std::minstd_rand m_broker;
};

// "Buy 3 ESZ6 Limit 6021 1/4 DAY", for people.
std::string describe(const order_request& request);

}  // namespace host
