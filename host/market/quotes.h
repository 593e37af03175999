// Simulated market data: a random walk in whole ticks that a seed repeats exactly.
#pragma once

#include <map>
#include <random>

#include "market/instruments.h"

namespace host {

// The best bid and ask with what is to be had there.
struct quote {
    double bid = 0.0;
    double ask = 0.0;
    int bid_size = 0;
    int ask_size = 0;

    bool operator==(const quote&) const = default;
};

class quote_feed {
public:
    // A frozen feed never moves.
    quote_feed(unsigned seed, bool frozen);

    // Begins the walk of an instrument that joined the list; nothing for one that walks already.
    void add(const instrument& one);

    // One step of time. Nothing changes in a frozen feed.
    void tick();

    // The quote of an instrument of the list; throws std::out_of_range for any other id.
    const quote& get(int instrument_id) const { return m_quotes.at(instrument_id); }

private:
    int random(int low, int high);
    void move(const instrument& one, quote& value);
    quote around(const instrument& one, long long bid_ticks, int spread);

    std::mt19937 m_random;
    bool m_frozen;
    std::map<int, quote> m_quotes;
};

}  // namespace host
