#include "platform/registry.h"

namespace platform {
namespace {

class win32_registry final : public registry {
public:
    LONG create_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept override {
        return RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, access, nullptr, &key, nullptr);
    }

    LONG open_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept override {
        return RegOpenKeyExW(root, path.c_str(), 0, access, &key);
    }

    LONG close_key(HKEY key) noexcept override { return RegCloseKey(key); }

    LONG query_value(HKEY key, const CString& name, DWORD& type, BYTE* data, DWORD& bytes) noexcept override {
        return RegQueryValueExW(key, name.c_str(), nullptr, &type, data, &bytes);
    }

    LONG set_value(HKEY key, const CString& name, DWORD type, const BYTE* data,
                   DWORD bytes) noexcept override {
        return RegSetValueExW(key, name.c_str(), 0, type, data, bytes);
    }

    LONG delete_value(HKEY key, const CString& name) noexcept override {
        return RegDeleteValueW(key, name.c_str());
    }

    LONG enum_key(HKEY key, DWORD index, wchar_t* name, DWORD& length) noexcept override {
        return RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr);
    }

    LONG enum_value(HKEY key, DWORD index, wchar_t* name, DWORD& length) noexcept override {
        return RegEnumValueW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr);
    }

    LONG query_info(HKEY key, DWORD& subkeys, DWORD& values) noexcept override {
        return RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr, &values, nullptr,
                                nullptr, nullptr, nullptr);
    }

    LONG delete_tree(HKEY root, const CString& path) noexcept override {
        // The system would empty the root itself.
        return path.empty() ? ERROR_INVALID_PARAMETER : RegDeleteTreeW(root, path.c_str());
    }
};

}  // namespace

template <>
registry& port<registry>::system() {
    static win32_registry the_registry;
    return the_registry;
}

}  // namespace platform
