// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>
#include <string>

/// One prepared SQL statement with its values bound, to be stepped through once. Values never become part of the SQL.
class Statement {
public:
    /// Prepares @p sql and binds @p values to its question marks in order. Throws std::runtime_error when the database
    /// refuses. The connection must outlive the statement.
    template <typename... Values>
    Statement(sqlite3 *connection, const char *sql, const Values &...values)
        : m_connection(connection)
    {
        sqlite3_stmt *statement = nullptr;
        check(sqlite3_prepare_v2(connection, sql, -1, &statement, nullptr));
        m_statement.reset(statement);
        int index = 0;
        (check(bind(++index, values)), ...);
    }

    /// Moves to the next row; false behind the last one.
    bool next()
    {
        const int result = sqlite3_step(m_statement.get());
        if (result != SQLITE_ROW && result != SQLITE_DONE)
            check(result);
        return result == SQLITE_ROW;
    }

    /// Text of a column of the current row, columns counted from 0; empty for NULL.
    std::string text(int column) const
    {
        const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(m_statement.get(), column));
        return bytes ? std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column)))
                     : std::string();
    }
    std::int64_t number(int column) const { return sqlite3_column_int64(m_statement.get(), column); }
    int integer(int column) const { return sqlite3_column_int(m_statement.get(), column); }

private:
    struct Finalizer {
        void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
    };

    int bind(int index, const std::string &text)
    {
        return sqlite3_bind_text64(m_statement.get(), index, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    int bind(int index, std::int64_t number) { return sqlite3_bind_int64(m_statement.get(), index, number); }

    void check(int result) const
    {
        if (result != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(m_connection));
    }

    sqlite3 *m_connection;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};
