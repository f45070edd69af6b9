// SPDX-License-Identifier: MIT
#include "transaction.h"

namespace {

constexpr char gameColumns[] = R"(SELECT g.id, g.name, t.text,
    (SELECT count(*) FROM trophy WHERE game = g.id),
    (SELECT count(*) FROM won WHERE game = g.id AND player = ?1),
    (SELECT count(*) FROM won WHERE game = g.id AND player = ?1 AND seen = 0)
    FROM game g JOIN tagline t ON t.game = g.id AND t.language = ?2)";

Game gameAt(const Statement &row)
{
    return {row.integer(0), row.text(1), row.text(2), row.integer(3), row.integer(4), row.integer(5)};
}

} // namespace

std::vector<Game> Database::games(const std::string &playerId, Language language)
{
    const std::lock_guard lock(m_mutex);
    const std::string sql = std::string(gameColumns) + " ORDER BY g.name";
    Statement rows(m_connection.get(), sql.c_str(), playerId, static_cast<int>(language));
    std::vector<Game> result;
    while (rows.next())
        result.push_back(gameAt(rows));
    return result;
}

std::optional<Game> Database::game(int id, const std::string &playerId, Language language)
{
    const std::lock_guard lock(m_mutex);
    const std::string sql = std::string(gameColumns) + " WHERE g.id = ?3";
    Statement row(m_connection.get(), sql.c_str(), playerId, static_cast<int>(language), id);
    return row.next() ? std::optional(gameAt(row)) : std::nullopt;
}

std::vector<Trophy> Database::trophies(int game, const std::string &playerId, Language language)
{
    const std::lock_guard lock(m_mutex);
    Statement rows(m_connection.get(), R"(SELECT n.text, t.points, w.at
        FROM trophy t JOIN trophy_name n ON n.game = t.game AND n.bit = t.bit AND n.language = ?
        LEFT JOIN won w ON w.game = t.game AND w.bit = t.bit AND w.player = ?
        WHERE t.game = ? ORDER BY w.at IS NULL, t.bit)",
                   static_cast<int>(language), playerId, game);
    std::vector<Trophy> result;
    while (rows.next())
        result.push_back({rows.text(0), rows.integer(1), rows.number(2)});
    return result;
}

void Database::markTrophiesSeen(int game, const std::string &playerId)
{
    const std::lock_guard lock(m_mutex);
    Statement(m_connection.get(), "UPDATE won SET seen = 1 WHERE player = ? AND game = ? AND seen = 0", playerId, game)
        .next();
}

int Database::addTrophies(const std::string &playerId, int game, const std::vector<int> &bits)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_connection.get());
    int added = 0;
    for (const int bit : bits) {
        Statement(m_connection.get(), R"(INSERT OR IGNORE INTO won
            SELECT p.id, t.game, t.bit, ?, 0 FROM player p, trophy t WHERE p.id = ? AND t.game = ? AND t.bit = ?)",
                  std::time(nullptr), playerId, game, bit)
            .next();
        added += sqlite3_changes(m_connection.get());
    }
    transaction.commit();
    return added;
}

std::vector<Player> Database::friendsInGame(int game, const std::string &playerId)
{
    const std::lock_guard lock(m_mutex);
    Statement rows(m_connection.get(), R"(SELECT p.id, p.login, p.name, p.motto, p.city
        FROM friendship f JOIN player p ON p.id = f.friend
        WHERE f.player = ? AND EXISTS (SELECT 1 FROM won WHERE player = p.id AND game = ?)
        ORDER BY p.name COLLATE NOCASE LIMIT 50)",
                   playerId, game);
    std::vector<Player> result;
    while (rows.next())
        result.push_back(playerAt(rows, 0));
    return result;
}

std::vector<News> Database::news(const std::string &playerId, Language language)
{
    const std::lock_guard lock(m_mutex);
    Statement rows(m_connection.get(), R"(SELECT p.id, p.login, p.name, p.motto, p.city, n.text, g.name, w.at
        FROM friendship f JOIN player p ON p.id = f.friend JOIN won w ON w.player = p.id JOIN game g ON g.id = w.game
        JOIN trophy_name n ON n.game = w.game AND n.bit = w.bit AND n.language = ?
        WHERE f.player = ? ORDER BY w.at DESC LIMIT 6)",
                   static_cast<int>(language), playerId);
    std::vector<News> result;
    while (rows.next())
        result.push_back({playerAt(rows, 0), rows.text(5), rows.text(6), rows.number(7)});
    return result;
}
