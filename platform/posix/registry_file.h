// The registry as a database file: a tree of keys, each with values. Failures are thrown as sqlite_error.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/posix/sqlite.h"
#include "platform/text.h"

namespace platform {

// Keys are told by row ids, which are never used again. Not safe on two threads at once; other processes
// may use the same file.
class registry_file {
public:
    using key_id = std::int64_t;
    static constexpr key_id current_user = 1;
    static constexpr key_id classes_root = 2;

    struct value {
        DWORD type = REG_NONE;
        std::vector<std::byte> data;
    };

    explicit registry_file(const std::string& file);

    bool exists(key_id key);
    std::optional<key_id> find(key_id root, const std::vector<CString>& path);
    key_id create(key_id root, const std::vector<CString>& path);
    bool delete_tree(key_id root, const std::vector<CString>& path);
    std::optional<CString> subkey(key_id key, DWORD index);
    DWORD subkey_count(key_id key);

    std::optional<value> read(key_id key, const CString& name);
    void write(key_id key, const CString& name, DWORD type, std::span<const std::byte> data);
    bool remove(key_id key, const CString& name);
    std::optional<CString> value_name(key_id key, DWORD index);
    DWORD value_count(key_id key);

private:
    std::optional<CString> nth_name(const char* sql, key_id key, DWORD index);
    DWORD count(const char* sql, key_id key);

    sqlite_connection m_connection;
};

}  // namespace platform
