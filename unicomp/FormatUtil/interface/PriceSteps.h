#pragma once

#include <array>

#include "platform/com.h"

// One letter code: its price step, and the denominator in which its fractions are shown. 0 marks a letter
// whose text is plain decimal.
struct SPriceLetter {
    double step;
    LONG denominator;
};

// The letters a to z in order. Rows n and z are equal, and q and y share a step under different
// denominators, on purpose: symbols arrive with any of them. Rows s, t, u, v, x and y have steps finer than
// one over the denominator, so their numerators carry decimals.
inline constexpr std::array<SPriceLetter, 26> price_letters{{
    {10000.0, 0},    {1000.0, 0}, {100.0, 0},      {10.0, 0},       {1.0, 0},         {0.5, 2},
    {0.25, 4},       {0.125, 8},  {0.1, 0},        {0.0625, 16},    {0.03125, 32},    {0.015625, 64},
    {0.01, 0},       {0.001, 0},  {0.0001, 0},     {0.00001, 0},    {0.0078125, 128}, {0.00390625, 256},
    {0.003125, 32},  {0.025, 10}, {0.0078125, 32}, {0.0015625, 64}, {0.000001, 0},    {0.015625, 32},
    {0.0078125, 64}, {0.001, 0},
}};

// The row of a letter code, in either case; null for any other code.
constexpr const SPriceLetter* find_price_letter(LONG code) {
    if (code >= 'a' && code <= 'z') {
        return &price_letters[static_cast<std::size_t>(code - 'a')];
    }
    if (code >= 'A' && code <= 'Z') {
        return &price_letters[static_cast<std::size_t>(code - 'A')];
    }
    return nullptr;
}

// The step as it goes to the host with an order: a letter's own, 0.0 for every other code. Deliberate for
// decimal codes too: hosts rely on getting 0.0 for them.
constexpr double order_price_step(LONG code) {
    const SPriceLetter* const letter = find_price_letter(code);
    return letter != nullptr ? letter->step : 0.0;
}
