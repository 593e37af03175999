// How much a sum of money buys.
#pragma once

#include <optional>
#include <string>

namespace host {

// The largest quantity of an order.
inline constexpr int most_quantity = 1000000000;

// Units in one lot of a category of instruments, see instrument_kind: stocks are dealt in hundreds.
int lot_size(int category);

struct purchase {
    // Whole lots, at most most_quantity.
    int quantity = 0;
    int lots = 0;
    double cost = 0.0;
    double left = 0.0;
};

// As many whole lots as the money pays for; 0 lots when it pays for none. Nothing unless all three are
// above zero and finite.
std::optional<purchase> buy_lots(double money, double price, int lot);

// A number as people type it: digits, one ".", "," between groups. Nothing for any other text.
std::optional<double> read_amount(const std::string& text);

// Groups of three, "1,234".
std::string quantity_text(int value);

// Two decimals and groups of three, "1,234.50".
std::string amount_text(double value);

// The purchase in one line, or what is missing.
std::string describe(const std::optional<purchase>& bought, int lot);

}  // namespace host
