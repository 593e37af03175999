#include "unicomp/FormatUtil/src/FractionParts.h"

#include "platform/number_text.h"

SFractionParts cut_fraction(const CString& body) {
    const std::size_t bar = body.find(L'/');
    if (bar == CString::npos) {
        return {platform::trim(body), {}, {}};
    }
    SFractionParts parts;
    parts.denominator = platform::trim(body.substr(bar + 1));
    const CString left = platform::trim(body.substr(0, bar));
    const std::size_t blank = left.find(L' ');
    if (blank == CString::npos) {
        parts.numerator = left;
    } else {
        parts.whole = platform::trim(left.substr(0, blank));
        parts.numerator = platform::trim(left.substr(blank + 1));
    }
    return parts;
}
