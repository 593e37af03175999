// Quantities as the user reads them.
#include "unicomp/FormatUtil/interface/NumberFormat.h"
#include "unicomp/FormatUtil/src/QuantityLetters.h"

namespace local_format {
namespace {

constexpr LONG million = 1000000;
constexpr LONG thousand = 1000;

CString abbreviated(LONG value, LONG unit, const CString& letter) {
    const CString number = value % unit == 0 ? CNumberFormat::IntegerToText(value / unit)
                                             : CNumberFormat::DoubleToText(value / static_cast<double>(unit));
    return number + letter;
}

}  // namespace

CString CNumberFormat::QuantityToText(LONG value) {
    if (value == 0) {
        return IntegerToText(value);
    }
    // Tenth millions win over whole thousands: 100000 is "0.1M".
    if (value % (million / 10) == 0) {
        return abbreviated(value, million, millions_letter());
    }
    if (value % (thousand / 10) == 0 && (value >= thousand || value <= -thousand)) {
        return abbreviated(value, thousand, thousands_letter());
    }
    return IntegerToText(value);
}

}  // namespace local_format
