#include "unicomp/FormatUtil/interface/ReadsAs.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "platform/number_locale.h"
#include "platform/number_text.h"
#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"
#include "unicomp/FormatUtil/interface/PriceToString.h"
#include "unicomp/FormatUtil/src/QuantityLetters.h"

namespace local_format {
namespace {

using view = std::wstring_view;

// 0x7FFFFFFF stands for no quantity.
constexpr LONGLONG most = std::numeric_limits<LONG>::max() - 1;
constexpr std::size_t longest_quantity = 10;
constexpr double part_of_tick = 1e-6;
constexpr double last_places = 4.0;

view without_blanks_outside(view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    return first == view::npos ? view() : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

bool are_digits(view text) {
    return std::all_of(text.begin(), text.end(), platform::is_digit);
}

std::string narrow(view digits) {
    return {digits.begin(), digits.end()};
}

// The number of a digits text with one "." at most; nothing beyond the range of numbers.
std::optional<double> number_of(const std::string& text) {
    double value = 0.0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return end.ec == std::errc() && end.ptr == text.data() + text.size() ? std::optional<double>(value)
                                                                         : std::nullopt;
}

// The digits of a whole number that is not grouped, or grouped exactly as the locale does it. Nothing else;
// no digits at all are taken too.
std::optional<std::string> whole_digits(view text, const SLocaleNumberFormat& record) {
    if (are_digits(text)) {
        return narrow(text);
    }
    const CString& separator = record.m_sGroupSeparator;
    if (separator.empty()) {
        return std::nullopt;
    }
    CString digits(text);
    for (std::size_t at = digits.find(separator); at != CString::npos; at = digits.find(separator, at)) {
        digits.erase(at, separator.size());
    }
    if (!are_digits(digits) || platform::group_digits(digits, record.m_nGrouping, separator) != text) {
        return std::nullopt;
    }
    return narrow(digits);
}

// Where one mark parts both groups and decimals, a text that holds it can be either number.
bool is_ambiguous(view text, const SLocaleNumberFormat& record) {
    const CString& separator = record.m_sDecimalSeparator;
    return !separator.empty() && separator == record.m_sGroupSeparator && text.find(separator) != view::npos;
}

struct decimal_digits {
    std::string whole;
    std::string fraction;
};

// What stands before and behind the one decimal separator, with a digit at least.
std::optional<decimal_digits> cut_decimal(view text, const SLocaleNumberFormat& record) {
    const CString& separator = record.m_sDecimalSeparator;
    if (is_ambiguous(text, record)) {
        return std::nullopt;
    }
    const std::size_t at = separator.empty() ? view::npos : text.find(separator);
    view fraction;
    if (at != view::npos) {
        fraction = text.substr(at + separator.size());
        text = text.substr(0, at);
    }
    const std::optional<std::string> whole = whole_digits(text, record);
    if (!whole || !are_digits(fraction) || (whole->empty() && fraction.empty())) {
        return std::nullopt;
    }
    return decimal_digits{*whole, narrow(fraction)};
}

std::optional<double> decimal_value(view text, const SLocaleNumberFormat& record) {
    const std::optional<decimal_digits> digits = cut_decimal(text, record);
    return digits ? number_of("0" + digits->whole + "." + digits->fraction + "0") : std::nullopt;
}

// The numerator is never grouped: a blank before it ends the whole, even where blanks part groups.
std::optional<double> fraction_value(view text, std::size_t bar, const SLocaleNumberFormat& record) {
    const view denominator_text = text.substr(bar + 1);
    view numerator_text = text.substr(0, bar);
    view whole_text;
    if (const std::size_t blank = numerator_text.rfind(L' '); blank != view::npos) {
        whole_text = without_blanks_outside(numerator_text.substr(0, blank));
        numerator_text = numerator_text.substr(blank + 1);
        if (whole_text.empty()) {
            return std::nullopt;
        }
    }
    SLocaleNumberFormat ungrouped = record;
    ungrouped.m_sGroupSeparator.clear();
    const std::optional<std::string> whole_part = whole_digits(whole_text, record);
    if (!whole_part || denominator_text.empty() || !are_digits(denominator_text)) {
        return std::nullopt;
    }
    const std::optional<double> whole = number_of("0" + *whole_part);
    const std::optional<double> numerator = decimal_value(numerator_text, ungrouped);
    const std::optional<double> denominator = number_of(narrow(denominator_text));
    if (!whole || !numerator || !denominator || !(*numerator < *denominator)) {
        return std::nullopt;
    }
    return *numerator / *denominator + *whole;
}

// Takes the locale's negative form off the text. False when it does not stand there, or is none.
bool take_sign(view& text, const SLocaleNumberFormat& record) {
    const CString prefix = record.GetNegativePrefix();
    const CString suffix = record.GetNegativeSuffix();
    if ((prefix.empty() && suffix.empty()) || text.size() <= prefix.size() + suffix.size() ||
        !text.starts_with(prefix) || !text.ends_with(suffix)) {
        return false;
    }
    text = text.substr(prefix.size(), text.size() - prefix.size() - suffix.size());
    return true;
}

std::optional<LONG> limited(LONGLONG value) {
    return value <= most ? std::optional<LONG>(static_cast<LONG>(value)) : std::nullopt;
}

// A count of tenths of a unit, when the text has a unit, as a quantity.
std::optional<LONG> scaled_quantity(const decimal_digits& digits, LONG unit) {
    if (digits.whole.size() + digits.fraction.size() > longest_quantity || digits.fraction.size() > 1) {
        return std::nullopt;
    }
    const std::string tenths = "0" + digits.whole + (digits.fraction.empty() ? "0" : digits.fraction);
    return limited(std::stoll(tenths) * unit / 10);
}

}  // namespace

std::optional<double> PriceReadsAs(const CString& text) {
    return PriceReadsAs(text, locale_records::price());
}

std::optional<double> PriceReadsAs(const CString& text, const SPriceLocaleFormat& record) {
    view body = without_blanks_outside(text);
    if (is_ambiguous(body, record)) {
        return std::nullopt;
    }
    const bool negative = take_sign(body, record);
    const std::size_t bar = body.find(L'/');
    const std::optional<double> size =
        bar == view::npos ? decimal_value(body, record) : fraction_value(body, bar, record);
    return size && negative && *size != 0.0 ? std::optional<double>(-*size) : size;
}

std::optional<LONG> QuantityReadsAs(const CString& text) {
    const SLocaleNumberFormat& record = locale_records::number();
    view body = without_blanks_outside(text);
    for (const auto& [letter, unit] : {std::pair<const CString&, LONG>(thousands_letter(), 1000),
                                       std::pair<const CString&, LONG>(millions_letter(), 1000000)}) {
        if (!letter.empty() && body.ends_with(letter)) {
            body.remove_suffix(letter.size());
            const std::optional<decimal_digits> digits = cut_decimal(body, record);
            return digits ? scaled_quantity(*digits, unit) : std::nullopt;
        }
    }
    const std::optional<std::string> digits = whole_digits(body, record);
    if (!digits || digits->empty() || digits->size() > longest_quantity) {
        return std::nullopt;
    }
    return limited(std::stoll(*digits));
}

bool IsSamePrice(double left, double right, double tick) {
    const double largest = std::max(std::fabs(left), std::fabs(right));
    const double noise = largest * std::numeric_limits<double>::epsilon() * last_places;
    return std::fabs(left - right) <= std::max(noise, tick * part_of_tick);
}

CString ExactPriceText(const CPriceToString& format, double price) {
    CString shown = format.ToText(price);
    const std::optional<double> reads = PriceReadsAs(shown);
    if (reads && IsSamePrice(*reads, price, 0.0)) {
        return shown;
    }
    return platform::port<platform::number_locale>::get().double_to_text(price);
}

}  // namespace local_format
