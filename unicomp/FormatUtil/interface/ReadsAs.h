#pragma once

#include <optional>

#include "platform/com.h"
#include "platform/text.h"

struct SPriceLocaleFormat;
class CPriceToString;

// What a shown text reads as to a person, in the user's conventions as read at load: one value, or none
// for a text that is no number or could be more than one. Much stricter than parsing, which takes whatever
// the system makes a number of. Pure functions, on the window's thread.
namespace local_format {

// The sign in the locale's negative form only; digits, either not grouped or grouped exactly as the locale
// groups them, with one decimal separator at most; or a whole and a fraction, whose numerator, which may
// have decimals, is below its denominator. Blanks stand outside, or between whole and fraction. No plus, no
// exponent, no letters.
std::optional<double> PriceReadsAs(const CString& text);
// The same in the given conventions.
std::optional<double> PriceReadsAs(const CString& text, const SPriceLocaleFormat& record);

// Digits, grouped or not, or the abbreviated form with one decimal at most ("1.5K", "0.1M"). From 0 to
// 2147483646; blanks may stand outside, a sign may not.
std::optional<LONG> QuantityReadsAs(const CString& text);

// Whether two prices are one and the same but for what calculating leaves in the last places: a millionth
// of a tick, or four units in the last place. A tick that is not above 0 counts for nothing.
bool IsSamePrice(double left, double right, double tick);

// A price in the form of its scale where that reads as the price itself, and in plain digits where the scale
// can't show it exactly.
CString ExactPriceText(const CPriceToString& format, double price);

}  // namespace local_format
