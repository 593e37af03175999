#include "tests/diagnostics/told_registry.h"

#include <cstring>

void told_registry::tell(HKEY root, const CString& path) {
    m_keys[{root, path}] = {};
}

void told_registry::tell(HKEY root, const CString& path, DWORD type, const CString& text) {
    m_keys[{root, path}] = {true, type, text};
}

LONG told_registry::open_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept {
    const auto found = m_keys.find({root, path});
    if (found == m_keys.end()) {
        return ERROR_FILE_NOT_FOUND;
    }
    m_for_writing += access != KEY_READ;
    ++m_open;
    key = reinterpret_cast<HKEY>(&found->second);
    return ERROR_SUCCESS;
}

LONG told_registry::close_key(HKEY) noexcept {
    --m_open;
    return ERROR_SUCCESS;
}

LONG told_registry::query_value(HKEY key, const CString& name, DWORD& type, BYTE* data,
                                DWORD& bytes) noexcept {
    const auto& told = *reinterpret_cast<const told_key*>(key);
    if (!name.empty() || !told.has_value) {
        return ERROR_FILE_NOT_FOUND;
    }
    type = told.type;
    const DWORD room = bytes;
    bytes = static_cast<DWORD>(told.text.size() * sizeof(wchar_t));
    if (data == nullptr) {
        return ERROR_SUCCESS;
    }
    if (room < bytes) {
        return ERROR_MORE_DATA;
    }
    std::memcpy(data, told.text.data(), bytes);
    return ERROR_SUCCESS;
}

LONG told_registry::create_key(HKEY, const CString&, REGSAM, HKEY&) noexcept {
    return ERROR_ACCESS_DENIED;
}

LONG told_registry::set_value(HKEY, const CString&, DWORD, const BYTE*, DWORD) noexcept {
    return ERROR_ACCESS_DENIED;
}

LONG told_registry::delete_value(HKEY, const CString&) noexcept {
    return ERROR_ACCESS_DENIED;
}

LONG told_registry::enum_key(HKEY, DWORD, wchar_t*, DWORD&) noexcept {
    return ERROR_NO_MORE_ITEMS;
}

LONG told_registry::enum_value(HKEY, DWORD, wchar_t*, DWORD&) noexcept {
    return ERROR_NO_MORE_ITEMS;
}

LONG told_registry::query_info(HKEY, DWORD& subkeys, DWORD& values) noexcept {
    subkeys = 0;
    values = 0;
    return ERROR_SUCCESS;
}

LONG told_registry::delete_tree(HKEY, const CString&) noexcept {
    return ERROR_ACCESS_DENIED;
}
