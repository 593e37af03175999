#include "platform/win32/frame/module_instance.h"

namespace frame {

HINSTANCE module_instance() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&module_instance), &module);
    return module;
}

}  // namespace frame
