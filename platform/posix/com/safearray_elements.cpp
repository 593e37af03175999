#include "platform/posix/com/safearray_elements.h"

#include <cstring>

namespace posix_com {

ULONG element_size(VARTYPE vt) noexcept {
    switch (vt) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_DATE:
            return 8;
        case VT_BSTR:
        case VT_UNKNOWN:
        case VT_DISPATCH:
            return sizeof(void*);
        case VT_VARIANT:
            return sizeof(VARIANT);
        default:
            return 0;
    }
}

USHORT element_features(VARTYPE vt) noexcept {
    switch (vt) {
        case VT_BSTR:
            return FADF_HAVEVARTYPE | FADF_BSTR;
        case VT_UNKNOWN:
            return FADF_HAVEVARTYPE | FADF_UNKNOWN;
        case VT_DISPATCH:
            return FADF_HAVEVARTYPE | FADF_DISPATCH;
        case VT_VARIANT:
            return FADF_HAVEVARTYPE | FADF_VARIANT;
        default:
            return FADF_HAVEVARTYPE;
    }
}

HRESULT copy_element(VARTYPE vt, void* target, const void* source) noexcept {
    switch (vt) {
        case VT_BSTR: {
            const BSTR text = *static_cast<const BSTR*>(source);
            const BSTR copy = SysAllocStringByteLen(reinterpret_cast<LPCSTR>(text), SysStringByteLen(text));
            *static_cast<BSTR*>(target) = copy;
            return copy == nullptr ? E_OUTOFMEMORY : S_OK;
        }
        case VT_UNKNOWN:
        case VT_DISPATCH: {
            IUnknown* const object = *static_cast<IUnknown* const*>(source);
            if (object != nullptr) {
                object->AddRef();
            }
            *static_cast<IUnknown**>(target) = object;
            return S_OK;
        }
        case VT_VARIANT:
            VariantInit(static_cast<VARIANT*>(target));
            return VariantCopy(static_cast<VARIANT*>(target), static_cast<const VARIANT*>(source));
        default:
            std::memcpy(target, source, element_size(vt));
            return S_OK;
    }
}

HRESULT clear_element(VARTYPE vt, void* element) noexcept {
    HRESULT hr = S_OK;
    switch (vt) {
        case VT_BSTR:
            SysFreeString(*static_cast<BSTR*>(element));
            break;
        case VT_UNKNOWN:
        case VT_DISPATCH:
            if (IUnknown* const object = *static_cast<IUnknown**>(element); object != nullptr) {
                object->Release();
            }
            break;
        case VT_VARIANT:
            hr = VariantClear(static_cast<VARIANT*>(element));
            break;
        default:
            break;
    }
    if (SUCCEEDED(hr)) {
        std::memset(element, 0, element_size(vt));
    }
    return hr;
}

}  // namespace posix_com
