// Prices as the user reads and writes them, in the English conventions, worked out apart from the component.
#pragma once

#include <optional>
#include <string>

#include "platform/text.h"

namespace monkey {

// The price step of a scale code, -1.0 for a code that has none.
double step_of(LONG code);
// A number with its digits in groups, without decimals.
CString grouped(LONG value);
// To the nearest of the prices that lie so many steps apart; halves go up. Not negative.
double on_grid(double value, LONG code, LONG min_move);
// Rounded to so many steps.
CString price_to_text(double value, LONG code, LONG min_move = 1);
std::optional<double> text_to_price(const CString& text);

}  // namespace monkey
