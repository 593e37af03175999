#include "platform/module.h"

#include <algorithm>
#include <new>
#include <vector>

namespace platform {
namespace {

// A drive and a root, or a share.
bool is_full_path(const CString& name) {
    const auto separator = [](wchar_t c) { return c == L'\\' || c == L'/'; };
    return name.size() > 2 &&
           ((name[1] == L':' && separator(name[2])) || (separator(name[0]) && separator(name[1])));
}

CString path_of(HMODULE module) {
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, buffer.data(), static_cast<DWORD>(buffer.size()));
        if (length < buffer.size()) {
            return {buffer.data(), length};
        }
        buffer.resize(buffer.size() * 2);
    }
}

}  // namespace

HMODULE find_loaded_library(const CString& file_name) noexcept {
    HMODULE library = nullptr;
    return GetModuleHandleExW(0, file_name.c_str(), &library) ? library : nullptr;
}

HMODULE load_library(const CString& name) noexcept try {
    if (name.find_first_of(L"\\/:") == CString::npos) {
        return LoadLibraryExW(name.c_str(), nullptr,
                              LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
    }
    if (!is_full_path(name)) {
        SetLastError(ERROR_BAD_PATHNAME);
        return nullptr;
    }
    // The loader does not take the other separator.
    CString path = name;
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return LoadLibraryExW(path.c_str(), nullptr,
                          LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
} catch (const std::bad_alloc&) {
    return nullptr;
}

HMODULE load_library(const char* path) noexcept {
    wchar_t wide[MAX_PATH];
    if (MultiByteToWideChar(CP_ACP, 0, path, -1, wide, MAX_PATH) == 0) {
        return nullptr;
    }
    try {
        return load_library(CString(wide));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

std::string narrow(const CString& text) {
    const int length = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, result.data(), bytes, nullptr, nullptr);
    return result;
}

void* find_export(HMODULE library, const char* name) noexcept {
    return reinterpret_cast<void*>(GetProcAddress(library, name));
}

CString this_module_path() {
    HMODULE self = nullptr;
    const auto here = reinterpret_cast<const wchar_t*>(&path_of);
    if (!GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, here,
            &self)) {
        return {};
    }
    return path_of(self);
}

CString program_path() {
    return path_of(nullptr);
}

}  // namespace platform
