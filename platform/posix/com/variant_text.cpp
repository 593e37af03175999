#include <cstdio>

#include "platform/number_locale.h"
#include "platform/posix/com/variant_types.h"

namespace posix_com {

namespace {

// Seven digits are what a float holds; as many as fifteen would show the error of its last one.
std::wstring float_text(FLOAT value) {
    char digits[32];
    // Adding zero makes a negative zero a plain one.
    const int length = std::snprintf(digits, sizeof digits, "%.7G", double{value} + 0.0);
    std::wstring text(digits, digits + length);
    const std::size_t point = text.find(L'.');
    if (point != std::wstring::npos) {
        text.replace(point, 1,
                     platform::port<platform::number_locale>::system().user_conventions().decimal_separator);
    }
    return text;
}

std::wstring truth_text(VARIANT_BOOL value, USHORT flags) {
    if ((flags & VARIANT_ALPHABOOL) != 0) {
        return value == VARIANT_FALSE ? L"False" : L"True";
    }
    return std::to_wstring(value);
}

}  // namespace

HRESULT to_text(const VARIANT& source, USHORT flags, std::wstring& text) {
    switch (source.vt) {
        case VT_EMPTY:
            text.clear();
            return S_OK;
        case VT_BOOL:
            text = truth_text(source.boolVal, flags);
            return S_OK;
        case VT_R4:
            text = float_text(source.fltVal);
            return S_OK;
        case VT_R8:
            text = platform::port<platform::number_locale>::system().double_to_text(source.dblVal);
            return S_OK;
        case VT_DATE:
            // Dates are shown by their own controls and have no text form here.
            return DISP_E_TYPEMISMATCH;
        default:
            break;
    }
    number value;
    const HRESULT hr = read_number(source, value);
    if (SUCCEEDED(hr)) {
        text = value.form == number::kind::signed_integer ? std::to_wstring(value.as_signed)
                                                          : std::to_wstring(value.as_unsigned);
    }
    return hr;
}

}  // namespace posix_com
