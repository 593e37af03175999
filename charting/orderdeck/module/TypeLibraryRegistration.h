#pragma once

#include "platform/text.h"

namespace OV_OrderDeck {

// Registers the type library inside a module, for this user when the system can and else for the
// machine, with the module's folder as the help directory.
HRESULT register_type_library(const CString& module_path);

// S_OK also when the library is not registered.
HRESULT unregister_type_library(REFGUID libid);

}  // namespace OV_OrderDeck
