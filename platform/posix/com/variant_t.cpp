#include <comdef.h>

#include <cstring>

namespace {

void check_type(VARTYPE vt, VARTYPE usual, VARTYPE other, VARTYPE another) {
    if (vt != usual && vt != other && vt != another) {
        _com_issue_error(E_INVALIDARG);
    }
}

BSTR required(BSTR made, bool wanted) {
    if (made == nullptr && wanted) {
        _com_issue_error(E_OUTOFMEMORY);
    }
    return made;
}

// The value of a variant as a type that it may have to be changed to.
_variant_t changed(const _variant_t& source, VARTYPE vt) {
    _variant_t value;
    value.ChangeType(vt, &source);
    return value;
}

bool same_text(BSTR left, BSTR right) {
    const UINT bytes = SysStringByteLen(left);
    return bytes == SysStringByteLen(right) && (bytes == 0 || std::memcmp(left, right, bytes) == 0);
}

}  // namespace

_variant_t::_variant_t() noexcept : VARIANT{} {}

_variant_t::_variant_t(const VARIANT& source) : VARIANT{} {
    _com_util::CheckError(VariantCopy(this, &source));
}

_variant_t::_variant_t(const VARIANT* source) : VARIANT{} {
    if (source == nullptr) {
        _com_issue_error(E_POINTER);
    }
    _com_util::CheckError(VariantCopy(this, source));
}

_variant_t::_variant_t(const _variant_t& source) : VARIANT{} {
    _com_util::CheckError(VariantCopy(this, &source));
}

_variant_t::_variant_t(VARIANT& source, bool fCopy) : VARIANT{} {
    if (fCopy) {
        _com_util::CheckError(VariantCopy(this, &source));
    } else {
        GetVARIANT() = source;
        source.vt = VT_EMPTY;
    }
}

_variant_t::_variant_t(SHORT value, VARTYPE type) : VARIANT{} {
    check_type(type, VT_I2, VT_BOOL, VT_BOOL);
    vt = type;
    if (type == VT_BOOL) {
        boolVal = value != 0 ? VARIANT_TRUE : VARIANT_FALSE;
    } else {
        iVal = value;
    }
}

_variant_t::_variant_t(LONG value, VARTYPE type) : VARIANT{} {
    check_type(type, VT_I4, VT_ERROR, VT_BOOL);
    vt = type;
    if (type == VT_BOOL) {
        boolVal = value != 0 ? VARIANT_TRUE : VARIANT_FALSE;
    } else {
        lVal = value;
    }
}

_variant_t::_variant_t(float value) noexcept : VARIANT{} {
    vt = VT_R4;
    fltVal = value;
}

_variant_t::_variant_t(double value, VARTYPE type) : VARIANT{} {
    check_type(type, VT_R8, VT_DATE, VT_DATE);
    vt = type;
    dblVal = value;
}

_variant_t::_variant_t(const _bstr_t& text) : VARIANT{} {
    bstrVal = text.copy();
    vt = VT_BSTR;
}

_variant_t::_variant_t(const wchar_t* text) : VARIANT{} {
    bstrVal = required(SysAllocString(text), text != nullptr);
    vt = VT_BSTR;
}

_variant_t::_variant_t(IUnknown* object, bool fAddRef) noexcept : VARIANT{} {
    vt = VT_UNKNOWN;
    punkVal = object;
    if (object != nullptr && fAddRef) {
        object->AddRef();
    }
}

