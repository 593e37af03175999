#pragma once

#include "platform/com.h"

namespace platform {

// Type information of a class from the type library in this module; the caller owns it. E_POINTER for
// a null out-pointer. Natively there are no type libraries: E_NOTIMPL.
HRESULT class_info(REFCLSID clsid, ITypeInfo** info) noexcept;

}  // namespace platform
