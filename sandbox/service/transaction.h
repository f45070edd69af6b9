// SPDX-License-Identifier: MIT
#pragma once

#include "database.h"
#include "statement.h"

/// Changes made while one of these lives become lasting with commit(), and are undone without.
class Database::Transaction {
public:
    explicit Transaction(sqlite3 *connection)
        : m_connection(connection)
    {
        Statement(connection, "BEGIN IMMEDIATE").next();
    }
    ~Transaction()
    {
        if (!m_committed)
            sqlite3_exec(m_connection, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void commit()
    {
        Statement(m_connection, "COMMIT").next();
        m_committed = true;
    }

private:
    sqlite3 *m_connection;
    bool m_committed = false;
};

/// The player in the five columns from @p column on: id, login, name, motto, city.
inline Player playerAt(const Statement &row, int column)
{
    return {row.text(column), row.text(column + 1), row.text(column + 2), row.text(column + 3), row.text(column + 4)};
}
