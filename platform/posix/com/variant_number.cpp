#include <cfloat>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/number_locale.h"
#include "platform/posix/com/variant_types.h"

namespace posix_com {

namespace {

// First day of the year 100, and the day behind the last of the year 9999.
constexpr double k_first_date = -657434.0;
constexpr double k_end_of_dates = 2958466.0;

number from_signed(LONGLONG value, unsigned width) {
    number result;
    result.as_signed = value;
    result.as_unsigned = static_cast<ULONGLONG>(value);
    result.width = width;
    return result;
}

number from_unsigned(ULONGLONG value, unsigned width) {
    number result;
    result.form = number::kind::unsigned_integer;
    result.as_signed = static_cast<LONGLONG>(value);
    result.as_unsigned = value;
    result.width = width;
    return result;
}

number from_real(double value) {
    number result;
    result.form = number::kind::real;
    result.as_real = value;
    return result;
}

number from_truth(VARIANT_BOOL value) {
    number result = from_signed(value, 16);
    result.truth = true;
    return result;
}

// Digits with at most a sign are read exactly: a double has room for fifteen of them only.
bool read_integer(const std::wstring& text, number& value) {
    const bool negative = !text.empty() && text[0] == L'-';
    const std::size_t first = !text.empty() && (text[0] == L'-' || text[0] == L'+') ? 1 : 0;
    if (text.size() == first) {
        return false;
    }
    ULONGLONG magnitude = 0;
    for (std::size_t i = first; i < text.size(); ++i) {
        if (text[i] < L'0' || text[i] > L'9' || __builtin_mul_overflow(magnitude, 10U, &magnitude) ||
            __builtin_add_overflow(magnitude, static_cast<ULONGLONG>(text[i] - L'0'), &magnitude)) {
            return false;
        }
    }
    constexpr auto k_lowest = ULONGLONG{1} << 63;
    if (negative && magnitude > k_lowest) {
        return false;
    }
    value = negative ? from_signed(static_cast<LONGLONG>(-magnitude), 0) : from_unsigned(magnitude, 0);
    return true;
}

HRESULT read_text(BSTR source, number& value) {
    const std::wstring text(source == nullptr ? L"" : source, SysStringLen(source));
    if (read_integer(text, value)) {
        return S_OK;
    }
    const auto real = platform::port<platform::number_locale>::system().text_to_double(text);
    if (!real) {
        return DISP_E_TYPEMISMATCH;
    }
    value = from_real(*real);
    return S_OK;
}

// Halves go to the even neighbour, whatever the thread's rounding mode says.
double round_half_even(double value) {
    const double floor = std::floor(value);
    const double rest = value - floor;
    if (rest < 0.5 || (rest == 0.5 && std::fmod(floor, 2.0) == 0.0)) {
        return floor;
    }
    return floor + 1.0;
}

// The negated comparison refuses what is no number at all.
template <class T>
HRESULT real_to_integer(double value, T& target) {
    const double rounded = round_half_even(value);
    // One more than the highest value is a power of two, so it is exact in a double where the highest
    // value itself is not.
    const double end = std::ldexp(1.0, std::numeric_limits<T>::digits);
    const double lowest = static_cast<double>(std::numeric_limits<T>::min());
    if (!(rounded >= lowest && rounded < end)) {
        return DISP_E_OVERFLOW;
    }
    target = static_cast<T>(rounded);
    return S_OK;
}

template <class T>
bool integer_fits(const number& value) {
    if (value.form == number::kind::signed_integer) {
        return std::in_range<T>(value.as_signed);
    }
    return std::in_range<T>(value.as_unsigned);
}

template <class T>
HRESULT to_integer(const number& value, T& target) {
    if (value.form == number::kind::real) {
        return real_to_integer(value.as_real, target);
    }
    if (!value.truth && value.width != sizeof(T) * 8 && !integer_fits<T>(value)) {
        return DISP_E_OVERFLOW;
    }
    target = static_cast<T>(value.as_unsigned);
    return S_OK;
}

HRESULT to_float(double value, FLOAT& target) {
    if (!(std::fabs(value) <= double{FLT_MAX})) {
        return DISP_E_OVERFLOW;
    }
    target = static_cast<FLOAT>(value);
    return S_OK;
}

HRESULT to_date(double value, DATE& target) {
    if (!(value >= k_first_date && value < k_end_of_dates)) {
        return DISP_E_OVERFLOW;
    }
    target = value;
    return S_OK;
}

}  // namespace

double number::real() const noexcept {
    switch (form) {
        case kind::signed_integer:
            return static_cast<double>(as_signed);
        case kind::unsigned_integer:
            return static_cast<double>(as_unsigned);
        case kind::real:
            break;
    }
    return as_real;
}

bool number::is_zero() const noexcept {
    return form == kind::real ? as_real == 0.0 : as_unsigned == 0;
}

HRESULT read_number(const VARIANT& source, number& value) {
    switch (source.vt) {
        case VT_EMPTY:
            value = from_signed(0, 0);
            return S_OK;
        case VT_I1:
            value = from_signed(static_cast<signed char>(source.cVal), 8);
            return S_OK;
        case VT_I2:
            value = from_signed(source.iVal, 16);
            return S_OK;
        case VT_I4:
        case VT_INT:
            value = from_signed(source.lVal, 32);
            return S_OK;
        case VT_I8:
            value = from_signed(source.llVal, 64);
            return S_OK;
        case VT_UI1:
            value = from_unsigned(source.bVal, 8);
            return S_OK;
        case VT_UI2:
            value = from_unsigned(source.uiVal, 16);
            return S_OK;
        case VT_UI4:
        case VT_UINT:
            value = from_unsigned(source.ulVal, 32);
            return S_OK;
        case VT_UI8:
            value = from_unsigned(source.ullVal, 64);
            return S_OK;
        case VT_BOOL:
            value = from_truth(source.boolVal);
            return S_OK;
        case VT_R4:
            value = from_real(double{source.fltVal});
            return S_OK;
        case VT_R8:
        case VT_DATE:
            value = from_real(source.dblVal);
            return S_OK;
        case VT_BSTR:
            return read_text(source.bstrVal, value);
        default:
            return DISP_E_TYPEMISMATCH;
    }
}

HRESULT write_number(const number& value, VARTYPE vt, VARIANT& target) {
    switch (vt) {
        case VT_I1:
            return to_integer(value, reinterpret_cast<signed char&>(target.cVal));
        case VT_I2:
            return to_integer(value, target.iVal);
        case VT_I4:
        case VT_INT:
            return to_integer(value, target.lVal);
        case VT_I8:
            return to_integer(value, target.llVal);
        case VT_UI1:
            return to_integer(value, target.bVal);
        case VT_UI2:
            return to_integer(value, target.uiVal);
        case VT_UI4:
        case VT_UINT:
            return to_integer(value, target.ulVal);
        case VT_UI8:
            return to_integer(value, target.ullVal);
        case VT_BOOL:
            target.boolVal = value.is_zero() ? VARIANT_FALSE : VARIANT_TRUE;
            return S_OK;
        case VT_R4:
            return to_float(value.real(), target.fltVal);
        case VT_R8:
            target.dblVal = value.real();
            return S_OK;
        case VT_DATE:
            return to_date(value.real(), target.date);
        default:
            return DISP_E_TYPEMISMATCH;
    }
}

}  // namespace posix_com
