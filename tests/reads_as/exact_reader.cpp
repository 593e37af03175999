#include "tests/reads_as/exact_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace exact {

namespace {

using boost::multiprecision::cpp_int;

const CString digits = L"0123456789";

bool are_digits(const CString& text) {
    return !text.empty() && text.find_first_not_of(digits) == CString::npos;
}

CString without_outer_blanks(const CString& text) {
    const std::size_t first = text.find_first_not_of(L' ');
    return first == CString::npos ? CString() : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

CString without(const CString& text, const CString& part) {
    CString rest = text;
    for (std::size_t at = 0; !part.empty() && (at = rest.find(part, at)) != CString::npos;) {
        rest.erase(at, part.size());
    }
    return rest;
}

// Both ends of a text, which then has neither.
bool take_ends(CString& text, const CString& before, const CString& behind) {
    if (text.size() <= before.size() + behind.size() || !text.starts_with(before) ||
        !text.ends_with(behind)) {
        return false;
    }
    text = text.substr(before.size(), text.size() - before.size() - behind.size());
    return true;
}

bool take_minus(CString& text, UINT form) {
    static const std::array<std::pair<CString, CString>, 5> forms = {
        {{L"(", L")"}, {L"-", L""}, {L"- ", L""}, {L"", L"-"}, {L"", L" -"}}};
    return form < forms.size() && take_ends(text, forms.at(form).first, forms.at(form).second);
}

std::optional<number> no_larger_than_a_double(const number& value) {
    return value <= value_of(std::numeric_limits<double>::max()) ? std::optional(value) : std::nullopt;
}

number of_digits(const CString& text) {
    cpp_int value = 0;
    for (const wchar_t digit : text) {
        value = value * 10 + static_cast<int>(digit - L'0');
    }
    return value;
}

// Digits, together or in the user's groups.
std::optional<number> whole_number(const CString& text, const platform::number_conventions& user) {
    const CString together = without(text, user.group_separator);
    if (!are_digits(together) || (text != together && text != grouped(together, user))) {
        return std::nullopt;
    }
    return no_larger_than_a_double(of_digits(together));
}

std::optional<number> decimal_number(const CString& text, const platform::number_conventions& user,
                                     bool may_be_grouped) {
    const CString& point = user.decimal_separator;
    const std::size_t at = point.empty() ? CString::npos : text.find(point);
    const CString before = text.substr(0, at);
    const CString behind = at == CString::npos ? CString() : text.substr(at + point.size());
    if ((before.empty() && behind.empty()) || (!behind.empty() && !are_digits(behind))) {
        return std::nullopt;
    }
    std::optional<number> whole = number(0);
    if (!before.empty()) {
        whole = may_be_grouped       ? whole_number(before, user)
                : are_digits(before) ? std::optional(of_digits(before))
                                     : std::nullopt;
    }
    const cpp_int power = boost::multiprecision::pow(cpp_int(10), static_cast<unsigned>(behind.size()));
    return whole ? no_larger_than_a_double(*whole + of_digits(behind) / number(power)) : std::nullopt;
}

// A fraction of one, and the whole before it.
std::optional<number> fraction(const CString& text, const platform::number_conventions& user) {
    const std::size_t bar = text.find(L'/');
    const CString below = text.substr(bar + 1);
    const CString left = text.substr(0, bar);
    const std::size_t blank = left.rfind(L' ');
    const CString above = blank == CString::npos ? left : left.substr(blank + 1);
    std::optional<number> whole = number(0);
    if (blank != CString::npos) {
        whole = whole_number(left.substr(0, left.find_last_not_of(L' ', blank) + 1), user);
    }
    const std::optional<number> numerator = decimal_number(above, user, false);
    if (!whole || !numerator || !are_digits(below) || *numerator >= of_digits(below)) {
        return std::nullopt;
    }
    const std::optional<number> denominator = no_larger_than_a_double(of_digits(below));
    return denominator ? std::optional(*whole + *numerator / *denominator) : std::nullopt;
}

// Where one mark stands for both, no text that holds it tells which of the two it is.
bool is_ambiguous(const CString& text, const platform::number_conventions& user) {
    return !user.decimal_separator.empty() && user.decimal_separator == user.group_separator &&
           text.find(user.decimal_separator) != CString::npos;
}

// What stands before a letter: one decimal digit at most.
std::optional<number> abbreviated(const CString& text, const platform::number_conventions& user) {
    const CString& point = user.decimal_separator;
    const std::size_t at = point.empty() ? CString::npos : text.find(point);
    if (is_ambiguous(text, user) || (at != CString::npos && text.size() - at - point.size() > 1)) {
        return std::nullopt;
    }
    return decimal_number(text, user, true);
}

}  // namespace

CString grouped(const CString& all, const platform::number_conventions& user) {
    std::vector<std::size_t> sizes;
    for (const wchar_t each : user.grouping) {
        if (each != L';') {
            sizes.push_back(static_cast<std::size_t>(each - L'0'));
        }
    }
    CString rest = all;
    CString result;
    const auto cut = [&](std::size_t size) {
        if (size == 0 || rest.size() <= size) {
            return false;
        }
        result = user.group_separator + rest.substr(rest.size() - size) + result;
        rest.resize(rest.size() - size);
        return true;
    };
    for (std::size_t group = 0; group < sizes.size(); ++group) {
        // A 0 behind the others goes on with the last of them.
        if (sizes[group] == 0) {
            while (group > 0 && cut(sizes[group - 1])) {
            }
            break;
        }
        if (!cut(sizes[group])) {
            break;
        }
    }
    return rest + result;
}

std::optional<number> price(const CString& text, const platform::number_conventions& user) {
    CString body = without_outer_blanks(text);
    if (is_ambiguous(body, user)) {
        return std::nullopt;
    }
    const bool negative = take_minus(body, user.negative_form);
    if (body.starts_with(L" ") || body.ends_with(L" ")) {
        return std::nullopt;
    }
    const std::optional<number> size =
        body.find(L'/') == CString::npos ? decimal_number(body, user, true) : fraction(body, user);
    return size && negative ? std::optional<number>(-*size) : size;
}

std::optional<std::int64_t> quantity(const CString& text, const platform::number_conventions& user) {
    constexpr std::int64_t most = 2147483646;
    CString body = without_outer_blanks(text);
    const bool thousands = take_ends(body, L"", L"K");
    const bool millions = !thousands && take_ends(body, L"", L"M");
    const std::optional<number> count =
        thousands || millions ? abbreviated(body, user) : whole_number(body, user);
    if (!count) {
        return std::nullopt;
    }
    const number units = *count * (millions ? 1000000 : thousands ? 1000 : 1);
    if (denominator(units) != 1 || units > most) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(numerator(units));
}

number value_of(double value) {
    int exponent = 0;
    constexpr int bits = std::numeric_limits<double>::digits;
    const auto mantissa = static_cast<std::int64_t>(std::ldexp(std::frexp(value, &exponent), bits));
    exponent -= bits;
    const cpp_int power = cpp_int(1) << static_cast<unsigned>(std::abs(exponent));
    return exponent < 0 ? number(cpp_int(mantissa), power) : number(cpp_int(mantissa) * power);
}

bool is_near(const number& exactly, double value, int units) {
    if (!std::isfinite(value)) {
        return false;
    }
    const double above = std::nextafter(std::fabs(value), std::numeric_limits<double>::infinity());
    const number unit =
        std::isfinite(above) ? number(value_of(above) - value_of(std::fabs(value))) : number(1);
    const number away = value_of(value) - exactly;
    return (away < 0 ? number(-away) : away) <= unit * units;
}

}  // namespace exact
