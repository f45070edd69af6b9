// SPDX-License-Identifier: MIT
#include "site.h"

#include "embedded.h"
#include "page.h"
#include "secrets.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <regex>

namespace {

/// Of the tables, for files that an earlier service left behind.
constexpr int schemaVersion = 2;
constexpr std::time_t longestPause = 24 * 60 * 60;

void fill(SQLite::Database &database)
{
    database.exec(embeddedFiles.at("schema.sql"));
    database.exec(embeddedFiles.at("seed.sql"));
    SQLite::Statement players(database, "SELECT id, login FROM player");
    while (players.executeStep()) {
        SQLite::Statement statement(database, "UPDATE player SET password = ? WHERE id = ?");
        // Documented, so that everybody can sign in as anybody.
        SQLite::bind(statement, passwordHash(players.getColumn(1).getString() + "123"),
                     players.getColumn(0).getString());
        statement.exec();
    }
    database.exec("PRAGMA user_version = " + std::to_string(schemaVersion));
}

const std::vector<std::pair<std::regex, Route>> &routes()
{
    static const auto table = [] {
        std::vector<std::pair<std::regex, Route>> result;
        for (const auto *slice : {&accountRoutes, &peopleRoutes, &messageRoutes, &gameRoutes, &trialRoutes}) {
            for (const Route &route : *slice) {
                std::string expression;
                for (const char *c = route.pattern; *c; ++c)
                    expression += *c == '*' ? "([^/]+)" : *c == '?' ? "([^/]*)" : std::string(1, *c);
                result.emplace_back(expression + "/?", route);
            }
        }
        return result;
    }();
    return table;
}

Reply dispatch(Visit &visit)
{
    const std::string method = visit.request.method == "HEAD" ? "GET" : visit.request.method;
    for (const auto &[expression, route] : routes()) {
        std::smatch found;
        if (method != route.method || !std::regex_match(visit.request.path, found, expression))
            continue;
        if (route.access == Route::PlayerOnly && visit.player.id.empty())
            return redirection("/vantu/login");
        visit.arguments.assign(found.begin() + 1, found.end());
        return route.handler(visit);
    }
    throw Refusal{404};
}

Reply problem(Visit &visit, int status)
{
    Page page(visit.session.language, "problem.tpl", visit.say("T_PROBLEM"));
    page.set("TEXT", visit.say(status == 404 ? "NOT_FOUND" : "BAD_REQUEST"));
    Reply reply = page.reply(visit);
    reply.status = status;
    return reply;
}

// Says nothing but the sentence: a page that called the player a stranger would make the companion forget the login.
Reply failure(Language language)
{
    Reply reply;
    reply.status = 500;
    try {
        reply.body = Page(language, "error.tpl", phrase("T_ERROR", language)).html();
    } catch (const std::exception &) {
        reply.body = phrase("ERROR_SENTENCE", language);
    }
    return reply;
}

void loadSession(Visit &visit)
{
    const std::string &id = visit.request.sessionId;
    SQLite::Statement row = visit.query(
        R"(SELECT player, language, game, sealed_token, notice, search, login_unknown FROM session
           WHERE hash = ? AND used > ?)",
        tokenHash(id), std::time(nullptr) - longestPause);
    visit.isKnown = row.executeStep();
    if (visit.isKnown) {
        visit.session = {row.getColumn(0),
                         static_cast<Language>(row.getColumn(1).getInt()),
                         row.getColumn(2),
                         sealed(row.getColumn(3), id),
                         row.getColumn(4),
                         row.getColumn(5),
                         row.getColumn(6).getInt() != 0};
    } else {
        visit.session.loginUnknown = !id.empty();
    }
    if (!visit.session.player.empty())
        visit.player = visit.playerOf(visit.session.player);
}

