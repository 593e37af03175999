#include "platform/class_info.h"

#include "platform/com_ptr.h"

namespace platform {

HRESULT class_info(REFCLSID clsid, ITypeInfo** info) noexcept {
    if (info == nullptr) {
        return E_POINTER;
    }
    *info = nullptr;
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = {};
    if (!GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<LPCWSTR>(&class_info), &module)) {
        return HRESULT_FROM_WIN32(GetLastError());
    }
    const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
    if (length == 0 || length == MAX_PATH) {
        return E_FAIL;
    }
    com_ptr<ITypeLib> library;
    const HRESULT hr = LoadTypeLibEx(path, REGKIND_NONE, receive(library));
    return FAILED(hr) ? hr : library->GetTypeInfoOfGuid(clsid, info);
}

}  // namespace platform
