#include <windows.h>

#include <algorithm>
#include <cwctype>
#include <new>
#include <string>

#include "platform/posix/com/variant_types.h"

namespace {

using posix_com::number;

bool is_object(VARTYPE vt) {
    return vt == VT_UNKNOWN || vt == VT_DISPATCH;
}

HRESULT to_bstr(const VARIANT& source, USHORT flags, VARIANT& target) {
    std::wstring text;
    const HRESULT hr = posix_com::to_text(source, flags, text);
    if (FAILED(hr)) {
        return hr;
    }
    target.bstrVal = SysAllocStringLen(text.c_str(), static_cast<UINT>(text.size()));
    return target.bstrVal == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT to_object(const VARIANT& source, VARTYPE vt, VARIANT& target) {
    if (!is_object(source.vt)) {
        return DISP_E_TYPEMISMATCH;
    }
    target.punkVal = nullptr;
    if (source.punkVal == nullptr) {
        return S_OK;
    }
    return source.punkVal->QueryInterface(vt == VT_UNKNOWN ? IID_IUnknown : IID_IDispatch, &target.byref);
}

bool equal_ignoring_case(const std::wstring& text, const wchar_t* word) {
    std::wstring lower(text.size(), L'\0');
    std::transform(text.begin(), text.end(), lower.begin(), [](wchar_t c) {
        return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
    });
    return lower == word;
}

// The two words, and their forms in basic source text; else a number.
HRESULT text_to_truth(const VARIANT& source, VARIANT& target) {
    const std::wstring text(source.bstrVal == nullptr ? L"" : source.bstrVal, SysStringLen(source.bstrVal));
    if (equal_ignoring_case(text, L"true") || text == L"#TRUE#") {
        target.boolVal = VARIANT_TRUE;
        return S_OK;
    }
    if (equal_ignoring_case(text, L"false") || text == L"#FALSE#") {
        target.boolVal = VARIANT_FALSE;
        return S_OK;
    }
    number value;
    const HRESULT hr = posix_com::read_number(source, value);
    return FAILED(hr) ? hr : posix_com::write_number(value, VT_BOOL, target);
}

HRESULT to_number(const VARIANT& source, VARTYPE vt, VARIANT& target) {
    if (source.vt == VT_BSTR && vt == VT_BOOL) {
        return text_to_truth(source, target);
    }
    // Dates in text are not read here, so a number in text is no date either.
    if (source.vt == VT_BSTR && vt == VT_DATE) {
        return DISP_E_TYPEMISMATCH;
    }
    number value;
    const HRESULT hr = posix_com::read_number(source, value);
    return FAILED(hr) ? hr : posix_com::write_number(value, vt, target);
}

// From a valid variant that is no reference to a target that owns nothing yet.
HRESULT convert(const VARIANT& source, USHORT flags, VARTYPE vt, VARIANT& target) {
    if (source.vt == vt) {
        return VariantCopy(&target, &source);
    }
    if (((source.vt | vt) & (VT_ARRAY | VT_BYREF)) != 0 || source.vt == VT_NULL || source.vt == VT_ERROR) {
        return DISP_E_TYPEMISMATCH;
    }
    HRESULT hr = S_OK;
    if (vt == VT_BSTR) {
        hr = to_bstr(source, flags, target);
    } else if (is_object(vt)) {
        hr = to_object(source, vt, target);
    } else if (vt != VT_EMPTY && vt != VT_NULL) {
        hr = to_number(source, vt, target);
    }
    if (SUCCEEDED(hr)) {
        target.vt = vt;
    }
    return hr;
}

// The source may be the target, so the result takes its place at the end.
HRESULT change_type(VARIANT* target, const VARIANT* source, USHORT flags, VARTYPE vt) {
    if (const HRESULT hr = posix_com::check_type(source->vt); FAILED(hr)) {
        return hr;
    }
    if (const HRESULT hr = posix_com::check_type(vt); FAILED(hr)) {
        return hr;
    }
    VARIANT value = {};
    HRESULT hr = VariantCopyInd(&value, source);
    if (FAILED(hr)) {
        return hr;
    }
    VARIANT result = {};
    hr = convert(value, flags, vt, result);
    VariantClear(&value);
    if (SUCCEEDED(hr)) {
        hr = VariantClear(target);
    }
    if (FAILED(hr)) {
        VariantClear(&result);
        return hr;
    }
    *target = result;
    return S_OK;
}

}  // namespace

HRESULT VariantChangeTypeEx(VARIANTARG* target, const VARIANTARG* source, LCID /*lcid*/, USHORT flags,
                            VARTYPE vt) noexcept {
    try {
        return change_type(target, source, flags, vt);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT VariantChangeType(VARIANTARG* target, const VARIANTARG* source, USHORT flags, VARTYPE vt) noexcept {
    return VariantChangeTypeEx(target, source, LOCALE_USER_DEFAULT, flags, vt);
}
