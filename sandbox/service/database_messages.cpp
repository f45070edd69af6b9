// SPDX-License-Identifier: MIT
#include "transaction.h"

std::vector<Conversation> Database::conversations(const std::string &playerId)
{
    const std::lock_guard lock(m_mutex);
    // Of the bare columns beside max(), SQLite takes those of the row that holds the maximum.
    Statement rows(m_connection.get(), R"(
        SELECT p.id, p.login, p.name, p.motto, p.city, substr(text, 1, 80), sent, mine, sum(fresh), max(message)
        FROM (SELECT m.id AS message, m.sender AS other, m.text, m.sent, 0 AS mine, d.read = 0 AS fresh
                  FROM delivery d JOIN message m ON m.id = d.message WHERE d.recipient = ?1
              UNION ALL
              SELECT m.id, d.recipient, m.text, m.sent, 1, 0
                  FROM message m JOIN delivery d ON d.message = m.id WHERE m.sender = ?1 AND d.recipient <> ?1)
        JOIN player p ON p.id = other GROUP BY other ORDER BY max(message) DESC LIMIT 100)",
                   playerId);
    std::vector<Conversation> result;
    while (rows.next())
        result.push_back({playerAt(rows, 0), rows.text(5), rows.number(6), rows.integer(7) != 0, rows.integer(8)});
    return result;
}

std::vector<Message> Database::conversation(const std::string &playerId, const std::string &otherId)
{
    const std::lock_guard lock(m_mutex);
    Statement rows(m_connection.get(), R"(
        SELECT p.id, p.login, p.name, p.motto, p.city, m.text, m.sent, m.sender = ?1
        FROM message m JOIN delivery d ON d.message = m.id JOIN player p ON p.id = ?2
        WHERE (m.sender = ?1 AND d.recipient = ?2) OR (m.sender = ?2 AND d.recipient = ?1)
        ORDER BY m.id DESC LIMIT 200)",
                   playerId, otherId);
    std::vector<Message> result;
    while (rows.next())
        result.push_back({playerAt(rows, 0), "", rows.text(5), rows.number(6), rows.integer(7) != 0});
    return result;
}

void Database::markRead(const std::string &playerId, const std::string &otherId)
{
    const std::lock_guard lock(m_mutex);
    Statement(m_connection.get(), R"(UPDATE delivery SET read = 1
        WHERE recipient = ? AND read = 0 AND message IN (SELECT id FROM message WHERE sender = ?))",
              playerId, otherId)
        .next();
}

std::vector<Message> Database::sentMessages(const std::string &playerId)
{
    const std::lock_guard lock(m_mutex);
    Statement rows(m_connection.get(), R"(
        SELECT p.id, p.login, p.name, p.motto, p.city, substr(m.text, 1, 80), m.sent,
            (SELECT group_concat(name, ', ') FROM (SELECT r.name FROM delivery d JOIN player r ON r.id = d.recipient
             WHERE d.message = m.id ORDER BY d.position))
        FROM message m JOIN delivery first ON first.message = m.id AND first.position = 0
        JOIN player p ON p.id = first.recipient WHERE m.sender = ? ORDER BY m.id DESC LIMIT 100)",
                   playerId);
    std::vector<Message> result;
    while (rows.next())
        result.push_back({playerAt(rows, 0), rows.text(7), rows.text(5), rows.number(6), true});
    return result;
}

bool Database::addMessage(const std::string &senderId, int game, const std::vector<std::string> &recipients,
                          const std::string &text)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_connection.get());
    Statement(m_connection.get(), "INSERT INTO message(sender, game, text, sent) VALUES(?, ?, ?, ?)", senderId, game,
              text, std::time(nullptr))
        .next();
    const std::int64_t message = sqlite3_last_insert_rowid(m_connection.get());
    int position = 0;
    for (const std::string &recipient : recipients) {
        if (!Statement(m_connection.get(), "SELECT 1 FROM player WHERE id = ?", recipient).next())
            return false;
        Statement(m_connection.get(), "INSERT OR IGNORE INTO delivery VALUES(?, ?, ?, 0)", message, recipient,
                  position++)
            .next();
    }
    transaction.commit();
    return true;
}

void Database::addInvitations(const std::string &senderId, int game,
                              const std::vector<std::pair<std::string, std::string>> &invited)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_connection.get());
    for (const auto &[name, address] : invited) {
        Statement(m_connection.get(), "INSERT INTO invitation(sender, game, name, address, sent) VALUES(?, ?, ?, ?, ?)",
                  senderId, game, name, address, std::time(nullptr))
            .next();
    }
    transaction.commit();
}

std::vector<Invitation> Database::invitations(const std::string &senderId)
{
    const std::lock_guard lock(m_mutex);
    Statement rows(m_connection.get(),
                   R"(SELECT i.address, g.name, i.sent FROM invitation i LEFT JOIN game g ON g.id = i.game
        WHERE i.sender = ? ORDER BY i.id DESC LIMIT 100)",
                   senderId);
    std::vector<Invitation> result;
    while (rows.next())
        result.push_back({rows.text(0), rows.text(1), rows.number(2)});
    return result;
}

Unread Database::unread(const std::string &playerId)
{
    const std::lock_guard lock(m_mutex);
    Statement counts(m_connection.get(), R"(SELECT
        (SELECT count(*) FROM delivery WHERE recipient = ?1 AND read = 0),
        (SELECT count(*) FROM won WHERE player = ?1 AND seen = 0),
        (SELECT count(*) FROM friendship WHERE player = ?1 AND seen = 0))",
                     playerId);
    return counts.next() ? Unread{counts.integer(0), counts.integer(1), counts.integer(2)} : Unread{};
}
