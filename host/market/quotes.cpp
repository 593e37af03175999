#include "market/quotes.h"

#include <algorithm>

#include "market/price_text.h"

namespace host {

quote_feed::quote_feed(unsigned seed, bool frozen) : m_random(seed), m_frozen(frozen) {
    for (const instrument& one : instruments()) {
        add(one);
    }
}

void quote_feed::add(const instrument& one) {
    if (!m_quotes.contains(one.id)) {
        m_quotes[one.id] = around(one, to_ticks(one.first_price, one.tick()), 1);
    }
}

void quote_feed::tick() {
    if (m_frozen) {
        return;
    }
    for (const instrument& one : instruments()) {
        const auto found = m_quotes.find(one.id);
        if (found != m_quotes.end()) {
            move(one, found->second);
        }
    }
}

// Taken from the generator by hand: what the standard's distributions give differs between libraries.
int quote_feed::random(int low, int high) {
    return low + static_cast<int>(m_random() % static_cast<unsigned>(high - low + 1));
}

void quote_feed::move(const instrument& one, quote& value) {
    // An instrument stands still half of the time, as most do.
    if (random(0, 1) == 0) {
        return;
    }
    const long long bid = to_ticks(value.bid, one.tick()) + random(-1, 1);
    value = around(one, std::max(bid, 1LL), random(1, 2));
}

quote quote_feed::around(const instrument& one, long long bid_ticks, int spread) {
    const double tick = one.tick();
    const int lot = one.kind == instrument_kind::stock ? 100 : 1;
    quote value;
    value.bid = static_cast<double>(bid_ticks) * tick;
    value.ask = static_cast<double>(bid_ticks + spread) * tick;
    value.bid_size = random(1, 40) * lot;
    value.ask_size = random(1, 40) * lot;
    return value;
}

}  // namespace host
