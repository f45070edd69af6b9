// SPDX-License-Identifier: MIT
#include "transaction.h"

namespace {

std::vector<Player> players(Statement &&rows)
{
    std::vector<Player> result;
    while (rows.next())
        result.push_back(playerAt(rows, 0));
    return result;
}

// For LIKE ... ESCAPE '\': the player's own wildcards stand for themselves.
std::string containing(const std::string &text)
{
    std::string pattern = "%";
    for (const char c : text) {
        if (c == '%' || c == '_' || c == '\\')
            pattern += '\\';
        pattern += c;
    }
    return pattern + '%';
}

} // namespace

std::vector<Friend> Database::friends(const std::string &playerId, int first, int most)
{
    const std::lock_guard lock(m_mutex);
    Statement rows(m_connection.get(), R"(SELECT p.id, p.login, p.name, p.motto, p.city, f.seen
        FROM friendship f JOIN player p ON p.id = f.friend WHERE f.player = ?
        ORDER BY p.name COLLATE NOCASE, p.id LIMIT ? OFFSET ?)",
                   playerId, most, first);
    std::vector<Friend> result;
    while (rows.next())
        result.push_back({playerAt(rows, 0), rows.integer(5) == 0});
    return result;
}

int Database::friendCount(const std::string &playerId)
{
    const std::lock_guard lock(m_mutex);
    Statement count(m_connection.get(), "SELECT count(*) FROM friendship WHERE player = ?", playerId);
    return count.next() ? count.integer(0) : 0;
}

bool Database::areFriends(const std::string &one, const std::string &other)
{
    const std::lock_guard lock(m_mutex);
    return Statement(m_connection.get(), "SELECT 1 FROM friendship WHERE player = ? AND friend = ?", one, other).next();
}

void Database::addFriend(const std::string &playerId, const std::string &otherId)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_connection.get());
    const char *insert = R"(INSERT OR IGNORE INTO friendship
        SELECT a.id, b.id, ? FROM player a JOIN player b ON a.id <> b.id WHERE a.id = ? AND b.id = ?)";
    Statement(m_connection.get(), insert, 1, playerId, otherId).next();
    Statement(m_connection.get(), insert, 0, otherId, playerId).next();
    transaction.commit();
}

void Database::deleteFriend(const std::string &playerId, const std::string &otherId)
{
    const std::lock_guard lock(m_mutex);
    Statement(m_connection.get(),
              "DELETE FROM friendship WHERE (player = ?1 AND friend = ?2) OR (player = ?2 AND friend = ?1)", playerId,
              otherId)
        .next();
}

void Database::markFriendsSeen(const std::string &playerId)
{
    const std::lock_guard lock(m_mutex);
    Statement(m_connection.get(), "UPDATE friendship SET seen = 1 WHERE player = ? AND seen = 0", playerId).next();
}

std::vector<Player> Database::search(const std::string &playerId, const std::string &text)
{
    const std::lock_guard lock(m_mutex);
    return players(Statement(m_connection.get(), R"(SELECT id, login, name, motto, city FROM player
        WHERE id <> ?1 AND (name LIKE ?2 ESCAPE '\' OR login LIKE ?2 ESCAPE '\')
        ORDER BY name COLLATE NOCASE LIMIT 50)",
                             playerId, containing(text)));
}

std::vector<Player> Database::suggestions(const std::string &playerId)
{
    const std::lock_guard lock(m_mutex);
    return players(Statement(m_connection.get(), R"(SELECT id, login, name, motto, city FROM player p
        WHERE id <> ?1 AND id NOT IN (SELECT friend FROM friendship WHERE player = ?1)
        ORDER BY (SELECT count(*) FROM friendship mine JOIN friendship theirs ON mine.friend = theirs.friend
                  WHERE mine.player = ?1 AND theirs.player = p.id) DESC, name COLLATE NOCASE LIMIT 10)",
                             playerId));
}

void Database::rate(const std::string &raterId, const std::string &ratedId, bool up)
{
    const std::lock_guard lock(m_mutex);
    Statement(m_connection.get(), R"(INSERT OR REPLACE INTO rating
        SELECT a.id, b.id, ? FROM player a JOIN player b ON a.id <> b.id WHERE a.id = ? AND b.id = ?)",
              up ? 1 : 0, raterId, ratedId)
        .next();
}

Standing Database::standing(const std::string &playerId)
{
    const std::lock_guard lock(m_mutex);
    Statement sums(m_connection.get(), "SELECT sum(up = 1), sum(up = 0) FROM rating WHERE rated = ?", playerId);
    return sums.next() ? Standing{sums.integer(0), sums.integer(1)} : Standing{};
}
