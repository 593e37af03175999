// A registry that holds what a test tells and can only be read: the real keys of the diagnostics are
// fixed, and test programs that run side by side would meet in them.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/registry.h"

class told_registry final : public platform::registry {
public:
    // A key without a default value, and one with the bytes of that value.
    void tell(HKEY root, const CString& path);
    void tell(HKEY root, const CString& path, DWORD type, const CString& text);

    LONG create_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept override;
    LONG open_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept override;
    LONG close_key(HKEY key) noexcept override;
    LONG query_value(HKEY key, const CString& name, DWORD& type, BYTE* data, DWORD& bytes) noexcept override;
    LONG set_value(HKEY key, const CString& name, DWORD type, const BYTE* data,
                   DWORD bytes) noexcept override;
    LONG delete_value(HKEY key, const CString& name) noexcept override;
    LONG enum_key(HKEY key, DWORD index, wchar_t* name, DWORD& length) noexcept override;
    LONG enum_value(HKEY key, DWORD index, wchar_t* name, DWORD& length) noexcept override;
    LONG query_info(HKEY key, DWORD& subkeys, DWORD& values) noexcept override;
    LONG delete_tree(HKEY root, const CString& path) noexcept override;

    // Keys that were opened and not closed; keys opened for more than reading.
    int open_keys() const { return m_open; }
    int opened_for_writing() const { return m_for_writing; }

private:
    struct told_key {
        bool has_value = false;
        DWORD type = 0;
        CString text;
    };

    std::map<std::pair<HKEY, CString>, told_key> m_keys;
    int m_open = 0;
    int m_for_writing = 0;
    platform::port<platform::registry>::replacement m_replacement{*this};
};
