// The instruments that this application trades on paper.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

enum class instrument_kind { future = 1, stock = 2, option = 3, currency = 6 };

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

    double tick() const;
};

// The fixed list, in the order in which it is shown.
const std::vector<instrument>& instruments();

// By id; null when there is none.
const instrument* find_instrument(int id);

// By name, without regard to the case of ASCII letters; null when there is none.
const instrument* find_instrument(std::string_view name);

// "Future", "Stock", ...
std::string_view kind_text(instrument_kind kind);

// A plain number for a currency: 1 for USD, 2 for TWD; 0 for any other.
int currency_code(std::string_view currency);

}  // namespace host
