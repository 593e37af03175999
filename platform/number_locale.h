#pragma once

#include <optional>

#include "platform/port.h"
#include "platform/text.h"

namespace platform {

// The user's number conventions, as the system's locale gives them. A field that can't be read stays
// empty.
struct number_conventions {
    CString decimal_separator;
    CString group_separator;
    // Group sizes as text, such as "3;0" or "3;2;0".
    CString grouping;
    LCID locale = 0;
    // 1: "0.5", 0: ".5".
    UINT leading_zero = 0;
    // 0 "(1.1)", 1 "-1.1", 2 "- 1.1", 3 "1.1-", 4 "1.1 -".
    UINT negative_form = 0;
};

// How a plain number text is to be shown.
struct number_format {
    // 0 to 9.
    UINT decimals = 0;
    UINT leading_zero = 1;
    // Group sizes folded into one integer: 3 for "3;0", 32 for "3;2;0", 30 for one group only, 0 for no
    // grouping.
    UINT grouping = 3;
    CString decimal_separator;
    CString group_separator;
    // 0 to 4.
    UINT negative_form = 1;
    LCID locale = 0;
};

// Numbers as text in the user's locale. Any thread. Operations throw std::bad_alloc or _com_error for
// want of memory only.
class number_locale {
public:
    virtual ~number_locale() = default;

    // Read anew at each call.
    virtual number_conventions user_conventions() = 0;

    // A plain number text ("-1234.5": optional minus, digits, optional "." and digits) in the given
    // format, rounded half away from zero to its decimals. The result has a digit at least and is never a
    // negative zero. Nothing when the text is not a plain number, when the decimals or the negative form
    // are out of range, or when the result exceeds 254 characters.
    virtual std::optional<CString> format_number(const CString& text, const number_format& format) = 0;

    // The shortest text of a double in the user's locale, up to 15 significant digits, exponents with
    // at least two digits ("1E+15"). Never a negative zero. What is no number has the system's own text.
    virtual CString double_to_text(double value) = 0;

    // A text in the user's locale as a double, always finite: blanks, a sign on either side, parentheses,
    // group separators, exponent. Nothing when it is no number or out of range.
    virtual std::optional<double> text_to_double(const CString& text) = 0;
};

template <>
number_locale& port<number_locale>::system();

}  // namespace platform
