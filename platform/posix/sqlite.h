// What the registry file needs of SQLite: a connection, a prepared statement, a transaction. Failures are
// thrown as sqlite_error.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>

namespace platform {

class sqlite_error : public std::runtime_error {
public:
    sqlite_error(int code, const char* text) : std::runtime_error(text), m_code(code) {}

    // The primary SQLite result code.
    int code() const noexcept { return m_code & 0xFF; }

private:
    int m_code;
};

// One database file, made unless it exists. Waits up to five minutes for other processes.
class sqlite_connection {
public:
    explicit sqlite_connection(const std::string& file);

    void execute(const char* sql);
    std::int64_t last_row() const noexcept { return sqlite3_last_insert_rowid(m_database.get()); }
    int changes() const noexcept { return sqlite3_changes(m_database.get()); }
    sqlite3* get() const noexcept { return m_database.get(); }

private:
    struct closer {
        void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, closer> m_database;
};

// A prepared statement; parameters are bound in order, and what is bound must live as long as it.
class sqlite_statement {
public:
    sqlite_statement(sqlite_connection& connection, const char* sql);

    sqlite_statement& bind(std::int64_t number);
    sqlite_statement& bind(const std::string& text);
    sqlite_statement& bind(std::span<const std::byte> data);

    // True while there is a row.
    bool step();

    std::int64_t number(int column) const noexcept { return sqlite3_column_int64(m_statement.get(), column); }
    std::string text(int column) const;
    std::span<const std::byte> data(int column) const noexcept;

private:
    void check(int code) const;

    struct finalizer {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    sqlite_connection& m_connection;
    std::unique_ptr<sqlite3_stmt, finalizer> m_statement;
    int m_next = 1;
};

// Rolled back unless committed. Takes the write lock at once, so that nothing read in it is out of date.
class sqlite_transaction {
public:
    explicit sqlite_transaction(sqlite_connection& connection);
    ~sqlite_transaction();
    sqlite_transaction(const sqlite_transaction&) = delete;
    sqlite_transaction& operator=(const sqlite_transaction&) = delete;

    void commit();

private:
    sqlite_connection& m_connection;
    bool m_open = true;
};

}  // namespace platform
