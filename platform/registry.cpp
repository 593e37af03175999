#include "platform/registry.h"

#include <utility>

namespace platform {
namespace {

registry& store() {
    return port<registry>::get();
}

}  // namespace

registry_key::registry_key(registry_key&& other) noexcept : m_key(std::exchange(other.m_key, nullptr)) {}

registry_key& registry_key::operator=(registry_key&& other) noexcept {
    std::swap(m_key, other.m_key);
    return *this;
}

LONG registry_key::Create(HKEY root, const CString& path, REGSAM access) noexcept {
    HKEY made = nullptr;
    const LONG result = store().create_key(root, path, access, made);
    Close();
    m_key = result == ERROR_SUCCESS ? made : nullptr;
    return result;
}

LONG registry_key::Open(HKEY root, const CString& path, REGSAM access) noexcept {
    HKEY opened = nullptr;
    const LONG result = store().open_key(root, path, access, opened);
    Close();
    m_key = result == ERROR_SUCCESS ? opened : nullptr;
    return result;
}

void registry_key::Close() noexcept {
    if (m_key != nullptr) {
        const DWORD last_error = GetLastError();
        store().close_key(std::exchange(m_key, nullptr));
        SetLastError(last_error);
    }
}

LONG registry_key::QueryValue(const CString& name, DWORD& type, BYTE* data, DWORD& bytes) const noexcept {
    return store().query_value(m_key, name, type, data, bytes);
}

LONG registry_key::SetValue(const CString& name, DWORD type, const BYTE* data, DWORD bytes) const noexcept {
    return store().set_value(m_key, name, type, data, bytes);
}

LONG registry_key::DeleteValue(const CString& name) const noexcept {
    return store().delete_value(m_key, name);
}

LONG registry_key::EnumKey(DWORD index, wchar_t* name, DWORD& length) const noexcept {
    return store().enum_key(m_key, index, name, length);
}

LONG registry_key::EnumValue(DWORD index, wchar_t* name, DWORD& length) const noexcept {
    return store().enum_value(m_key, index, name, length);
}

LONG registry_key::QueryInfo(DWORD& subkeys, DWORD& values) const noexcept {
    return store().query_info(m_key, subkeys, values);
}

LONG registry_key::QueryDWORD(const CString& name, DWORD& value) const noexcept {
    DWORD type = REG_NONE;
    DWORD read = 0;
    DWORD bytes = sizeof(read);
    const LONG result = QueryValue(name, type, reinterpret_cast<BYTE*>(&read), bytes);
    if (result != ERROR_SUCCESS && result != ERROR_MORE_DATA) {
        return result;
    }
    if (result == ERROR_MORE_DATA || type != REG_DWORD || bytes != sizeof(read)) {
        return ERROR_INVALID_DATA;
    }
    value = read;
    return ERROR_SUCCESS;
}

LONG registry_key::SetDWORD(const CString& name, DWORD value) const noexcept {
    return SetValue(name, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof(value));
}

LONG registry_key::SetString(const CString& name, const CString& text) const noexcept {
    return SetValue(name, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

LONG registry_key::DeleteTree(HKEY root, const CString& path) noexcept {
    return store().delete_tree(root, path);
}

}  // namespace platform
