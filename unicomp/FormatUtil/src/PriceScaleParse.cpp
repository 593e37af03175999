// The way from a typed text to a price.
#include <optional>

#include "platform/number_text.h"
#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"
#include "unicomp/FormatUtil/src/FractionParts.h"

namespace {

std::optional<double> to_double(const CString& text) {
    return platform::port<platform::number_locale>::get().text_to_double(text);
}

bool starts_with(const CString& text, std::size_t at, const CString& part) {
    return !part.empty() && text.compare(at, part.size(), part) == 0;
}

bool is_digits(const CString& text) {
    for (const wchar_t character : text) {
        if (!platform::is_digit(character)) {
            return false;
        }
    }
    return true;
}

bool is_grouped_digits(const CString& text, const SPriceLocaleFormat& record) {
    for (std::size_t at = 0; at < text.size();) {
        if (platform::is_digit(text[at])) {
            ++at;
        } else if (starts_with(text, at, record.m_sGroupSeparator)) {
            at += record.m_nGroupSeparatorLength;
        } else {
            return false;
        }
    }
    return true;
}

// Digits with one decimal separator, or one "," in its place.
bool is_numerator(const CString& text, const SPriceLocaleFormat& record) {
    bool separated = false;
    for (std::size_t at = 0; at < text.size();) {
        if (platform::is_digit(text[at])) {
            ++at;
            continue;
        }
        const bool separator = starts_with(text, at, record.m_sDecimalSeparator);
        if (separated || (!separator && text[at] != L',')) {
            return false;
        }
        separated = true;
        at += separator ? record.m_nDecimalSeparatorLength : 1;
    }
    return true;
}

}  // namespace

bool CPriceScale::Parse(const CString& text, double& value) const {
    if (text.find(L'/') == CString::npos) {
        const std::optional<double> number = to_double(text);
        value = number.value_or(value);
        return number.has_value();
    }
    const SPriceLocaleFormat& record = locale_records::price();
    CString body;
    const bool negative = record.SplitSign(text, body);
    const SFractionParts parts = cut_fraction(body);
    if (!is_grouped_digits(parts.whole, record) || !is_numerator(parts.numerator, record) ||
        !is_digits(parts.denominator)) {
        return false;
    }
    const std::optional<double> whole = parts.whole.empty() ? 0.0 : to_double(parts.whole);
    const std::optional<double> numerator = to_double(parts.numerator);
    const std::optional<double> denominator = to_double(parts.denominator);
    if (!whole || !numerator || !denominator || *denominator == 0.0) {
        return false;
    }
    const double price = *numerator / *denominator + *whole;
    value = negative ? -price : price;
    return true;
}
