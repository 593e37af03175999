#include "platform/resources.h"

#include <array>
#include <cwchar>
#include <vector>

namespace platform {
namespace {

HMODULE this_module() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&this_module), &module);
    return module;
}

std::span<const std::byte> find_resource(HMODULE module, LPCWSTR name, LPCWSTR type) {
    const HRSRC found = FindResourceW(module, name, type);
    if (found == nullptr) {
        return {};
    }
    const HGLOBAL loaded = LoadResource(module, found);
    const void* const start = loaded != nullptr ? LockResource(loaded) : nullptr;
    if (start == nullptr) {
        return {};
    }
    return {static_cast<const std::byte*>(start), SizeofResource(module, found)};
}

struct translation {
    WORD language;
    WORD code_page;
};

}  // namespace

std::optional<CString> load_string(UINT id, HMODULE module) {
    // With no room given, the system gives the text's place in the module.
    const wchar_t* text = nullptr;
    const int length =
        LoadStringW(module != nullptr ? module : this_module(), id, reinterpret_cast<LPWSTR>(&text), 0);
    if (length <= 0) {
        return {};
    }
    return CString(text, static_cast<std::size_t>(length));
}

std::span<const std::byte> load_png(UINT id) {
    return find_resource(this_module(), MAKEINTRESOURCEW(id), L"PNG");
}

CString main_version_string(const wchar_t* name) {
    const auto resource =
        find_resource(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(VS_VERSION_INFO), MAKEINTRESOURCEW(16));
    // The query wants a block that it may write to.
    std::vector<std::byte> block(resource.begin(), resource.end());
    if (block.empty()) {
        return {};
    }
    void* found = nullptr;
    UINT length = 0;
    if (VerQueryValueW(block.data(), L"\\VarFileInfo\\Translation", &found, &length) == 0 ||
        length < sizeof(translation)) {
        return {};
    }
    const auto* const first = static_cast<const translation*>(found);
    std::array<wchar_t, 32> table{};
    std::swprintf(table.data(), table.size(), L"\\StringFileInfo\\%04x%04x\\", first->language,
                  first->code_page);
    if (VerQueryValueW(block.data(), (CString(table.data()) + name).c_str(), &found, &length) == 0 ||
        length == 0) {
        return {};
    }
    // Whether the length counts the terminator depends on who made the block.
    const auto* const text = static_cast<const wchar_t*>(found);
    return {text, wcsnlen(text, length)};
}

}  // namespace platform
