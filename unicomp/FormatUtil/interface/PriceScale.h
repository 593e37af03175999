#pragma once

#include "platform/com.h"
#include "platform/text.h"

// Price arithmetic and price text of one PriceScaleCode: -1 no scale, 0 to 9 decimals, a letter (character
// code, either case) a row of the letter table, anything else no known step. Immutable; text follows the
// locale record read at load. Used on the window's thread.
class CPriceScale {
public:
    explicit CPriceScale(LONG code) : m_nCode(code) {}

    // The text of a price, snapped to the multiple of the step. Never fails: what the system can't format
    // comes as plain digits.
    CString Format(double value, bool group, LONG minMove) const;
    // Grouped, in the given multiple of the step.
    CString ToText(double value, LONG minMove) const { return Format(value, true, minMove); }
    // Not grouped, on the step itself.
    CString ToPlainText(double value) const { return Format(value, false, 1); }

    // A typed price. Fractions such as "12 3/32" are understood under every code. False leaves the value
    // alone.
    bool Parse(const CString& text, double& value) const;

    // The nearest price on the grid of minMove steps, ties away from zero; the value itself when the code
    // has no step. A minMove below 1 counts as 1.
    double Round(double value, LONG minMove) const;

    // Decimals of the code's text: 9 at most.
    UINT GetDigits() const;
    // The denominator in which fractions are shown; 0 for every code that shows decimals.
    LONG GetDenominator() const;
    // The price step, times the symbol's minimum movement in steps. For a code with no step the factor is
    // -1.0, and callers receive that negative value.
    double GetStep(double minMovement = 1.0) const;

    // Cuts a shown price: "-12 3/32" gives "12", "3", "32" and the prefix "-". A text without "/" is all
    // whole. Prefix and suffix are those of the locale's negative form, empty unless the text is negative.
    void SplitPrice(const CString& text, CString& whole, CString& numerator, CString& denominator,
                    CString& prefix, CString& suffix) const;
    // The text's width in characters, as a window needs it: its length, or for a fraction code that of its
    // pieces and one for the bar.
    LONG GetTextWidthInChars(const CString& text) const;

private:
    CString DecimalText(double value, bool group) const;
    CString FractionText(double price, bool group, bool negative) const;

    LONG m_nCode;
};
