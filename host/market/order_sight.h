// What the user saw when he pressed Buy or Sell.
#pragma once

#include <optional>
#include <string>

namespace host {

namespace press_source {
inline constexpr int mouse = 1;
inline constexpr int key = 2;
inline constexpr int program = 3;
}  // namespace press_source

// Texts as they stood on the screen, UTF-8; one that was not shown is not there.
struct order_sight {
    // Never used twice by one bar.
    long long number = 0;
    // UTC, milliseconds since 1970.
    long long milliseconds = 0;
    int source = 0;
    std::optional<std::string> symbol;
    std::optional<std::string> order_type;
    std::optional<std::string> quantity;
    std::optional<std::string> stop_price;
    std::optional<std::string> limit_price;
    std::optional<std::string> account;
    std::optional<std::string> time_in_force;
    std::optional<std::string> date;
    std::optional<std::string> button;
    double bid = 0.0;
    double ask = 0.0;
    // Milliseconds since the quotes came; -1 without quotes.
    int quote_age = -1;
};

// The shown texts in the order of the row, for people: "ESZ6 | 限價單 | 1.5K | 101.25 | A1 | DAY".
std::string sight_text(const order_sight& seen);

}  // namespace host
