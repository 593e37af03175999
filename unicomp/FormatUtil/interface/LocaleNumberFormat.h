#pragma once

#include "platform/number_locale.h"

// The user's number conventions as they were when the module was loaded. A field that the system could
// not give, or whose text is longer than nine characters, is empty.
struct SLocaleNumberFormat {
    CString m_sDecimalSeparator;
    CString m_sGroupSeparator;
    LCID m_nLocale = 0;
    UINT m_nLeadingZero = 0;
    // Group sizes folded into one integer: 3 for "3;0", 32 for "3;2;0".
    UINT m_nGrouping = 0;
    // 0 "(1.1)", 1 "-1.1", 2 "- 1.1", 3 "1.1-", 4 "1.1 -".
    UINT m_nNegativeForm = 0;

    // Reads the user's conventions anew.
    static SLocaleNumberFormat Read();

    // These conventions with the given count of decimals, for one call of the system.
    platform::number_format GetFormat(UINT decimals, bool group) const;

    // What the negative form puts before and behind a number; nothing for a form outside 0 to 4.
    CString GetNegativePrefix() const;
    CString GetNegativeSuffix() const;
    // Text of an absolute value as that of a negative one. A form outside 0 to 4 loses the sign.
    CString MakeNegative(const CString& text) const;

    // Takes the sign off a typed or shown text: the minus or plus in front, and what the negative form puts
    // round or behind a number. Gives whether the text was negative; body is the rest, not trimmed again.
    bool SplitSign(const CString& text, CString& body) const;
};

// The record beside CPriceScale, which inserts group separators itself.
struct SPriceLocaleFormat : SLocaleNumberFormat {
    // As the locale gave it, such as "3;0".
    CString m_sGrouping;
    std::size_t m_nDecimalSeparatorLength = 0;
    std::size_t m_nGroupSeparatorLength = 0;

    static SPriceLocaleFormat Read();
};

// The two records of the module, filled while it loads and constant afterwards; read without a lock.
namespace locale_records {

// The one of local_format::CNumberFormat.
const SLocaleNumberFormat& number();
// The one of CPriceScale.
const SPriceLocaleFormat& price();

// Fills both from the present number_locale. The component never calls it: a user who changes the
// conventions sees the change at the next start. For a test that has put a number_locale of its own in
// place, with no other thread in this folder's code.
void read_again();

}  // namespace locale_records

// Group sizes as the locale gives them, folded into one integer: "3;0" gives 3, "3;2;0" gives 32, and
// "3", which stands for one group only, gives 30.
UINT fold_grouping(const CString& grouping);
