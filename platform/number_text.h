#pragma once

#include <optional>

#include "platform/text.h"

// What both systems' number_locale and the price text have in common. Pure functions, any thread.
namespace platform {

// White space of any script, the no-break spaces that some locales put between groups included.
bool is_white_space(wchar_t character);
// An ASCII digit.
bool is_digit(wchar_t character);
CString trim(const CString& text);

// A plain number text, taken apart: "-0012.50" is negative with "12" and "50".
struct plain_number {
    bool negative = false;
    // No leading zeros; empty for 0.
    CString whole;
    CString fraction;
};

// An optional minus, digits, an optional "." and digits, with a digit at least. Nothing for any other
// text, such as one in exponent form.
std::optional<plain_number> parse_plain_number(const CString& text);

// Rounds to the given decimals, half away from zero by the digits as they stand. The fraction then has
// exactly that many; a number without any digit but 0 is no longer negative.
plain_number round_plain_number(const plain_number& number, UINT decimals);

// Digits with separators. Sizes are folded into one integer, the first digit being the rightmost group;
// the last size repeats, unless it is 0, which ends the grouping.
CString group_digits(const CString& digits, UINT grouping, const CString& separator);

}  // namespace platform
