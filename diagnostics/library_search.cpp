#include "diagnostics/library_search.h"

#include <cwchar>
#include <string>

#include "platform/module.h"
#include "platform/registry.h"

namespace BugSlayerUtil {
namespace {

constexpr wchar_t library_name[] = L"BugSlayerUtil3.0_x64.dll";
constexpr CLSID library_class = {
    0xcf3478aa, 0xdd21, 0x456c, {0x98, 0xf2, 0x52, 0x22, 0xd9, 0xb9, 0xcd, 0x75}};

// The longest registered path in bytes, terminator included. A longer one is not taken.
constexpr std::size_t path_room = 260;

CString class_key() {
    LPOLESTR id = nullptr;
    if (FAILED(StringFromCLSID(library_class, &id))) {
        return {};
    }
    wchar_t key[256];
    const int length = std::swprintf(key, std::size(key), L"CLSID\\%ls\\InprocServer32", id);
    CoTaskMemFree(id);
    return length > 0 ? CString(key) : CString();
}

std::string registered_path() {
    platform::registry_key key;
    if (key.Open(HKEY_CLASSES_ROOT, class_key(), KEY_READ) != ERROR_SUCCESS) {
        return {};
    }
    wchar_t text[path_room];
    DWORD type = 0;
    DWORD bytes = sizeof(text);
    if (key.QueryValue(CString(), type, reinterpret_cast<BYTE*>(text), bytes) != ERROR_SUCCESS ||
        (type != REG_SZ && type != REG_EXPAND_SZ)) {
        return {};
    }
    CString path(text, bytes / sizeof(wchar_t));
    path.resize(std::wcslen(path.c_str()));
    const std::string result = platform::narrow(path);
    return result.size() < path_room ? result : std::string();
}

HMODULE load_registered() {
    const std::string path = registered_path();
    return path.empty() ? nullptr : platform::load_library(path.c_str());
}

}  // namespace

HMODULE find_debug_library() noexcept {
    try {
        const CString name = library_name;
        HMODULE library = platform::find_loaded_library(name);
        if (library == nullptr) {
            library = platform::load_library(name);
        }
        return library != nullptr ? library : load_registered();
    } catch (...) {
        // Out of memory: as if there were none.
        return nullptr;
    }
}

}  // namespace BugSlayerUtil
