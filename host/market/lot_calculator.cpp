#include "market/lot_calculator.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

#include "market/instruments.h"

namespace host {
namespace {

constexpr int stock_lot = 100;

std::string with_groups(std::string digits) {
    for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > 0; at -= 3) {
        digits.insert(static_cast<std::size_t>(at), 1, ',');
    }
    return digits;
}

bool usable(double value) {
    return std::isfinite(value) && value > 0.0;
}

}  // namespace

int lot_size(int category) {
    return category == static_cast<int>(instrument_kind::stock) ? stock_lot : 1;
}

std::optional<purchase> buy_lots(double money, double price, int lot) {
    if (!usable(money) || !usable(price) || lot <= 0) {
        return std::nullopt;
    }
    const double one_lot = price * lot;
    const int whole_lots = most_quantity / lot;
    const double most_lots = whole_lots;
    double lots = std::clamp(std::floor(money / one_lot), 0.0, most_lots);
    // A quotient such as 0.3 / 0.1 lies a hair below the whole number that the money does pay for.
    constexpr double hair = 1e-9;
    if (lots < most_lots && (lots + 1.0) * one_lot <= money * (1.0 + hair)) {
        lots += 1.0;
    }
    purchase result;
    result.lots = static_cast<int>(lots);
    result.quantity = result.lots * lot;
    result.cost = lots * one_lot;
    result.left = std::max(0.0, money - result.cost);
    return result;
}

std::optional<double> read_amount(const std::string& text) {
    std::string plain;
    std::copy_if(text.begin(), text.end(), std::back_inserter(plain),
                 [](char one) { return one != ',' && one != ' '; });
    const bool digits = !plain.empty() && plain.find_first_not_of("0123456789.") == std::string::npos;
    double value = 0.0;
    const auto end = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    const bool whole = end.ec == std::errc() && end.ptr == plain.data() + plain.size();
    return digits && whole ? std::optional<double>(value) : std::nullopt;
}

std::string quantity_text(int value) {
    return with_groups(std::to_string(value));
}

std::string amount_text(double value) {
    char buffer[std::numeric_limits<double>::max_exponent10 + 8];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::fixed, 2);
    const std::string text(buffer, end.ptr);
    const std::size_t point = text.find('.');
    return (value < 0.0 ? "-" : "") + with_groups(text.substr(0, point)) + text.substr(point);
}

std::string describe(const std::optional<purchase>& bought, int lot) {
    if (!bought) {
        return "Enter an amount, a price and a lot size.";
    }
    if (bought->lots == 0) {
        return "Not enough for one lot of " + quantity_text(lot) + ".";
    }
    const std::string lots = bought->lots == 1 ? "1 lot" : quantity_text(bought->lots) + " lots";
    return lots + " of " + quantity_text(lot) + " for " + amount_text(bought->cost) + ", " +
           amount_text(bought->left) + " left over.";
}

}  // namespace host
