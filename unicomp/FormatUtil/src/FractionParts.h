#pragma once

#include "platform/text.h"

// A fraction as written: "12 3/32" is "12", "3" and "32". All are trimmed; whole is empty when there is no
// blank before the numerator.
struct SFractionParts {
    CString whole;
    CString numerator;
    CString denominator;
};

// Cuts a text without its sign at the first "/". A text without one is all whole.
SFractionParts cut_fraction(const CString& body);
