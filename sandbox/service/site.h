// SPDX-License-Identifier: MIT
#pragma once

#include "request.h"
#include "texts.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <SQLiteCpp/SQLiteCpp.h>
#include <SQLiteCpp/VariadicBind.h>
#include <string>
#include <vector>

/// What goes back to the visitor.
struct Reply {
    int status = 200;
    std::string body;
    std::string contentType = "text/html; charset=utf-8";
    /// Where to go instead; empty for none.
    std::string location;
    /// Session cookie to set; empty for none.
    std::string sessionId;
    /// The connection is to break in the middle of the answer.
    bool dropped = false;
};

/// Goes to another page of the service instead.
Reply redirection(const std::string &path);

/// Answer to the companion's own requests, which nobody reads.
Reply plainText(const std::string &text);

/// Thrown by a handler that cannot do what was asked: 400 for bad input, 404 for what does not exist. Whatever the
/// handler has changed until then is undone.
struct Refusal {
    int status;
};

/// A whole number of 0 to 999999999 in decimal digits; nothing else.
std::optional<int> numberOf(const std::string &text);

struct Player {
    /// Empty for nobody.
    std::string id;
    std::string login;
    std::string name;
};

struct Game {
    /// 0 for none.
    int id = 0;
    std::string name;
};

/// What the service knows about one visitor between two requests.
struct Session {
    /// Id of the signed-in player; empty for a visitor who is not signed in.
    std::string player;
    Language language = Language::English;
    /// Number of the game that opened the companion; 0 when it is not one of ours.
    int game = 0;
    /// Handed to the companion in place of the password; empty when the login is not to be remembered.
    std::string loginToken;
    /// Text that the next page shows once.
    std::string notice;
    /// What the player searched for last.
    std::string search;
    /// The visitor's session before this one is gone, and with it whether the companion holds a login: pages leave the
    /// login out, so that it keeps the one it has.
    bool loginUnknown = false;
};

/// Longest time that the slow page keeps a visitor waiting, in milliseconds.
inline constexpr int longestWait = 10000;

/// One request on its way through the site.
struct Visit {
    const Request &request;
    SQLite::Database &database;
    /// Show ready-made logins on the sign-in page.
    bool showGuests = false;
    /// What stood in place of the wildcards of the route.
    std::vector<std::string> arguments = {};
    /// Changes of it are kept when the visit ends.
    Session session = {};
    /// The player who is signed in, or nobody.
    Player player = {};
    /// The session came with the request.
    bool isKnown = false;
    /// The session begins, or belongs to somebody else from now on: it gets a new id, so that an id known before is
    /// worth nothing after.
    bool renewed = false;

    /// @p sql, to be stepped through, with @p values for its question marks. Values never become part of the SQL.
    template <typename... Values> SQLite::Statement query(const std::string &sql, const Values &...values) const
    {
        SQLite::Statement statement(database, sql);
        SQLite::bind(statement, values...);
        return statement;
    }
    /// Runs @p sql; how many rows it changed.
    template <typename... Values> int change(const std::string &sql, const Values &...values) const
    {
        return query(sql, values...).exec();
    }
    /// Whether @p sql selects anything.
    template <typename... Values> bool exists(const std::string &sql, const Values &...values) const
    {
        return query(sql, values...).executeStep();
    }

    /// The phrase of that key in the visitor's language, with its "%" replaced by @p insert.
    std::string say(std::string_view key, const std::string &insert = {}) const;
    /// The player of that id; refuses with 404 when there is none.
    Player playerOf(const std::string &id) const;
    /// Whether the player who is signed in and that one are friends.
    bool isFriend(const std::string &id) const;
    /// The game of that number; refuses with 404 when there is none.
    Game gameOf(const std::string &number) const;
    /// As gameOf(), and none when @p number is empty.
    Game optionalGame(const std::string &number) const;
};

/// One address, and who answers there.
struct Route {
    const char *method;
    /// "*" stands for any text of a segment, "?" for any text or none; what they stand for becomes an argument. A
    /// closing slash does not matter.
    const char *pattern;
    /// A visitor who is not signed in is sent to the sign-in form.
    enum Access { Anybody, PlayerOnly } access;
    Reply (*handler)(Visit &visit);
};

// The features of the service, each with its addresses, its pages and its SQL in one file.
extern const std::vector<Route> accountRoutes;
extern const std::vector<Route> peopleRoutes;
extern const std::vector<Route> messageRoutes;
extern const std::vector<Route> gameRoutes;
extern const std::vector<Route> trialRoutes;

/// The pages of the service and everything that lasts behind them. Any thread may ask for an answer: each request has
/// the database for itself, and what it changes is kept whole or not at all.
class Site {
public:
    /// Opens @p file, readable by its owner only, created when it is not there; a new one is filled with the sandbox's
    /// players and games. An empty name gives a database in memory. Throws std::runtime_error for a file that cannot be
    /// used.
    explicit Site(const std::string &file);

    /// Answers any request; never throws.
    Reply answer(const Request &request);
    /// Ends the waiting of slow pages, so that the service can stop.
    void stop();

private:
    Reply attempt(const Request &request, const std::function<Reply(Visit &visit)> &handler);
    void waitIfAsked(const Request &request);

    SQLite::Database m_database;
    const bool m_showGuests;
    std::mutex m_mutex;
    std::mutex m_waitMutex;
    std::condition_variable m_stopped;
    bool m_stopping = false;
};
