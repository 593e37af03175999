#include "market/price_text.h"

#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>

namespace host {
namespace {

struct letter_scale {
    double step;
    // 0 shows plain decimals.
    int denominator;
};

// From a to z.
constexpr std::array<letter_scale, 26> letters{{
    {10000, 0},      {1000, 0},   {100, 0},        {10, 0},         {1, 0},           {0.5, 2},
    {0.25, 4},       {0.125, 8},  {0.1, 0},        {0.0625, 16},    {0.03125, 32},    {0.015625, 64},
    {0.01, 0},       {0.001, 0},  {0.0001, 0},     {0.00001, 0},    {0.0078125, 128}, {0.00390625, 256},
    {0.003125, 32},  {0.025, 10}, {0.0078125, 32}, {0.0015625, 64}, {0.000001, 0},    {0.015625, 32},
    {0.0078125, 64}, {0.001, 0},
}};

const letter_scale* find_letter(int scale) {
    if (scale < 0 || scale > 127 || std::isalpha(scale) == 0) {
        return nullptr;
    }
    return &letters[static_cast<std::size_t>(std::tolower(scale) - 'a')];
}

std::string decimals_text(double value, int digits) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", digits, value);
    return text.data();
}

// As many decimals as the number needs, no more.
std::string short_text(double value) {
    std::string text = decimals_text(value, 6);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
    return text;
}

int decimals_of(double step) {
    int digits = 0;
    for (double unit = 1.0; digits < 9 && std::abs(step - std::round(step / unit) * unit) > unit * 1e-6;
         unit /= 10.0) {
        ++digits;
    }
    return digits;
}

std::string fraction_text(double price, int denominator) {
    const double whole = std::floor(price);
    const double part = (price - whole) * denominator;
    if (part == 0.0) {
        return short_text(whole);
    }
    const std::string fraction = short_text(part) + "/" + std::to_string(denominator);
    return whole == 0.0 ? fraction : short_text(whole) + " " + fraction;
}

}  // namespace

double scale_step(int scale) {
    if (scale >= 0 && scale <= 9) {
        return std::pow(10.0, -scale);
    }
    const letter_scale* letter = find_letter(scale);
    return letter == nullptr ? 0.0 : letter->step;
}

std::string price_text(double price, int scale) {
    if (price < 0.0) {
        return std::string(1, '-').append(price_text(-price, scale));
    }
    const letter_scale* letter = find_letter(scale);
    if (letter == nullptr) {
        return decimals_text(price, scale >= 0 && scale <= 9 ? scale : 0);
    }
    return letter->denominator == 0 ? decimals_text(price, decimals_of(letter->step))
                                    : fraction_text(price, letter->denominator);
}

long long to_ticks(double price, double tick) {
    return std::llround(price / tick);
}

bool on_grid(double price, double tick) {
    const double ticks = price / tick;
    return std::abs(ticks - std::round(ticks)) < 1e-6;
}

}  // namespace host
