// How this application shows prices. A price scale is a whole number: 0 to 9 for so many decimals, or
// the character code of a letter from a to z that names a step and, for fractions, a denominator.
#pragma once

#include <string>

namespace host {

// The step of one scale; 0.0 for a code that names none.
double scale_step(int scale);

// The text of a price that lies on the scale's grid: "6021.25", "117 12/32", "108 20.5/32".
std::string price_text(double price, int scale);

// The nearest whole number of ticks. A tick is min_move steps of the scale.
long long to_ticks(double price, double tick);

// Whether the price is a whole number of ticks, but for the noise of binary fractions.
bool on_grid(double price, double tick);

}  // namespace host
