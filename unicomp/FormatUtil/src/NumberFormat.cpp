#include "unicomp/FormatUtil/interface/NumberFormat.h"

#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <string>

#include "diagnostics/BugSlayerUtil.h"
#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"

namespace local_format {

CString CNumberFormat::_make(std::string_view text, bool plusSign, UINT numDigits) {
    const std::optional<CString> result = platform::port<platform::number_locale>::get().format_number(
        CString(text.begin(), text.end()), locale_records::number().GetFormat(numDigits, true));
    if (!result) {
        // The name is told in full: a bare "_make" would say nothing in a log.
        BugSlayerUtil::assertion(
            {__FILE__, __LINE__, "local_format::CNumberFormat::_make", __PRETTY_FUNCTION__}, "iRes > 0");
    }
    return (plusSign ? L"+" : L"") + result.value_or(CString());
}

CString CNumberFormat::IntegerToText(LONG value) {
    return _make(std::to_string(value), false, 0);
}

CString CNumberFormat::DoubleToText(double value) {
    std::array<char, std::numeric_limits<double>::max_exponent10 + 16> buffer{};
    constexpr int decimals = 6;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, decimals);
    return _make({buffer.data(), end.ptr}, false, 1);
}

}  // namespace local_format
