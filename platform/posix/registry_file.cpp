#include "platform/posix/registry_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unicode/unistr.h>
#include <unistd.h>

#include "platform/utf8.h"

namespace platform {
namespace {

constexpr const char* schema = R"(
PRAGMA journal_mode = WAL;
PRAGMA synchronous = NORMAL;
PRAGMA foreign_keys = ON;
BEGIN IMMEDIATE;
CREATE TABLE IF NOT EXISTS keys (
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  parent INTEGER REFERENCES keys(id) ON DELETE CASCADE,
  folded TEXT NOT NULL,
  name TEXT NOT NULL,
  UNIQUE (parent, folded));
CREATE TABLE IF NOT EXISTS entries (
  id INTEGER PRIMARY KEY,
  key INTEGER NOT NULL REFERENCES keys(id) ON DELETE CASCADE,
  folded TEXT NOT NULL,
  name TEXT NOT NULL,
  type INTEGER NOT NULL,
  data BLOB NOT NULL,
  UNIQUE (key, folded));
INSERT OR IGNORE INTO keys (id, folded, name) VALUES
  (1, 'hkey_current_user', 'HKEY_CURRENT_USER'),
  (2, 'hkey_classes_root', 'HKEY_CLASSES_ROOT');
COMMIT;
)";

// The form in which names are compared.
std::string folded(const CString& text) {
    std::string result;
    return icu::UnicodeString::fromUTF8(to_utf8(text)).foldCase().toUTF8String(result);
}

// Lets one process at a time make the file what it must be: a change of the journal's mode does not wait for
// others. The lock's own file stays.
class opening_lock {
public:
    explicit opening_lock(const std::string& file)
        : m_fd(open((file + "-opening").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (m_fd < 0 || flock(m_fd, LOCK_EX) != 0) {
            throw sqlite_error(SQLITE_CANTOPEN, "the registry file can't be locked");
        }
    }
    ~opening_lock() { close(m_fd); }
    opening_lock(const opening_lock&) = delete;
    opening_lock& operator=(const opening_lock&) = delete;

private:
    int m_fd;
};

}  // namespace

registry_file::registry_file(const std::string& file) : m_connection(file) {
    const opening_lock lock(file);
    m_connection.execute(schema);
}

bool registry_file::exists(key_id key) {
    return sqlite_statement(m_connection, "SELECT 1 FROM keys WHERE id = ?").bind(key).step();
}

std::optional<registry_file::key_id> registry_file::find(key_id root, const std::vector<CString>& path) {
    key_id at = root;
    for (const CString& name : path) {
        const std::string wanted = folded(name);
        sqlite_statement row(m_connection, "SELECT id FROM keys WHERE parent = ? AND folded = ?");
        if (!row.bind(at).bind(wanted).step()) {
            return {};
        }
        at = row.number(0);
    }
    return at;
}

registry_file::key_id registry_file::create(key_id root, const std::vector<CString>& path) {
    sqlite_transaction transaction(m_connection);
    key_id at = root;
    for (const CString& name : path) {
        if (const auto found = find(at, {name})) {
            at = *found;
            continue;
        }
        const std::string compared = folded(name);
        const std::string shown = to_utf8(name);
        sqlite_statement(m_connection, "INSERT INTO keys (parent, folded, name) VALUES (?, ?, ?)")
            .bind(at)
            .bind(compared)
            .bind(shown)
            .step();
        at = m_connection.last_row();
    }
    transaction.commit();
    return at;
}

bool registry_file::delete_tree(key_id root, const std::vector<CString>& path) {
    sqlite_transaction transaction(m_connection);
    const auto found = find(root, path);
    if (found) {
        sqlite_statement(m_connection, "DELETE FROM keys WHERE id = ?").bind(*found).step();
    }
    transaction.commit();
    return found.has_value();
}

std::optional<CString> registry_file::nth_name(const char* sql, key_id key, DWORD index) {
    sqlite_statement row(m_connection, sql);
    if (!row.bind(key).bind(std::int64_t{index}).step()) {
        return {};
    }
    return from_utf8(row.text(0));
}

DWORD registry_file::count(const char* sql, key_id key) {
    sqlite_statement row(m_connection, sql);
    row.bind(key).step();
    return static_cast<DWORD>(row.number(0));
}

std::optional<CString> registry_file::subkey(key_id key, DWORD index) {
    return nth_name("SELECT name FROM keys WHERE parent = ? ORDER BY folded LIMIT 1 OFFSET ?", key, index);
}

DWORD registry_file::subkey_count(key_id key) {
    return count("SELECT COUNT(*) FROM keys WHERE parent = ?", key);
}

std::optional<registry_file::value> registry_file::read(key_id key, const CString& name) {
    const std::string wanted = folded(name);
    sqlite_statement row(m_connection, "SELECT type, data FROM entries WHERE key = ? AND folded = ?");
    if (!row.bind(key).bind(wanted).step()) {
        return {};
    }
    const auto data = row.data(1);
    return value{static_cast<DWORD>(row.number(0)), {data.begin(), data.end()}};
}

void registry_file::write(key_id key, const CString& name, DWORD type, std::span<const std::byte> data) {
    const std::string compared = folded(name);
    const std::string shown = to_utf8(name);
    sqlite_statement(m_connection,
                     "INSERT INTO entries (key, folded, name, type, data) VALUES (?, ?, ?, ?, ?) "
                     "ON CONFLICT (key, folded) DO UPDATE SET type = excluded.type, data = excluded.data")
        .bind(key)
        .bind(compared)
        .bind(shown)
        .bind(std::int64_t{type})
        .bind(data)
        .step();
}

bool registry_file::remove(key_id key, const CString& name) {
    const std::string wanted = folded(name);
    sqlite_statement(m_connection, "DELETE FROM entries WHERE key = ? AND folded = ?")
        .bind(key)
        .bind(wanted)
        .step();
    return m_connection.changes() != 0;
}

std::optional<CString> registry_file::value_name(key_id key, DWORD index) {
    return nth_name("SELECT name FROM entries WHERE key = ? ORDER BY id LIMIT 1 OFFSET ?", key, index);
}

DWORD registry_file::value_count(key_id key) {
    return count("SELECT COUNT(*) FROM entries WHERE key = ?", key);
}

}  // namespace platform
