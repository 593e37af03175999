// The way from a price to its text.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "platform/number_text.h"
#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"

namespace {

constexpr LONG no_scale = -1;
constexpr UINT most_decimals = 9;
// One tenth of the largest double: deliberate, every larger price shows the same text.
constexpr double largest_shown = 1.7976931348623158e+307;
// Beyond it there are neither steps nor fractions.
constexpr double largest_on_grid = 1e10;
constexpr double first_in_exponent_form = 1e15;

CString plain_text(double value) {
    return platform::port<platform::number_locale>::get().double_to_text(value);
}

// The digits as the program writes them: "." and no groups, never a negative zero.
std::string plain_digits(double value, UINT decimals) {
    const bool exponent_form = value >= first_in_exponent_form || value <= -first_in_exponent_form;
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   exponent_form ? std::chars_format::scientific : std::chars_format::fixed,
                                   static_cast<int>(decimals));
    std::string text(buffer.data(), end.ptr);
    if (text.find_first_of("123456789") == std::string::npos && text.front() == '-') {
        text.erase(0, 1);
    }
    return text;
}

UINT trailing_zeros(const std::string& text) {
    UINT zeros = 0;
    for (std::size_t i = text.size() - 1; i > 0 && text[i] == '0'; --i) {
        ++zeros;
    }
    return zeros;
}

CString widen(const std::string& text) {
    return {text.begin(), text.end()};
}

// What stands in when the system can't format the digits, such as those in exponent form.
CString unformatted(const CString& digits, const SLocaleNumberFormat& record) {
    CString body;
    const bool negative = record.SplitSign(digits, body);
    const std::size_t point = body.find(L'.');
    if (point != CString::npos) {
        body.replace(point, 1, record.m_sDecimalSeparator);
    }
    return negative ? record.MakeNegative(body) : body;
}

std::size_t end_of_first_digits(const CString& text) {
    std::size_t at = std::min(text.find_first_not_of(L" -("), text.size());
    while (at < text.size() && platform::is_digit(text[at])) {
        ++at;
    }
    return at;
}

// Group sizes from the right; 0 repeats the one before it for as long as there are digits.
CString with_groups(CString text, const SPriceLocaleFormat& record) {
    std::size_t position = end_of_first_digits(text);
    const auto insert = [&](std::size_t size) {
        if (position <= size) {
            return false;
        }
        position -= size;
        text.insert(position, record.m_sGroupSeparator);
        return true;
    };
    std::size_t last = 0;
    std::size_t at = 0;
    while (at < record.m_sGrouping.size()) {
        const std::size_t end = std::min(record.m_sGrouping.find(L';', at), record.m_sGrouping.size());
        std::size_t size = 0;
        for (; at < end && platform::is_digit(record.m_sGrouping[at]); ++at) {
            size = size * 10 + static_cast<std::size_t>(record.m_sGrouping[at] - L'0');
        }
        at = end + 1;
        if (size == 0) {
            while (last != 0 && insert(last)) {
            }
            break;
        }
        last = size;
        if (!insert(size)) {
            break;
        }
    }
    return text;
}

}  // namespace

CString CPriceScale::Format(double value, bool group, LONG minMove) const {
    const double shown = std::clamp(value, -largest_shown, largest_shown);
    if (std::fabs(shown) > largest_on_grid) {
        return DecimalText(shown, group);
    }
    const double price = Round(std::fabs(shown), minMove);
    const bool negative = shown < 0.0;
    if (GetDenominator() == 0) {
        return DecimalText(negative ? -price : price, group);
    }
    return FractionText(price, group, negative);
}

CString CPriceScale::FractionText(double price, bool group, bool negative) const {
    if (price == 0.0) {
        return L"0";
    }
    const SPriceLocaleFormat& record = locale_records::price();
    const double denominator = GetDenominator();
    const double whole = std::floor(price);
    // Snapped with the price's own step, so a numerator may carry decimals.
    const double numerator = Round((price - whole) * denominator, 1);
    CString text;
    if (whole != 0.0) {
        text = group ? with_groups(plain_text(whole), record) : plain_text(whole);
    }
    if (numerator != 0.0) {
        if (!text.empty()) {
            text += L' ';
        }
        text += plain_text(numerator) + L"/" + plain_text(denominator);
    }
    if (text.empty()) {
        text = L"0";
    }
    return negative ? record.MakeNegative(text) : text;
}

CString CPriceScale::DecimalText(double value, bool group) const {
    const SPriceLocaleFormat& record = locale_records::price();
    UINT decimals = std::min(GetDigits(), most_decimals);
    const std::string digits = plain_digits(value, decimals);
    if (m_nCode == no_scale) {
        decimals -= std::min(decimals, trailing_zeros(digits));
    }
    const CString text = widen(digits);
    const std::optional<CString> shown =
        platform::port<platform::number_locale>::get().format_number(text, record.GetFormat(decimals, group));
    return shown ? *shown : unformatted(text, record);
}
