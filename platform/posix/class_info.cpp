#include "platform/class_info.h"

namespace platform {

HRESULT class_info(REFCLSID, ITypeInfo** info) noexcept {
    if (info == nullptr) {
        return E_POINTER;
    }
    *info = nullptr;
    return E_NOTIMPL;
}

}  // namespace platform
