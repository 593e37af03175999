// Steps of the variant operations that more than one of them takes.
#pragma once

#include <oleauto.h>

#include <string>

namespace posix_com {

// S_OK for a type that a variant may bear, else DISP_E_BADVARTYPE.
HRESULT check_type(VARTYPE vt) noexcept;

// A number on its way from one type to another.
struct number {
    enum class kind { signed_integer, unsigned_integer, real };

    kind form = kind::signed_integer;
    LONGLONG as_signed = 0;
    ULONGLONG as_unsigned = 0;
    double as_real = 0;
    // Bits of the integer type it comes from, 0 where it comes from text or has no type. An integer goes
    // into the other signedness of its own width bit by bit.
    unsigned width = 0;
    // A truth value goes into every integer bit by bit.
    bool truth = false;

    double real() const noexcept;
    bool is_zero() const noexcept;
};

// The number that a variant of a numeric type (VT_EMPTY, integers, reals, VT_BOOL, VT_DATE) or of
// VT_BSTR holds. DISP_E_TYPEMISMATCH when it holds none.
HRESULT read_number(const VARIANT& source, number& value);

// Writes a number as the given numeric type. DISP_E_OVERFLOW when it does not fit,
// DISP_E_TYPEMISMATCH for another type.
HRESULT write_number(const number& value, VARTYPE vt, VARIANT& target);

// The text of a variant that can be shown as text. DISP_E_TYPEMISMATCH for others.
HRESULT to_text(const VARIANT& source, USHORT flags, std::wstring& text);

}  // namespace posix_com
