#pragma once

#include <string_view>

#include "platform/com.h"
#include "platform/text.h"

namespace local_format {

// Numbers in the user's conventions as read at load. Used on the window's thread.
class CNumberFormat {
public:
    // "1,234": grouped, no decimals.
    static CString IntegerToText(LONG value);
    // "1,234.5": grouped, one decimal.
    static CString DoubleToText(double value);
    // The quantity as shown: whole or tenth millions and thousands are abbreviated ("1.2M", "1.5K"),
    // everything else is grouped digits.
    static CString QuantityToText(LONG value);

    // A plain number text ("-1234.5") with the given count of decimals, "+" in front if asked for. A text
    // that the system can't format is reported as an assertion and gives an empty text.
    static CString _make(std::string_view text, bool plusSign, UINT numDigits);
};

}  // namespace local_format
