#include "platform/posix/icu_number_locale.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <memory>

#include <unicode/uloc.h>
#include <unicode/unum.h>
#include <unicode/ustring.h>

#include "platform/number_text.h"
#include "platform/posix/number_reader.h"

namespace platform {
namespace {

constexpr UINT most_decimals = 9;
constexpr UINT last_negative_form = 4;
constexpr std::size_t longest_result = 254;
constexpr int significant_digits = 15;
constexpr LCID user_default = 0x400;

using icu_format = std::unique_ptr<UNumberFormat, decltype(&unum_close)>;
using icu_text = std::array<UChar, 32>;

// Empty when ICU could not give the text.
CString wide(const icu_text& text, int32_t length, UErrorCode status) {
    std::array<wchar_t, 32> result{};
    int32_t count = 0;
    u_strToWCS(result.data(), static_cast<int32_t>(result.size()), &count, text.data(), length, &status);
    return U_SUCCESS(status) ? CString(result.data(), static_cast<std::size_t>(count)) : CString();
}

CString symbol(const UNumberFormat* format, UNumberFormatSymbol which) {
    UErrorCode status = U_ZERO_ERROR;
    icu_text text{};
    const int32_t length =
        unum_getSymbol(format, which, text.data(), static_cast<int32_t>(text.size()), &status);
    return wide(text, length, status);
}

CString attribute(const UNumberFormat* format, UNumberFormatTextAttribute which) {
    UErrorCode status = U_ZERO_ERROR;
    icu_text text{};
    const int32_t length =
        unum_getTextAttribute(format, which, text.data(), static_cast<int32_t>(text.size()), &status);
    return wide(text, length, status);
}

CString grouping_text(const UNumberFormat* format) {
    if (unum_getAttribute(format, UNUM_GROUPING_USED) == 0) {
        return L"0";
    }
    const int32_t first = unum_getAttribute(format, UNUM_GROUPING_SIZE);
    const int32_t next = unum_getAttribute(format, UNUM_SECONDARY_GROUPING_SIZE);
    CString result = std::to_wstring(first);
    if (next > 0 && next != first) {
        result += L";" + std::to_wstring(next);
    }
    return result + L";0";
}

UINT negative_form(const UNumberFormat* format) {
    if (attribute(format, UNUM_NEGATIVE_PREFIX).find(L'(') != CString::npos) {
        return 0;
    }
    return attribute(format, UNUM_NEGATIVE_SUFFIX).empty() ? 1 : 3;
}

CString with_minus(const CString& text, UINT form) {
    switch (form) {
        case 0:
            return L"(" + text + L")";
        case 2:
            return L"- " + text;
        case 3:
            return text + L"-";
        case 4:
            return text + L" -";
        default:
            return L"-" + text;
    }
}

}  // namespace

icu_number_locale::icu_number_locale(const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::array<char, ULOC_FULLNAME_CAPACITY> name{};
    uloc_canonicalize(locale.c_str(), name.data(), static_cast<int32_t>(name.size()), &status);
    const icu_format format(unum_open(UNUM_DECIMAL, nullptr, 0, name.data(), nullptr, &status), &unum_close);
    m_conventions.locale = user_default;
    m_conventions.leading_zero = 1;
    m_conventions.negative_form = 1;
    if (U_FAILURE(status)) {
        return;
    }
    m_conventions.decimal_separator = symbol(format.get(), UNUM_DECIMAL_SEPARATOR_SYMBOL);
    m_conventions.group_separator = symbol(format.get(), UNUM_GROUPING_SEPARATOR_SYMBOL);
    m_conventions.grouping = grouping_text(format.get());
    m_conventions.negative_form = negative_form(format.get());
}

std::optional<CString> icu_number_locale::format_number(const CString& text, const number_format& format) {
    const std::optional<plain_number> number = parse_plain_number(text);
    if (!number || format.decimals > most_decimals || format.negative_form > last_negative_form) {
        return std::nullopt;
    }
    const plain_number rounded = round_plain_number(*number, format.decimals);
    if (rounded.whole.size() > longest_result) {
        return std::nullopt;
    }
    CString result = group_digits(rounded.whole, format.grouping, format.group_separator);
    if (result.empty() && (format.leading_zero != 0 || format.decimals == 0)) {
        result = L"0";
    }
    if (format.decimals > 0) {
        result += format.decimal_separator + rounded.fraction;
    }
    if (rounded.negative) {
        result = with_minus(result, format.negative_form);
    }
    return result.size() <= longest_result ? std::optional<CString>(result) : std::nullopt;
}

CString icu_number_locale::double_to_text(double value) {
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value == 0.0 ? 0.0 : value,
                                   std::chars_format::general, significant_digits);
    CString result;
    for (const char* at = buffer.data(); at != end.ptr; ++at) {
        if (*at == '.') {
            result += m_conventions.decimal_separator;
        } else {
            result += static_cast<wchar_t>(*at >= 'a' && *at <= 'z' ? *at - 'a' + 'A' : *at);
        }
    }
    return result;
}

std::optional<double> icu_number_locale::text_to_double(const CString& text) {
    return read_number(text, m_conventions);
}

std::string icu_number_locale::environment_locale() {
    for (const char* name : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const char* const value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            const std::string locale(value);
            const std::string language = locale.substr(0, locale.find_first_of(".@"));
            return language == "C" || language == "POSIX" ? "en_US" : locale;
        }
    }
    return "en_US";
}

}  // namespace platform
