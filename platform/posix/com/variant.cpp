#include "platform/posix/com/variant_types.h"

#include <cstring>

#include "platform/posix/com/safearray_elements.h"

namespace posix_com {

HRESULT check_type(VARTYPE vt) noexcept {
    const VARTYPE base = vt & VT_TYPEMASK;
    const bool decorated = (vt & (VT_ARRAY | VT_BYREF)) != 0;
    const bool known = (vt & ~(VT_TYPEMASK | VT_ARRAY | VT_BYREF)) == 0 && base != 15 &&
                       (base < VT_VOID || base == VT_RECORD);
    return known && !(decorated && base <= VT_NULL) ? S_OK : DISP_E_BADVARTYPE;
}

}  // namespace posix_com

namespace {

constexpr VARTYPE k_by_ref_variant = VT_BYREF | VT_VARIANT;

// The value that a variant points at, as a borrowed variant that owns nothing.
VARIANT borrow_target(const VARIANTARG& source) {
    VARIANT value = {};
    value.vt = static_cast<VARTYPE>(source.vt & ~VT_BYREF);
    const std::size_t size = V_ISARRAY(&value) ? sizeof(void*) : posix_com::element_size(value.vt);
    std::memcpy(&value.llVal, source.byref, size);
    return value;
}

// Makes a raw variant an own copy of another.
HRESULT duplicate(const VARIANTARG& source, VARIANT& copy) {
    copy = source;
    if (V_ISBYREF(&source)) {
        return S_OK;
    }
    if (V_ISARRAY(&source)) {
        return SafeArrayCopy(source.parray, &copy.parray);
    }
    const bool owns = source.vt == VT_BSTR || source.vt == VT_UNKNOWN || source.vt == VT_DISPATCH;
    return owns ? posix_com::copy_element(source.vt, &copy.llVal, &source.llVal) : S_OK;
}

}  // namespace

void VariantInit(VARIANTARG* variant) noexcept {
    *variant = VARIANTARG{};
}

HRESULT VariantClear(VARIANTARG* variant) noexcept {
    if (const HRESULT hr = posix_com::check_type(variant->vt); FAILED(hr)) {
        return hr;
    }
    if (!V_ISBYREF(variant)) {
        // A locked array stays where it is: it is still somebody's.
        if (V_ISARRAY(variant)) {
            if (const HRESULT hr = SafeArrayDestroy(variant->parray); FAILED(hr)) {
                return hr;
            }
        } else if (variant->vt == VT_BSTR || variant->vt == VT_UNKNOWN || variant->vt == VT_DISPATCH) {
            posix_com::clear_element(variant->vt, &variant->llVal);
        }
    }
    variant->vt = VT_EMPTY;
    return S_OK;
}

HRESULT VariantCopy(VARIANTARG* target, const VARIANTARG* source) noexcept {
    if (const HRESULT hr = posix_com::check_type(source->vt); FAILED(hr)) {
        return hr;
    }
    if (target == source) {
        return S_OK;
    }
    if (const HRESULT hr = VariantClear(target); FAILED(hr)) {
        return hr;
    }
    VARIANT copy;
    const HRESULT hr = duplicate(*source, copy);
    if (SUCCEEDED(hr)) {
        *target = copy;
    }
    return hr;
}

HRESULT VariantCopyInd(VARIANT* target, const VARIANTARG* source) noexcept {
    if (const HRESULT hr = posix_com::check_type(source->vt); FAILED(hr)) {
        return hr;
    }
    if (!V_ISBYREF(source)) {
        return VariantCopy(target, source);
    }
    if (source->vt == k_by_ref_variant) {
        // One step only: a reference to a reference to a variant is no value.
        const VARIANT& inner = *source->pvarVal;
        return inner.vt == k_by_ref_variant ? E_INVALIDARG : VariantCopyInd(target, &inner);
    }
    VARIANT copy;
    HRESULT hr = duplicate(borrow_target(*source), copy);
    if (FAILED(hr)) {
        return hr;
    }
    // What the target owns goes only now: the source may point into it.
    hr = VariantClear(target);
    if (FAILED(hr)) {
        VariantClear(&copy);
        return hr;
    }
    *target = copy;
    return S_OK;
}
