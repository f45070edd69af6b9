// SPDX-License-Identifier: MIT
#include "database.h"

#include "seed.h"
#include "transaction.h"

namespace {

constexpr char schema[] = R"(
CREATE TABLE IF NOT EXISTS player(id TEXT PRIMARY KEY, login TEXT UNIQUE NOT NULL, password TEXT NOT NULL,
    name TEXT NOT NULL, motto TEXT NOT NULL, city TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS login_token(hash TEXT PRIMARY KEY, player TEXT NOT NULL REFERENCES player);
CREATE TABLE IF NOT EXISTS friendship(player TEXT REFERENCES player, friend TEXT REFERENCES player,
    seen INTEGER NOT NULL, PRIMARY KEY(player, friend), CHECK(player <> friend)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS rating(rater TEXT REFERENCES player, rated TEXT REFERENCES player, up INTEGER NOT NULL,
    PRIMARY KEY(rater, rated)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS game(id INTEGER PRIMARY KEY, name TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS tagline(game INTEGER REFERENCES game, language INTEGER, text TEXT NOT NULL,
    PRIMARY KEY(game, language)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS trophy(game INTEGER REFERENCES game, bit INTEGER CHECK(bit BETWEEN 0 AND 63),
    points INTEGER NOT NULL, PRIMARY KEY(game, bit)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS trophy_name(game INTEGER, bit INTEGER, language INTEGER, text TEXT NOT NULL,
    PRIMARY KEY(game, bit, language), FOREIGN KEY(game, bit) REFERENCES trophy) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS won(player TEXT REFERENCES player, game INTEGER, bit INTEGER, at INTEGER NOT NULL,
    seen INTEGER NOT NULL, PRIMARY KEY(player, game, bit), FOREIGN KEY(game, bit) REFERENCES trophy) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS message(id INTEGER PRIMARY KEY, sender TEXT NOT NULL REFERENCES player,
    game INTEGER NOT NULL, text TEXT NOT NULL, sent INTEGER NOT NULL);
CREATE TABLE IF NOT EXISTS delivery(message INTEGER REFERENCES message, recipient TEXT REFERENCES player,
    position INTEGER NOT NULL, read INTEGER NOT NULL, PRIMARY KEY(message, recipient)) WITHOUT ROWID;
CREATE INDEX IF NOT EXISTS message_sender ON message(sender);
CREATE INDEX IF NOT EXISTS delivery_recipient ON delivery(recipient, read);
CREATE TABLE IF NOT EXISTS invitation(id INTEGER PRIMARY KEY, sender TEXT NOT NULL REFERENCES player,
    game INTEGER NOT NULL, name TEXT NOT NULL, address TEXT NOT NULL, sent INTEGER NOT NULL);
)";

void execute(sqlite3 *connection, const char *sql)
{
    if (sqlite3_exec(connection, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(connection));
}

} // namespace

void Database::Closer::operator()(sqlite3 *connection) const
{
    sqlite3_close(connection);
}

Database::Database(const std::string &file)
{
    sqlite3 *connection = nullptr;
    const int result = sqlite3_open(file.empty() ? ":memory:" : file.c_str(), &connection);
    m_connection.reset(connection);
    if (result != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(connection));
    sqlite3_busy_timeout(connection, 2000);
    execute(connection, "PRAGMA foreign_keys = ON");
    Transaction transaction(connection);
    execute(connection, schema);
    if (!Statement(connection, "SELECT 1 FROM player LIMIT 1").next())
        seed(connection);
    transaction.commit();
}

Database::~Database() = default;

std::optional<Player> Database::player(const std::string &id)
{
    const std::lock_guard lock(m_mutex);
    Statement found(m_connection.get(), "SELECT id, login, name, motto, city FROM player WHERE id = ?", id);
    return found.next() ? std::optional(playerAt(found, 0)) : std::nullopt;
}

std::optional<Player> Database::playerByLogin(const std::string &login)
{
    const std::lock_guard lock(m_mutex);
    Statement found(m_connection.get(), "SELECT id, login, name, motto, city FROM player WHERE login = lower(?)",
                    login);
    return found.next() ? std::optional(playerAt(found, 0)) : std::nullopt;
}

std::string Database::passwordHashOf(const std::string &playerId)
{
    const std::lock_guard lock(m_mutex);
    Statement found(m_connection.get(), "SELECT password FROM player WHERE id = ?", playerId);
    return found.next() ? found.text(0) : std::string();
}

void Database::updatePlayer(const Player &player)
{
    const std::lock_guard lock(m_mutex);
    Statement(m_connection.get(), "UPDATE player SET name = ?, motto = ?, city = ? WHERE id = ?", player.name,
              player.motto, player.city, player.id)
        .next();
}

void Database::setPasswordHash(const std::string &playerId, const std::string &hash)
{
    const std::lock_guard lock(m_mutex);
    Transaction transaction(m_connection.get());
    Statement(m_connection.get(), "UPDATE player SET password = ? WHERE id = ?", hash, playerId).next();
    Statement(m_connection.get(), "DELETE FROM login_token WHERE player = ?", playerId).next();
    transaction.commit();
}

void Database::addLoginToken(const std::string &playerId, const std::string &hash)
{
    const std::lock_guard lock(m_mutex);
    Statement(m_connection.get(), "INSERT INTO login_token SELECT ?, id FROM player WHERE id = ?", hash, playerId)
        .next();
}

bool Database::hasLoginToken(const std::string &playerId, const std::string &hash)
{
    const std::lock_guard lock(m_mutex);
    return Statement(m_connection.get(), "SELECT 1 FROM login_token WHERE hash = ? AND player = ?", hash, playerId)
        .next();
}

void Database::removeLoginToken(const std::string &hash)
{
    const std::lock_guard lock(m_mutex);
    Statement(m_connection.get(), "DELETE FROM login_token WHERE hash = ?", hash).next();
}
