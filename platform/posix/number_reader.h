#pragma once

#include <optional>

#include "platform/number_locale.h"

namespace platform {

// Reads a typed number: white space, a sign before or behind or parentheses, digits with group
// separators between them, the decimal separator, an exponent. Nothing when it is no such text, or out of
// a double's range; too small a number is 0.
std::optional<double> read_number(const CString& text, const number_conventions& conventions);

}  // namespace platform
