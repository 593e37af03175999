// _bstr_t and _variant_t: counted text and a variant that own what they hold. Every failure is raised as a
// _com_error. Narrow text has no place here: its code page would be anybody's guess.
#pragma once

#include "ole2.h"

[[noreturn]] void _com_issue_error(HRESULT result);

class _variant_t;

namespace _com_util {
inline void CheckError(HRESULT result) {
    if (FAILED(result)) {
        _com_issue_error(result);
    }
}
}  // namespace _com_util

// Text shared by its copies, with an atomic count: copies may live on different threads, one object on one
// thread at a time. Null and the empty text differ for operator! and the pointer, and order null before
// empty.
class _bstr_t {
public:
    _bstr_t() noexcept = default;
    _bstr_t(const _bstr_t& other) noexcept;
    _bstr_t(const wchar_t* text);
    // Converts to text unless it holds text.
    _bstr_t(const _variant_t& variant);
    // Without fCopy the text becomes this object's.
    _bstr_t(BSTR text, bool fCopy);
    ~_bstr_t();

    _bstr_t& operator=(const _bstr_t& other) noexcept;
    _bstr_t& operator=(const wchar_t* text);
    _bstr_t& operator=(const _variant_t& variant);
    _bstr_t& operator+=(const _bstr_t& other);
    _bstr_t operator+(const _bstr_t& other) const;
    friend _bstr_t operator+(const wchar_t* left, const _bstr_t& right);

    operator const wchar_t*() const noexcept;
    operator wchar_t*() const noexcept;

    bool operator!() const noexcept;
    bool operator==(const _bstr_t& other) const noexcept;
    bool operator!=(const _bstr_t& other) const noexcept;
    bool operator<(const _bstr_t& other) const noexcept;
    bool operator>(const _bstr_t& other) const noexcept;
    bool operator<=(const _bstr_t& other) const noexcept;
    bool operator>=(const _bstr_t& other) const noexcept;

    // With fCopy the caller owns the result; without, it is borrowed.
    BSTR copy(bool fCopy = true) const;
    // In units, with nulls that stand inside.
    unsigned int length() const noexcept;
    void Assign(BSTR text);
    BSTR& GetBSTR();
    // For an out-parameter; what was held is freed first.
    BSTR* GetAddress();
    void Attach(BSTR text);
    // E_POINTER when there is nothing to give or a copy shares it.
    BSTR Detach();

private:
    struct Data;

    explicit _bstr_t(Data* data) noexcept;
    void release() noexcept;
    int compare(const _bstr_t& other) const noexcept;

    Data* m_data = nullptr;
};

// A variant that clears itself. LONG and INT are one type here, as are ULONG and UINT: such a number becomes
// VT_I4 or VT_UI4. Set the type by V_VT where VT_INT or VT_UINT is meant.
class _variant_t : public VARIANT {
public:
    _variant_t() noexcept;
    _variant_t(const VARIANT& source);
    _variant_t(const VARIANT* source);
    _variant_t(const _variant_t& source);
    // Without fCopy the content becomes this object's and the source VT_EMPTY.
    _variant_t(VARIANT& source, bool fCopy);
    // The second argument may be VT_BOOL; anything else raises E_INVALIDARG.
    _variant_t(SHORT value, VARTYPE vt = VT_I2);
    // The second argument may be VT_ERROR or VT_BOOL; anything else raises E_INVALIDARG.
    _variant_t(LONG value, VARTYPE vt = VT_I4);
    _variant_t(float value) noexcept;
    // The second argument may be VT_DATE; anything else raises E_INVALIDARG.
    _variant_t(double value, VARTYPE vt = VT_R8);
    _variant_t(const _bstr_t& text);
    _variant_t(const wchar_t* text);
    _variant_t(IUnknown* object, bool fAddRef = true) noexcept;
    _variant_t(bool value) noexcept;
    _variant_t(BYTE value) noexcept;
    _variant_t(USHORT value) noexcept;
    _variant_t(ULONG value) noexcept;
    _variant_t(LONGLONG value) noexcept;
    _variant_t(ULONGLONG value) noexcept;
    ~_variant_t();

    operator SHORT() const;
    operator LONG() const;
    operator float() const;
    operator double() const;
    operator _bstr_t() const;
    operator bool() const;
    // Counted out.
    operator IUnknown*() const;
    operator BYTE() const;
    operator USHORT() const;
    operator ULONG() const;
    operator LONGLONG() const;
    operator ULONGLONG() const;

    // From all that it can be made of; a failure to make the new value leaves the old one.
    _variant_t& operator=(_variant_t source);

    // Type and value must agree; a type that cannot be compared raises E_INVALIDARG.
    bool operator==(const VARIANT& other) const;
    bool operator==(const VARIANT* other) const;
    bool operator!=(const VARIANT& other) const;
    bool operator!=(const VARIANT* other) const;

    void Clear();
    void Attach(VARIANT& source);
    VARIANT Detach();
    VARIANT& GetVARIANT() noexcept;
    // For an out-parameter; what was held is freed first.
    VARIANT* GetAddress();
    // From the source, or from its own value.
    void ChangeType(VARTYPE vt, const _variant_t* source = nullptr);
};