_variant_t::_variant_t(bool value) noexcept : VARIANT{} {
    vt = VT_BOOL;
    boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

_variant_t::_variant_t(BYTE value) noexcept : VARIANT{} {
    vt = VT_UI1;
    bVal = value;
}

_variant_t::_variant_t(USHORT value) noexcept : VARIANT{} {
    vt = VT_UI2;
    uiVal = value;
}

_variant_t::_variant_t(ULONG value) noexcept : VARIANT{} {
    vt = VT_UI4;
    ulVal = value;
}

_variant_t::_variant_t(LONGLONG value) noexcept : VARIANT{} {
    vt = VT_I8;
    llVal = value;
}

_variant_t::_variant_t(ULONGLONG value) noexcept : VARIANT{} {
    vt = VT_UI8;
    ullVal = value;
}

_variant_t::~_variant_t() {
    VariantClear(this);
}

_variant_t::operator SHORT() const {
    return changed(*this, VT_I2).iVal;
}

_variant_t::operator LONG() const {
    return changed(*this, VT_I4).lVal;
}

_variant_t::operator float() const {
    return changed(*this, VT_R4).fltVal;
}

_variant_t::operator double() const {
    return changed(*this, VT_R8).dblVal;
}

_variant_t::operator _bstr_t() const {
    return _bstr_t(*this);
}

_variant_t::operator bool() const {
    return changed(*this, VT_BOOL).boolVal != VARIANT_FALSE;
}

_variant_t::operator IUnknown*() const {
    return changed(*this, VT_UNKNOWN).Detach().punkVal;
}

_variant_t::operator BYTE() const {
    return changed(*this, VT_UI1).bVal;
}

_variant_t::operator USHORT() const {
    return changed(*this, VT_UI2).uiVal;
}

_variant_t::operator ULONG() const {
    return changed(*this, VT_UI4).ulVal;
}

_variant_t::operator LONGLONG() const {
    return changed(*this, VT_I8).llVal;
}

_variant_t::operator ULONGLONG() const {
    return changed(*this, VT_UI8).ullVal;
}

_variant_t& _variant_t::operator=(_variant_t source) {
    Attach(source);
    return *this;
}

bool _variant_t::operator==(const VARIANT* other) const {
    if (other == nullptr || vt != other->vt) {
        return false;
    }
    switch (vt) {
        case VT_EMPTY:
        case VT_NULL:
            return true;
        case VT_I1:
        case VT_UI1:
            return bVal == other->bVal;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return iVal == other->iVal;
        case VT_I4:
        case VT_INT:
        case VT_UI4:
        case VT_UINT:
        case VT_ERROR:
            return lVal == other->lVal;
        case VT_I8:
        case VT_UI8:
            return llVal == other->llVal;
        case VT_R4:
            return fltVal == other->fltVal;
        case VT_R8:
        case VT_DATE:
            return dblVal == other->dblVal;
        case VT_BSTR:
            return same_text(bstrVal, other->bstrVal);
        case VT_UNKNOWN:
        case VT_DISPATCH:
            return punkVal == other->punkVal;
        default:
            _com_issue_error(E_INVALIDARG);
    }
}

bool _variant_t::operator==(const VARIANT& other) const {
    return *this == &other;
}

bool _variant_t::operator!=(const VARIANT& other) const {
    return !(*this == &other);
}

bool _variant_t::operator!=(const VARIANT* other) const {
    return !(*this == other);
}

void _variant_t::Clear() {
    _com_util::CheckError(VariantClear(this));
}

void _variant_t::Attach(VARIANT& source) {
    Clear();
    GetVARIANT() = source;
    source.vt = VT_EMPTY;
}

VARIANT _variant_t::Detach() {
    const VARIANT content = GetVARIANT();
    vt = VT_EMPTY;
    return content;
}

VARIANT& _variant_t::GetVARIANT() noexcept {
    return *this;
}

VARIANT* _variant_t::GetAddress() {
    Clear();
    return this;
}

void _variant_t::ChangeType(VARTYPE type, const _variant_t* source) {
    _com_util::CheckError(VariantChangeType(this, source == nullptr ? this : source, 0, type));
}

_bstr_t::_bstr_t(const _variant_t& variant) {
    *this = variant;
}

_bstr_t& _bstr_t::operator=(const _variant_t& variant) {
    if (variant.vt == VT_BSTR) {
        return *this = _bstr_t(variant.bstrVal, true);
    }
    _variant_t text;
    text.ChangeType(VT_BSTR, &variant);
    return *this = _bstr_t(text.Detach().bstrVal, false);
}
