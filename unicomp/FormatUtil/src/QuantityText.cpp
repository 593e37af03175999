// Quantities as the user reads them.
#include "unicomp/FormatUtil/interface/NumberFormat.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace local_format {
namespace {

constexpr UINT thousands_string = 109;
constexpr UINT millions_string = 110;
constexpr LONG million = 1000000;
constexpr LONG thousand = 1000;

// Loaded on first use and kept for the life of the process.
const CString& thousands_letter() {
    static const CString text = resource_string::text(thousands_string);
    return text;
}

const CString& millions_letter() {
    static const CString text = resource_string::text(millions_string);
    return text;
}

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
