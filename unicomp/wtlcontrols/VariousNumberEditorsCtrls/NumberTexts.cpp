#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberTexts.h"

#include <algorithm>
#include <limits>
#include <string>

#include "platform/number_locale.h"
#include "platform/number_text.h"
#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"

namespace WTLControls::NumberEditors {

namespace {

platform::number_locale& locale() {
    return platform::port<platform::number_locale>::get();
}

void remove_all(CString& text, const CString& part) {
    if (part.empty()) {
        return;
    }
    for (std::size_t at = text.find(part); at != CString::npos; at = text.find(part, at)) {
        text.erase(at, part.size());
    }
}

void remove_trailing(CString& text, const CString& part) {
    while (!part.empty() && text.ends_with(part)) {
        text.resize(text.size() - part.size());
    }
}

std::optional<typed_number> read_integer(const CString& text) {
    const std::optional<double> number = locale().text_to_double(text);
    if (!number) {
        return std::nullopt;
    }
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_R8;
    value.dblVal = *number;
    if (FAILED(VariantChangeType(&value, &value, 0, VT_I4))) {
        return std::nullopt;
    }
    return typed_number{static_cast<double>(value.lVal), std::to_wstring(value.lVal)};
}

}  // namespace

CString plain_number_text(double value) {
    return locale().double_to_text(value);
}

std::optional<typed_number> read_number(const CString& text, EEditType type) {
    if (type == EEditType::Integer) {
        return read_integer(text);
    }
    const std::optional<double> number = locale().text_to_double(text);
    return number ? std::optional<typed_number>({*number, plain_number_text(*number)}) : std::nullopt;
}

CString normalised_number(const CString& text) {
    CString result = text;
    result.erase(0, std::min(result.find_first_not_of(L'0'), result.size()));
    result = platform::trim(result);
    // The grouping text goes out beside the separator on purpose: both sides of a comparison lose the same.
    const SPriceLocaleFormat& format = locale_records::price();
    remove_all(result, format.m_sGrouping);
    remove_all(result, format.m_sGroupSeparator);
    const CString& decimal = format.m_sDecimalSeparator;
    if (!decimal.empty() && result.find(decimal) != CString::npos) {
        remove_trailing(result, L"0");
        remove_trailing(result, decimal);
    }
    return result;
}

LONG cut_to_integer(double value) {
    using limits = std::numeric_limits<LONG>;
    return static_cast<LONG>(
        std::clamp(value, static_cast<double>(limits::min()), static_cast<double>(limits::max())));
}

}  // namespace WTLControls::NumberEditors
