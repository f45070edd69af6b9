// SPDX-License-Identifier: MIT
#pragma once

#include "database.h"
#include "pages.h"
#include "request.h"
#include "sessions.h"

#include <condition_variable>
#include <mutex>
#include <optional>
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

/// Thrown by a handler that cannot do what was asked: 400 for bad input, 404 for what does not exist.
struct Refusal {
    int status;
};

/// One request on its way through the site.
struct Visit {
    const Request &request;
    /// What stood in place of the wildcards of the route.
    std::vector<std::string> arguments;
    /// Changes of the session are kept when the visit ends.
    Session session;
    /// The player who is signed in, if any.
    std::optional<Player> player;
    /// The visitor became somebody else, and gets a new session id.
    bool renewed = false;
};

/// The pages of the service and what happens behind them. Any thread may ask for an answer.
class Site {
public:
    /// @p showGuests lists ready-made logins on the sign-in page.
    Site(Database &database, bool showGuests);

    /// Answers any request; never throws.
    Reply answer(const Request &request);
    /// Ends the waiting of slow pages, so that the service can stop.
    void stop();

private:
    struct Route {
        const char *method;
        /// Segments separated by "/". One that ends in "*" stands for any text behind what precedes the star, one that
        /// ends in "?" for any text or none; what they stand for becomes an argument. A closing slash does not matter.
        const char *pattern;
        enum Access { Anybody, Player } access;
        Reply (Site::*handler)(Visit &visit);
    };
    static const std::vector<Route> routes;

    Reply dispatch(Visit &visit);
    void keepSession(const Visit &visit, const std::optional<Session> &before, Reply &reply);

    // Signing in
    Reply home(Visit &visit);
    Reply loginPage(Visit &visit);
    Reply login(Visit &visit);
    Reply logout(Visit &visit);
    Reply signInForm(Visit &visit, const std::string &login, const std::string &notice);
    bool signIn(Visit &visit, const std::string &login, const std::string &secret, bool remember);
    void takeStartUrl(Visit &visit);

    // Account
    Reply account(Visit &visit);
    Reply editAccount(Visit &visit);
    Reply saveAccount(Visit &visit);
    bool changePassword(Visit &visit, const std::string &current, const std::string &wanted);

    // Friends and players
    Reply friends(Visit &visit);
    Reply addFriends(Visit &visit);
    Reply invitations(Visit &visit);
    Reply profile(Visit &visit);
    Reply addFriend(Visit &visit);
    Reply deleteFriend(Visit &visit);
    Reply evaluate(Visit &visit);

    // Messages
    Reply inbox(Visit &visit);
    Reply conversation(Visit &visit);
    Reply sentMessages(Visit &visit);
    Reply sendMessage(Visit &visit);

    // Games
    Reply games(Visit &visit);
    Reply showGame(Visit &visit);
    Reply trophies(Visit &visit);
    Reply compare(Visit &visit);
    Reply addTrophies(Visit &visit);
    Reply mailPreview(Visit &visit);
    Reply invite(Visit &visit);
    Reply twitterPage(Visit &visit);
    Reply tweet(Visit &visit);
    Reply tweeted(Visit &visit);
    Reply toFacebook(Visit &visit);
    Reply facebookPage(Visit &visit);
    Reply shareOnFacebook(Visit &visit);
    Reply sharingPage(Visit &visit, const Game &game, const std::string &network, const std::string &action);

    // The rest
    Reply info(Visit &visit);
    Reply errorPage(Visit &visit);
    Reply slowPage(Visit &visit);
    Reply brokenPage(Visit &visit);
    Reply problem(Visit &visit, int status);
    Reply failure(Visit &visit);

    /// Finishes @p page under that title: page variables, notice, text.
    Reply show(Visit &visit, Page &page, const std::string &title);
    void setAbout(Visit &visit, Page &page, const Player &player);
    /// The player of that id; refuses with 404 when there is none.
    Player playerOf(const std::string &id);
    /// The game of that number, with the trophies of @p playerId; refuses with 404 when there is none.
    Game gameOf(const std::string &number, const std::string &playerId, Language language);
    /// Number of a game that may be left out: 0 when @p number is empty, refusal with 404 when there is no such game.
    int optionalGame(const std::string &number);

    Database &m_database;
    Sessions m_sessions;
    const bool m_showGuests;
    std::mutex m_waitMutex;
    std::condition_variable m_stopped;
    bool m_stopping = false;
};

/// A whole number of 0 to 999999999 in decimal digits; nothing else.
std::optional<int> numberOf(const std::string &text);

/// Goes to another page of the service instead.
Reply redirection(const std::string &path);

/// Answer to the companion's own requests, which nobody reads.
Reply plainText(const std::string &text);
