#include "platform/number_locale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "platform/number_text.h"

namespace platform {
namespace {

constexpr UINT most_decimals = 9;
constexpr UINT last_negative_form = 4;
constexpr std::size_t longest_result = 254;

CString locale_text(LCTYPE type) {
    std::array<wchar_t, 10> buffer{};
    const int length =
        GetLocaleInfoW(LOCALE_USER_DEFAULT, type, buffer.data(), static_cast<int>(buffer.size()));
    return length > 0 ? CString(buffer.data()) : CString();
}

UINT locale_number(LCTYPE type) {
    const CString text = locale_text(type);
    return text.empty() ? 0 : static_cast<UINT>(std::wcstoul(text.c_str(), nullptr, 10));
}

// In exponent form some systems write three exponent digits where two are enough, and a "." in any locale.
void mend_exponent_form(CString& text) {
    const std::size_t exponent = text.find(L'E');
    if (exponent == CString::npos || !is_digit(text.back())) {
        return;
    }
    while (text.size() - exponent > 4 && text[exponent + 2] == L'0') {
        text.erase(exponent + 2, 1);
    }
    const std::size_t point = text.find(L'.');
    if (point != CString::npos) {
        text.replace(point, 1, locale_text(LOCALE_SDECIMAL));
    }
}

// The number as the system takes it, rounded already: it groups by the digits before rounding, and keeps
// the minus of what rounds to 0.
CString plain_text(const plain_number& number) {
    CString text = (number.negative ? L"-" : L"") + (number.whole.empty() ? L"0" : number.whole);
    if (!number.fraction.empty()) {
        text += L"." + number.fraction;
    }
    return text;
}

// Whether the result is short enough. Asked before the system is: not every one survives a longer result.
bool fits(const plain_number& number, const number_format& format) {
    if (number.whole.size() > longest_result) {
        return false;
    }
    constexpr std::size_t longest_sign = 2;
    const std::size_t sign = number.negative ? (format.negative_form % 2 == 0 ? longest_sign : 1) : 0;
    const std::size_t fraction = format.decimals > 0 ? format.decimal_separator.size() + format.decimals : 0;
    const std::size_t whole = group_digits(number.whole, format.grouping, format.group_separator).size();
    return sign + std::max<std::size_t>(whole, 1) + fraction <= longest_result;
}

std::optional<CString> system_format(const CString& text, const number_format& format) {
    CString decimal = format.decimal_separator;
    CString group = format.group_separator;
    const NUMBERFMTW record{format.decimals, format.leading_zero, format.grouping,
                            decimal.data(),  group.data(),        format.negative_form};
    std::array<wchar_t, longest_result + 1> buffer{};
    const int length = GetNumberFormatW(format.locale, 0, text.c_str(), &record, buffer.data(),
                                        static_cast<int>(buffer.size()));
    return length > 0 ? std::optional<CString>(buffer.data()) : std::nullopt;
}

class win32_number_locale final : public number_locale {
public:
    number_conventions user_conventions() override {
        number_conventions result;
        result.decimal_separator = locale_text(LOCALE_SDECIMAL);
        result.group_separator = locale_text(LOCALE_STHOUSAND);
        result.grouping = locale_text(LOCALE_SGROUPING);
        result.locale = LOCALE_USER_DEFAULT;
        result.leading_zero = locale_number(LOCALE_ILZERO);
        result.negative_form = locale_number(LOCALE_INEGNUMBER);
        return result;
    }

    std::optional<CString> format_number(const CString& text, const number_format& format) override {
        const std::optional<plain_number> number = parse_plain_number(text);
        if (!number || format.decimals > most_decimals || format.negative_form > last_negative_form) {
            return std::nullopt;
        }
        const plain_number rounded = round_plain_number(*number, format.decimals);
        if (!fits(rounded, format)) {
            return std::nullopt;
        }
        // The system gives no digit at all for 0 without decimals and without a leading zero.
        number_format adjusted = format;
        if (format.decimals == 0 && rounded.whole.empty()) {
            adjusted.leading_zero = 1;
        }
        return system_format(plain_text(rounded), adjusted);
    }

    CString double_to_text(double value) override {
        _variant_t variant(value == 0.0 ? 0.0 : value);
        variant.ChangeType(VT_BSTR);
        CString result = text_of(variant.bstrVal);
        mend_exponent_form(result);
        return result;
    }

    std::optional<double> text_to_double(const CString& text) override {
        VARIANT source;
        VariantInit(&source);
        source.vt = VT_BSTR;
        source.bstrVal = new_bstr(text);
        VARIANT target;
        VariantInit(&target);
        const HRESULT hr = VariantChangeType(&target, &source, 0, VT_R8);
        VariantClear(&source);
        if (hr == E_OUTOFMEMORY) {
            _com_issue_error(hr);
        }
        if (FAILED(hr) || !std::isfinite(target.dblVal)) {
            return std::nullopt;
        }
        return target.dblVal;
    }
};

}  // namespace

template <>
number_locale& port<number_locale>::system() {
    static win32_number_locale the_locale;
    return the_locale;
}

}  // namespace platform
