#include "tests/monkey/price_model.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <map>

namespace monkey {

namespace {

struct letter {
    double step;
    int denominator;
};

// 'a' to 'z'.
constexpr std::array<letter, 26> letters = {
    {{10000, 0},      {1000, 0},   {100, 0},        {10, 0},         {1, 0},           {0.5, 2},
     {0.25, 4},       {0.125, 8},  {0.1, 0},        {0.0625, 16},    {0.03125, 32},    {0.015625, 64},
     {0.01, 0},       {0.001, 0},  {0.0001, 0},     {0.00001, 0},    {1.0 / 128, 128}, {1.0 / 256, 256},
     {1.0 / 320, 32}, {0.025, 10}, {1.0 / 128, 32}, {1.0 / 640, 64}, {0.000001, 0},    {1.0 / 64, 32},
     {1.0 / 128, 64}, {0.001, 0}}};

constexpr std::array<double, 10> decimals = {1,       0.1,      0.01,      0.001,      0.0001,
                                             0.00001, 0.000001, 0.0000001, 0.00000001, 0.000000001};

const letter* letter_of(LONG code) {
    const LONG lower = code >= 'A' && code <= 'Z' ? code - 'A' + 'a' : code;
    return lower >= 'a' && lower <= 'z' ? &letters[static_cast<std::size_t>(lower - 'a')] : nullptr;
}

int digits_of(LONG code) {
    if (code == -1) {
        return 9;
    }
    if (code >= 0 && code <= 9) {
        return static_cast<int>(code);
    }
    const letter* const row = letter_of(code);
    int digits = 0;
    // As many as it takes to tell one step from the next.
    for (double power = 1.0; row != nullptr && power < 1.0 / row->step; power *= 10.0) {
        ++digits;
    }
    return digits;
}

CString wide(const std::string& text) {
    return {text.begin(), text.end()};
}

// Commas between the digits that stand before the decimal point.
std::string with_groups(std::string text) {
    const std::size_t sign = text.front() == '-' ? 1 : 0;
    const std::size_t point = text.find_first_not_of("0123456789", sign);
    std::size_t at = point == std::string::npos ? text.size() : point;
    while (at > sign + 3) {
        at -= 3;
        text.insert(at, 1, ',');
    }
    return text;
}

std::string fixed(double value, int digits) {
    std::array<char, 400> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.*f", digits, value);
    return buffer.data();
}

std::string shortest(double value) {
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.15g", value);
    return buffer.data();
}

std::string decimal_text(double value, LONG code) {
    std::string text = fixed(value, digits_of(code));
    if (code == -1) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') {
            text.pop_back();
        }
    }
    return with_groups(text);
}

// The price is on the grid.
std::string fraction_text(double price, LONG code, int denominator) {
    const double whole = std::floor(price);
    const double numerator = on_grid((price - whole) * denominator, code, 1);
    std::string text;
    if (whole != 0.0) {
        text = with_groups(shortest(whole));
    }
    if (numerator != 0.0) {
        text += (text.empty() ? "" : " ") + shortest(numerator) + "/" + std::to_string(denominator);
    }
    return text.empty() ? "0" : text;
}

std::optional<double> number(CString text) {
    text.erase(0, std::min(text.find_first_not_of(L' '), text.size()));
    text.erase(text.find_last_not_of(L' ') + 1);
    std::string plain;
    for (const wchar_t c : text) {
        if (c != L',') {
            plain += c < 128 ? static_cast<char>(c) : '?';
        }
    }
    double value = 0.0;
    const auto end = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    const bool whole = end.ec == std::errc() && end.ptr == plain.data() + plain.size();
    return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

CString trimmed(CString text) {
    text.erase(0, std::min(text.find_first_not_of(L' '), text.size()));
    text.erase(text.find_last_not_of(L' ') + 1);
    return text;
}

bool only(const CString& text, const CString& allowed) {
    return text.find_first_not_of(allowed) == CString::npos;
}

// A fraction without its sign.
std::optional<double> fraction(const CString& body) {
    const std::size_t slash = body.find(L'/');
    const CString left = trimmed(body.substr(0, slash));
    const CString denominator = trimmed(body.substr(slash + 1));
    const std::size_t blank = left.find(L' ');
    const CString whole = blank == CString::npos ? CString() : trimmed(left.substr(0, blank));
    const CString numerator = blank == CString::npos ? left : trimmed(left.substr(blank + 1));
    if (!only(whole, L"0123456789,") || !only(numerator, L"0123456789.") ||
        !only(denominator, L"0123456789")) {
        return std::nullopt;
    }
    const std::optional<double> w = whole.empty() ? 0.0 : number(whole);
    const std::optional<double> n = number(numerator);
    const std::optional<double> d = number(denominator);
    if (!w || !n || !d || *d == 0.0) {
        return std::nullopt;
    }
    return *n / *d + *w;
}

}  // namespace

double step_of(LONG code) {
    if (code >= 0 && code <= 9) {
        return decimals[static_cast<std::size_t>(code)];
    }
    const letter* const row = letter_of(code);
    return row != nullptr ? row->step : -1.0;
}

double on_grid(double value, LONG code, LONG min_move) {
    const double step = step_of(code);
    if (step < 0.0) {
        return value;
    }
    const double steps = value / step;
    const double below = std::floor(std::floor(steps) / min_move) * min_move;
    const double above = below + min_move;
    return (steps - below >= above - steps ? above : below) * step;
}

CString grouped(LONG value) {
    return wide(with_groups(std::to_string(value)));
}

CString price_to_text(double value, LONG code, LONG min_move) {
    const letter* const row = letter_of(code);
    const double size = on_grid(std::fabs(value), code, min_move);
    const std::string text = row != nullptr && row->denominator != 0
                                 ? fraction_text(size, code, row->denominator)
                                 : decimal_text(size, code);
    const bool zero = text.find_first_not_of("0.,") == std::string::npos;
    return wide(value < 0.0 && !zero ? "-" + text : text);
}

std::optional<double> text_to_price(const CString& text) {
    if (text.find(L'/') == CString::npos) {
        return number(text);
    }
    CString body = trimmed(text);
    const bool negative = body.front() == L'-';
    if (negative || body.front() == L'+') {
        body.erase(0, 1);
    }
    const std::optional<double> size = fraction(body);
    return size ? std::optional(negative ? -*size : *size) : std::nullopt;
}

}  // namespace monkey
