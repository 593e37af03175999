// The instruments that this application trades on paper.
#pragma once

#include <deque>
#include <string>
#include <string_view>

namespace host {

// The one data feed that serves the plug-ins of this application.
inline constexpr std::string_view data_feed = "OrderDeck Quotes";

// The numbers are the categories of the lookup's interfaces. Baskets are kept in a table of their own.
enum class instrument_kind { future = 1, stock = 2, option = 3, currency = 6, basket = 18 };

struct instrument {
    int id;
    instrument_kind kind;
    // Texts are UTF-8.
    std::string name;
    std::string root;
    std::string description;
    std::string exchange;
    std::string time_zone;
    std::string currency;
    // Price scale, see price_text.h.
    int scale;
    // Steps of the scale in one tick.
    int min_move;
    // Value of one whole point.
    double point_value;
    double first_price;
    // OLE date, 0.0 for none.
    double expiry = 0.0;
    double strike = 0.0;
    bool put = false;
    // The name of the feed that serves it; empty for none.
    std::string feed{data_feed};

    double tick() const;
    bool operator==(const instrument&) const = default;
};

// What is traded, in the order in which it is shown: a fixed list, and what was adopted since. Elements stay
// where they are.
const std::deque<instrument>& instruments();

// Puts an instrument at the end of the list, unless one of that id is there; gives the one in the list.
// For the thread of the desk.
const instrument& adopt_instrument(const instrument& one);

// By id; null when there is none.
const instrument* find_instrument(int id);

// By name, without regard to the case of ASCII letters; null when there is none.
const instrument* find_instrument(std::string_view name);

// Two names with the same ASCII letters but for their case.
bool same_name(std::string_view a, std::string_view b);

// "Future", "Stock", ...
std::string_view kind_text(instrument_kind kind);

// A plain number for a currency: 1 for USD, 2 for TWD, and so on; 0 for one that is not known.
int currency_code(std::string_view currency);

}  // namespace host
