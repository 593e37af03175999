// The system's registry with a record of what is done to it, in which chosen operations fail.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/registry.h"

// Stands in for the registry port while it lives. One thread at a time.
class failing_registry final : public platform::registry {
public:
    failing_registry() : m_system(platform::port<platform::registry>::get()), m_replacement(*this) {}

    // The operation of that name fails with the result, from its call number first on (1 is the next),
    // times times.
    void fail(const std::string& operation, LONG result, int first = 1, int times = 1000000) {
        m_failures[operation] = {result, first, first + times};
        m_counts[operation] = 0;
    }

    // Runs before each operation that changes the registry; a process may end in it.
    std::function<void()> before_change;

    // The operations in their order, such as L"open_key SOFTWARE\x 2001f" and L"set_value name".
    const std::vector<std::wstring>& calls() const { return m_calls; }

    // The room, in characters, that each call for a key's name came with.
    const std::vector<DWORD>& rooms() const { return m_rooms; }

    LONG create_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept override {
        return run("create_key", path + with(access),
                   [&] { return m_system.create_key(root, path, access, key); });
    }
    LONG open_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept override {
        return run("open_key", path + with(access),
                   [&] { return m_system.open_key(root, path, access, key); });
    }
    LONG close_key(HKEY key) noexcept override {
        return run("close_key", L"", [&] { return m_system.close_key(key); });
    }
    LONG query_value(HKEY key, const CString& name, DWORD& type, BYTE* data, DWORD& bytes) noexcept override {
        return run("query_value", name, [&] { return m_system.query_value(key, name, type, data, bytes); });
    }
    LONG set_value(HKEY key, const CString& name, DWORD type, const BYTE* data,
                   DWORD bytes) noexcept override {
        return run("set_value", name, [&] { return m_system.set_value(key, name, type, data, bytes); });
    }
    LONG delete_value(HKEY key, const CString& name) noexcept override {
        return run("delete_value", name, [&] { return m_system.delete_value(key, name); });
    }
    LONG enum_key(HKEY key, DWORD index, wchar_t* name, DWORD& length) noexcept override {
        m_rooms.push_back(length);
        return run("enum_key", std::to_wstring(index),
                   [&] { return m_system.enum_key(key, index, name, length); });
    }
    LONG enum_value(HKEY key, DWORD index, wchar_t* name, DWORD& length) noexcept override {
        return run("enum_value", std::to_wstring(index),
                   [&] { return m_system.enum_value(key, index, name, length); });
    }
    LONG query_info(HKEY key, DWORD& subkeys, DWORD& values) noexcept override {
        return run("query_info", L"", [&] { return m_system.query_info(key, subkeys, values); });
    }
    LONG delete_tree(HKEY root, const CString& path) noexcept override {
        return run("delete_tree", path, [&] { return m_system.delete_tree(root, path); });
    }

private:
    struct failure {
        LONG result;
        int first;
        int end;
    };

    static CString with(REGSAM access) {
        CString text = L" ";
        for (int shift = 16; shift >= 0; shift -= 4) {
            text += L"0123456789abcdef"[access >> shift & 0xF];
        }
        return text;
    }

    template <class Operation>
    LONG run(const std::string& name, const CString& argument, Operation&& operation) {
        CString call(name.begin(), name.end());
        m_calls.push_back(argument.empty() ? call : call + L" " + argument);
        const bool changes =
            name == "create_key" || name == "set_value" || name == "delete_value" || name == "delete_tree";
        if (changes && before_change) {
            before_change();
        }
        const auto found = m_failures.find(name);
        if (found != m_failures.end()) {
            const int count = ++m_counts[name];
            if (count >= found->second.first && count < found->second.end) {
                return found->second.result;
            }
        }
        return operation();
    }

    platform::registry& m_system;
    platform::port<platform::registry>::replacement m_replacement;
    std::map<std::string, failure> m_failures;
    std::map<std::string, int> m_counts;
    std::vector<std::wstring> m_calls;
    std::vector<DWORD> m_rooms;
};