void keepSession(const Visit &visit, Reply &reply)
{
    if (!visit.isKnown && !visit.renewed)
        return;
    const Session &session = visit.session;
    const std::time_t now = std::time(nullptr);
    std::string id = visit.request.sessionId;
    if (visit.renewed) {
        visit.change("DELETE FROM session WHERE hash = ? OR used <= ?", tokenHash(id), now - longestPause);
        reply.sessionId = id = randomToken();
    }
    visit.change("INSERT OR REPLACE INTO session VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?)", tokenHash(id), session.player,
                 static_cast<int>(session.language), session.game, sealed(session.loginToken, id), session.notice,
                 session.search, session.loginUnknown ? 1 : 0, now);
}

} // namespace

std::optional<int> numberOf(const std::string &text)
{
    const bool digits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    return digits && !text.empty() && text.size() <= 9 ? std::optional(std::stoi(text)) : std::nullopt;
}

Reply redirection(const std::string &path)
{
    Reply reply;
    reply.status = 303;
    reply.location = path;
    return reply;
}

Reply plainText(const std::string &text)
{
    Reply reply;
    reply.contentType = "text/plain; charset=utf-8";
    reply.body = text + '\n';
    return reply;
}

std::string Visit::say(std::string_view key, const std::string &insert) const
{
    return phrase(key, session.language, insert);
}

Player Visit::playerOf(const std::string &id) const
{
    SQLite::Statement row = query("SELECT id, login, name FROM player WHERE id = ?", id);
    return row.executeStep() ? Player{row.getColumn(0), row.getColumn(1), row.getColumn(2)} : throw Refusal{404};
}

bool Visit::isFriend(const std::string &id) const
{
    return exists("SELECT 1 FROM friendship WHERE player = ? AND friend = ?", player.id, id);
}

Game Visit::gameOf(const std::string &number) const
{
    SQLite::Statement row = query("SELECT id, name FROM game WHERE id = ?", numberOf(number).value_or(0));
    return row.executeStep() ? Game{row.getColumn(0), row.getColumn(1)} : throw Refusal{404};
}

Game Visit::optionalGame(const std::string &number) const
{
    return number.empty() ? Game() : gameOf(number);
}

Site::Site(const std::string &file)
    : m_database(file.empty() ? ":memory:" : file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, 2000)
    , m_showGuests(file.empty())
{
    if (!file.empty())
        std::filesystem::permissions(file, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    m_database.exec("PRAGMA foreign_keys = ON");
    SQLite::Transaction transaction(m_database);
    if (!m_database.tableExists("player"))
        fill(m_database);
    if (m_database.execAndGet("PRAGMA user_version").getInt() != schemaVersion)
        throw std::runtime_error("the database " + file + " is another version's");
    transaction.commit();
}

Reply Site::answer(const Request &request)
{
    waitIfAsked(request);
    const std::lock_guard lock(m_mutex);
    try {
        return attempt(request, dispatch);
    } catch (const Refusal &refusal) {
        return attempt(request, [&refusal](Visit &visit) { return problem(visit, refusal.status); });
    }
}

Reply Site::attempt(const Request &request, const std::function<Reply(Visit &visit)> &handler)
{
    Visit visit{request, m_database, m_showGuests};
    try {
        SQLite::Transaction transaction(m_database);
        loadSession(visit);
        Reply reply = handler(visit);
        keepSession(visit, reply);
        // Who only asks for the head of a page has not seen it, and nothing is changed by looking.
        if (request.method != "HEAD")
            transaction.commit();
        return reply;
    } catch (const std::exception &error) {
        std::cerr << "vantu-service: " << printable(request.path) << ": " << error.what() << std::endl;
        return failure(visit.session.language);
    }
}

// A page that keeps its visitor waiting must not keep the others.
void Site::waitIfAsked(const Request &request)
{
    const int wanted = numberOf(value(request.query, "ms")).value_or(0);
    if (request.path != "/vantu/slow" || wanted > longestWait)
        return;
    std::unique_lock lock(m_waitMutex);
    m_stopped.wait_for(lock, std::chrono::milliseconds(wanted), [this] { return m_stopping; });
}

void Site::stop()
{
    const std::lock_guard lock(m_waitMutex);
    m_stopping = true;
    m_stopped.notify_all();
}
