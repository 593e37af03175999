#include "platform/registry.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <mutex>
#include <new>
#include <utility>

#include "platform/posix/registry_file.h"

namespace platform {
namespace {

constexpr std::size_t longest_key_name = 255;
constexpr std::size_t longest_value_name = 16383;

// Ends an operation with a native result.
struct native_result {
    LONG code;
};

void require(bool condition, LONG code) {
    if (!condition) {
        throw native_result{code};
    }
}

std::string file_of_the_user() {
    if (const char* const named = std::getenv("ORDERDECK_REGISTRY_FILE")) {
        return named;
    }
    const char* const data = std::getenv("XDG_DATA_HOME");
    const char* const home = std::getenv("HOME");
    require(data != nullptr || home != nullptr, ERROR_BADDB);
    const std::filesystem::path root =
        data != nullptr ? std::filesystem::path(data) : std::filesystem::path(home) / ".local" / "share";
    const std::filesystem::path folder = root / "orderdeck";
    std::filesystem::create_directories(folder);
    return folder / "registry.db";
}

std::vector<CString> split(const CString& path) {
    require(path.empty() || path.front() != L'\\', ERROR_BAD_PATHNAME);
    std::vector<CString> names;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find(L'\\', at), path.size());
        if (end != at) {
            names.push_back(path.substr(at, end - at));
            require(names.back().size() <= longest_key_name, ERROR_INVALID_PARAMETER);
        }
        at = end + 1;
    }
    return names;
}

LONG native_code(const sqlite_error& error) {
    switch (error.code()) {
        case SQLITE_NOMEM:
            return ERROR_NOT_ENOUGH_MEMORY;
        case SQLITE_PERM:
        case SQLITE_READONLY:
        case SQLITE_AUTH:
        case SQLITE_CANTOPEN:
            return ERROR_ACCESS_DENIED;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return ERROR_BADDB;
        default:
            return ERROR_REGISTRY_IO_FAILED;
    }
}

LONG copy_name(const std::optional<CString>& found, wchar_t* name, DWORD& length) {
    if (!found) {
        return ERROR_NO_MORE_ITEMS;
    }
    require(found->size() < length, ERROR_MORE_DATA);
    length = static_cast<DWORD>(found->size());
    std::copy_n(found->c_str(), found->size() + 1, name);
    return ERROR_SUCCESS;
}

class posix_registry final : public registry {
public:
    LONG create_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept override {
        return run([&] {
            const auto names = split(path);
            key = keep(file().create(id_of(root), names), access);
            return ERROR_SUCCESS;
        });
    }

    LONG open_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept override {
        return run([&] {
            const auto found = file().find(id_of(root), split(path));
            require(found.has_value(), ERROR_FILE_NOT_FOUND);
            key = keep(*found, access);
            return ERROR_SUCCESS;
        });
    }

    LONG close_key(HKEY key) noexcept override {
        return run([&] { return m_open.erase(key) == 1 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE; });
    }

    LONG query_value(HKEY key, const CString& name, DWORD& type, BYTE* data, DWORD& bytes) noexcept override {
        return run([&] {
            const auto found = file().read(id_of(key, KEY_QUERY_VALUE), name);
            require(found.has_value(), ERROR_FILE_NOT_FOUND);
            type = found->type;
            const DWORD room = std::exchange(bytes, static_cast<DWORD>(found->data.size()));
            if (data != nullptr) {
                require(found->data.size() <= room, ERROR_MORE_DATA);
                std::copy_n(found->data.data(), found->data.size(), reinterpret_cast<std::byte*>(data));
            }
            return ERROR_SUCCESS;
        });
    }

    LONG set_value(HKEY key, const CString& name, DWORD type, const BYTE* data,
                   DWORD bytes) noexcept override {
        return run([&] {
            const auto id = id_of(key, KEY_SET_VALUE);
            require(name.size() <= longest_value_name, ERROR_INVALID_PARAMETER);
            file().write(id, name, type, {reinterpret_cast<const std::byte*>(data), bytes});
            return ERROR_SUCCESS;
        });
    }

    LONG delete_value(HKEY key, const CString& name) noexcept override {
        return run([&] {
            return file().remove(id_of(key, KEY_SET_VALUE), name) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
        });
    }

    LONG enum_key(HKEY key, DWORD index, wchar_t* name, DWORD& length) noexcept override {
        return run([&] {
            return copy_name(file().subkey(id_of(key, KEY_ENUMERATE_SUB_KEYS), index), name, length);
        });
    }

    LONG enum_value(HKEY key, DWORD index, wchar_t* name, DWORD& length) noexcept override {
        return run(
            [&] { return copy_name(file().value_name(id_of(key, KEY_QUERY_VALUE), index), name, length); });
    }

    LONG query_info(HKEY key, DWORD& subkeys, DWORD& values) noexcept override {
        return run([&] {
            const auto id = id_of(key, KEY_QUERY_VALUE);
            subkeys = file().subkey_count(id);
            values = file().value_count(id);
            return ERROR_SUCCESS;
        });
    }

    LONG delete_tree(HKEY root, const CString& path) noexcept override {
        return run([&] {
            const auto names = split(path);
            require(!names.empty(), ERROR_INVALID_PARAMETER);
            return file().delete_tree(id_of(root), names) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
        });
    }

private:
    struct opened {
        registry_file::key_id id;
        REGSAM access;
    };

    // One operation at a time, and no exception leaves.
    template <class Operation>
    LONG run(Operation&& operation) noexcept {
        const std::lock_guard lock(m_lock);
        try {
            return operation();
        } catch (const native_result& result) {
            return result.code;
        } catch (const sqlite_error& error) {
            return native_code(error);
        } catch (const std::bad_alloc&) {
            return ERROR_NOT_ENOUGH_MEMORY;
        } catch (const std::exception&) {
            return ERROR_REGISTRY_IO_FAILED;
        }
    }

    registry_file& file() {
        if (!m_file) {
            m_file.emplace(file_of_the_user());
        }
        return *m_file;
    }

    HKEY keep(registry_file::key_id id, REGSAM access) {
        const auto handle = reinterpret_cast<HKEY>(m_next_handle);
        m_open.emplace(handle, opened{id, access});
        ++m_next_handle;
        return handle;
    }

    registry_file::key_id id_of(HKEY key, REGSAM needed = 0) {
        if (key == HKEY_CURRENT_USER) {
            return registry_file::current_user;
        }
        if (key == HKEY_CLASSES_ROOT) {
            return registry_file::classes_root;
        }
        const auto found = m_open.find(key);
        require(found != m_open.end(), ERROR_INVALID_HANDLE);
        require((found->second.access & needed) == needed, ERROR_ACCESS_DENIED);
        require(file().exists(found->second.id), ERROR_KEY_DELETED);
        return found->second.id;
    }

    std::mutex m_lock;
    std::optional<registry_file> m_file;
    std::map<HKEY, opened> m_open;
    ULONG_PTR m_next_handle = 1;
};

}  // namespace

template <>
registry& port<registry>::system() {
    // Never destroyed: keys that are held by static objects are closed after it would be.
    static posix_registry& the_registry = *new posix_registry;
    return the_registry;
}

}  // namespace platform
