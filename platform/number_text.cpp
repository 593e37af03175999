#include "platform/number_text.h"

#include <algorithm>
#include <vector>

namespace platform {
namespace {

bool all_digits(const CString& text) {
    return std::all_of(text.begin(), text.end(), is_digit);
}

bool all_zeros(const CString& digits) {
    return digits.find_first_not_of(L'0') == CString::npos;
}

void increment(CString& digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != L'9') {
            ++*digit;
            return;
        }
        *digit = L'0';
    }
    digits.insert(digits.begin(), L'1');
}

}  // namespace

bool is_white_space(wchar_t character) {
    switch (character) {
        case 0x20:
        case 0x85:
        case 0xA0:
        case 0x1680:
        case 0x2028:
        case 0x2029:
        case 0x202F:
        case 0x205F:
        case 0x3000:
            return true;
        default:
            return (character >= 0x09 && character <= 0x0D) || (character >= 0x2000 && character <= 0x200A);
    }
}

bool is_digit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

CString trim(const CString& text) {
    const auto first = std::find_if_not(text.begin(), text.end(), is_white_space);
    const auto last = std::find_if_not(text.rbegin(), std::make_reverse_iterator(first), is_white_space);
    return {first, last.base()};
}

std::optional<plain_number> parse_plain_number(const CString& text) {
    plain_number result;
    result.negative = !text.empty() && text.front() == L'-';
    const CString body = text.substr(result.negative ? 1 : 0);
    const std::size_t point = std::min(body.find(L'.'), body.size());
    result.whole = body.substr(0, point);
    result.fraction = body.substr(std::min(point + 1, body.size()));
    if (result.whole.empty() && result.fraction.empty()) {
        return std::nullopt;
    }
    if (!all_digits(result.whole) || !all_digits(result.fraction)) {
        return std::nullopt;
    }
    result.whole.erase(0, result.whole.find_first_not_of(L'0'));
    return result;
}

plain_number round_plain_number(const plain_number& number, UINT decimals) {
    plain_number result = number;
    const bool up = number.fraction.size() > decimals && number.fraction[decimals] >= L'5';
    result.fraction.resize(decimals, L'0');
    if (up) {
        CString digits = result.whole + result.fraction;
        increment(digits);
        result.whole = digits.substr(0, digits.size() - decimals);
        result.fraction = digits.substr(digits.size() - decimals);
    }
    result.negative = number.negative && !(all_zeros(result.whole) && all_zeros(result.fraction));
    return result;
}

CString group_digits(const CString& digits, UINT grouping, const CString& separator) {
    std::vector<std::size_t> sizes;
    for (UINT rest = grouping; rest > 0; rest /= 10) {
        sizes.insert(sizes.begin(), rest % 10);
    }
    CString result = digits;
    std::size_t position = digits.size();
    for (std::size_t i = 0; i < sizes.size() && sizes[i] > 0 && position > sizes[i];) {
        position -= sizes[i];
        result.insert(position, separator);
        i += i + 1 < sizes.size() ? 1 : 0;
    }
    return result;
}

}  // namespace platform
