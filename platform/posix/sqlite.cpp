#include "platform/posix/sqlite.h"

namespace platform {
namespace {

constexpr int wait_milliseconds = 300000;

}  // namespace

sqlite_connection::sqlite_connection(const std::string& file) {
    sqlite3* raw = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    const int code = sqlite3_open_v2(file.c_str(), &raw, flags, nullptr);
    m_database.reset(raw);
    if (code != SQLITE_OK) {
        throw sqlite_error(code, sqlite3_errstr(code));
    }
    sqlite3_busy_timeout(raw, wait_milliseconds);
}

void sqlite_connection::execute(const char* sql) {
    const int code = sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
        throw sqlite_error(code, sqlite3_errmsg(m_database.get()));
    }
}

sqlite_statement::sqlite_statement(sqlite_connection& connection, const char* sql)
    : m_connection(connection) {
    sqlite3_stmt* raw = nullptr;
    check(sqlite3_prepare_v2(connection.get(), sql, -1, &raw, nullptr));
    m_statement.reset(raw);
}

sqlite_statement& sqlite_statement::bind(std::int64_t number) {
    check(sqlite3_bind_int64(m_statement.get(), m_next++, number));
    return *this;
}

sqlite_statement& sqlite_statement::bind(const std::string& text) {
    check(sqlite3_bind_text64(m_statement.get(), m_next++, text.data(), text.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
    return *this;
}

sqlite_statement& sqlite_statement::bind(std::span<const std::byte> data) {
    // A null pointer would be stored as NULL; data of no length is a value like any other.
    const void* const start = data.empty() ? static_cast<const void*>("") : data.data();
    check(sqlite3_bind_blob64(m_statement.get(), m_next++, start, data.size(), SQLITE_STATIC));
    return *this;
}

bool sqlite_statement::step() {
    const int code = sqlite3_step(m_statement.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        check(code);
    }
    return code == SQLITE_ROW;
}

std::string sqlite_statement::text(int column) const {
    const auto bytes = data(column);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::span<const std::byte> sqlite_statement::data(int column) const noexcept {
    const auto* const start = static_cast<const std::byte*>(sqlite3_column_blob(m_statement.get(), column));
    return {start, static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column))};
}

void sqlite_statement::check(int code) const {
    if (code != SQLITE_OK) {
        throw sqlite_error(code, sqlite3_errmsg(m_connection.get()));
    }
}

sqlite_transaction::sqlite_transaction(sqlite_connection& connection) : m_connection(connection) {
    m_connection.execute("BEGIN IMMEDIATE");
}

sqlite_transaction::~sqlite_transaction() {
    if (m_open) {
        sqlite3_exec(m_connection.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void sqlite_transaction::commit() {
    m_connection.execute("COMMIT");
    m_open = false;
}

}  // namespace platform
