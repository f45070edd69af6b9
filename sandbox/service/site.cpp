// SPDX-License-Identifier: MIT
#include "site.h"

#include <algorithm>
#include <iostream>

const std::vector<Site::Route> Site::routes = {
    {"GET", "/vantu", Route::Anybody, &Site::home},
    {"GET", "/vantu/login", Route::Anybody, &Site::loginPage},
    {"GET", "/vantu/login/index", Route::Anybody, &Site::loginPage},
    {"POST", "/vantu/login", Route::Anybody, &Site::login},
    {"GET", "/vantu/logout", Route::Anybody, &Site::logout},
    {"GET", "/vantu/info", Route::Anybody, &Site::info},
    {"GET", "/vantu/error", Route::Anybody, &Site::errorPage},
    {"GET", "/vantu/slow", Route::Anybody, &Site::slowPage},
    {"GET", "/vantu/broken", Route::Anybody, &Site::brokenPage},

    {"GET", "/vantu/messages/index", Route::Player, &Site::inbox},
    {"GET", "/vantu/messages/index/uid/*", Route::Player, &Site::conversation},
    {"GET", "/vantu/messages/sent", Route::Player, &Site::sentMessages},

    {"GET", "/vantu/friends", Route::Player, &Site::friends},
    {"GET", "/vantu/friends/index/page/*", Route::Player, &Site::friends},
    {"GET", "/vantu/friends/add-friends", Route::Player, &Site::addFriends},
    {"GET", "/vantu/friends/show-invite-email", Route::Player, &Site::invitations},
    {"GET", "/vantu/friends/delete-friend/uid/*", Route::Player, &Site::deleteFriend},
    {"GET", "/vantu/friends/evaluate/fid/*/value/*", Route::Player, &Site::evaluate},

    {"GET", "/vantu/account", Route::Player, &Site::account},
    {"GET", "/vantu/account/edit", Route::Player, &Site::editAccount},
    {"POST", "/vantu/account/edit", Route::Player, &Site::saveAccount},
    {"GET", "/vantu/account/index/uid/*", Route::Player, &Site::profile},
    {"GET", "/vantu/account/add-friend/uid/*", Route::Player, &Site::addFriend},

    {"GET", "/vantu/games", Route::Player, &Site::games},
    {"GET", "/vantu/games/show-game/gid/*", Route::Player, &Site::showGame},
    {"GET", "/vantu/games/show-game/gid/*/fb_send/yes", Route::Player, &Site::toFacebook},
    {"GET", "/vantu/games/trophies/gid/*", Route::Player, &Site::trophies},
    {"GET", "/vantu/games/compare/uid/*", Route::Player, &Site::compare},
    {"GET", "/vantu/games/recommend-via-mail/id", Route::Player, &Site::mailPreview},
    {"GET", "/vantu/games/recommend-via-mail/id/*", Route::Player, &Site::mailPreview},
    {"GET", "/vantu/games/recommend-via-twitter/id/*", Route::Player, &Site::twitterPage},
    {"POST", "/vantu/games/recommend-via-twitter/id/*", Route::Player, &Site::tweet},
    {"GET", "/vantu/games/signal-twitter-send/gid/*", Route::Player, &Site::tweeted},
    {"GET", "/vantu/facebook/share/gid/*", Route::Player, &Site::facebookPage},
    {"POST", "/vantu/facebook/share/gid/*", Route::Player, &Site::shareOnFacebook},

    // The companion's own requests bring no cookie: the id in the path says who asks.
    {"POST", "/vantu/messages/send-message/android_uid/*", Route::Anybody, &Site::sendMessage},
    {"POST", "/vantu/games/recommend-via-mail/id/?/android_uid/*", Route::Anybody, &Site::invite},
    {"POST", "/vantu/index/add-trophy?/android_uid/*/kvb_game/*", Route::Anybody, &Site::addTrophies},
};

namespace {

std::vector<std::string> segments(std::string path)
{
    if (!path.empty() && path.back() == '/')
        path.pop_back();
    std::vector<std::string> result;
    for (std::size_t start = 0; start <= path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        result.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return result;
}

bool matches(const std::string &pattern, const std::vector<std::string> &path, std::vector<std::string> &arguments)
{
    const std::vector<std::string> expected = segments(pattern);
    if (expected.size() != path.size())
        return false;
    arguments.clear();
    for (std::size_t i = 0; i < path.size(); ++i) {
        const char kind = expected[i].empty() ? '\0' : expected[i].back();
        if (kind != '*' && kind != '?') {
            if (expected[i] != path[i])
                return false;
            continue;
        }
        const std::size_t fixed = expected[i].size() - 1;
        if (path[i].compare(0, fixed, expected[i], 0, fixed) != 0 || (kind == '*' && path[i].size() == fixed))
            return false;
        arguments.push_back(path[i].substr(fixed));
    }
    return true;
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

Site::Site(Database &database, bool showGuests)
    : m_database(database)
    , m_showGuests(showGuests)
{
}

Reply Site::answer(const Request &request)
{
    Visit visit{request, {}, {}, {}, false};
    try {
        const std::optional<Session> before = m_sessions.find(request.sessionId);
        visit.session = before.value_or(Session());
        visit.session.language = languageOf(value(request.query, "lg"), visit.session.language);
        visit.player = m_database.player(visit.session.player);
        Reply reply = dispatch(visit);
        keepSession(visit, before, reply);
        return reply;
    } catch (const std::exception &error) {
        std::cerr << "vantu-service: " << request.path << ": " << error.what() << std::endl;
    }
    return failure(visit);
}

// A page that calls the player a stranger would make the companion forget the login, so when it is not even known who
// asks, the page says nothing but the sentence.
Reply Site::failure(Visit &visit)
{
    Reply reply;
    try {
        if (visit.player || visit.session.player.empty())
            reply = errorPage(visit);
    } catch (const std::exception &) {
        reply.body.clear();
    }
    if (reply.body.empty())
        reply.body
            = "<!DOCTYPE html><meta charset=\"utf-8\"><p>" + phrase("ERROR_SENTENCE", visit.session.language) + "</p>";
    reply.status = 500;
    return reply;
}

Reply Site::dispatch(Visit &visit)
{
    const std::vector<std::string> path = segments(visit.request.path);
    const std::string method = visit.request.method == "HEAD" ? "GET" : visit.request.method;
    for (const Route &route : routes) {
        if (method != route.method || !matches(route.pattern, path, visit.arguments))
            continue;
        if (route.access == Route::Player && !visit.player)
            return redirection("/vantu/login");
        try {
            return (this->*route.handler)(visit);
        } catch (const Refusal &refusal) {
            return problem(visit, refusal.status);
        }
    }
    return problem(visit, 404);
}

void Site::keepSession(const Visit &visit, const std::optional<Session> &before, Reply &reply)
{
    if (!visit.renewed && visit.session == before.value_or(Session()))
        return;
    if (before && !visit.renewed) {
        m_sessions.update(visit.request.sessionId, visit.session);
        return;
    }
    // Whoever gains or loses rights gets a new id, so that an id known before is worth nothing after.
    m_sessions.remove(visit.request.sessionId);
    reply.sessionId = m_sessions.create(visit.session);
}

void Site::stop()
{
    const std::lock_guard lock(m_waitMutex);
    m_stopping = true;
    m_stopped.notify_all();
}

Reply Site::show(Visit &visit, Page &page, const std::string &title)
{
    const Language language = visit.session.language;
    PageVariables &variables = page.variables;
    variables.title = title;
    if (visit.player) {
        variables.userUid = visit.player->id;
        variables.unread = m_database.unread(visit.player->id);
        variables.loginToken = visit.session.loginToken;
        variables.rememberMe = !visit.session.loginToken.empty();
        variables.loginName = variables.rememberMe ? visit.player->login : std::string();
    }
    if (variables.gameId.empty() && visit.session.game > 0)
        variables.gameId = std::to_string(visit.session.game);
    if (const auto game = m_database.game(numberOf(variables.gameId).value_or(0), "", language))
        variables.subject = phrase("INVITE_SUBJECT", language, game->name);
    page.setNotice(visit.session.notice);
    visit.session.notice.clear();
    Reply reply;
    reply.body = page.html();
    return reply;
}

void Site::setAbout(Visit &visit, Page &page, const Player &player)
{
    const bool other = visit.player && visit.player->id != player.id;
    page.variables.userId = player.id;
    page.variables.userName = player.name;
    page.variables.isFriend = other && m_database.areFriends(visit.player->id, player.id);
    page.variables.showAdd = other && !page.variables.isFriend;
    page.variables.showEvaluate = page.variables.isFriend;
}

Player Site::playerOf(const std::string &id)
{
    const auto player = m_database.player(id);
    return player ? *player : throw Refusal{404};
}

Game Site::gameOf(const std::string &number, const std::string &playerId, Language language)
{
    const auto game = m_database.game(numberOf(number).value_or(0), playerId, language);
    return game ? *game : throw Refusal{404};
}

int Site::optionalGame(const std::string &number)
{
    return number.empty() ? 0 : gameOf(number, "", Language::English).id;
}

Reply Site::info(Visit &visit)
{
    Page page("info.tpl", visit.session.language);
    return show(visit, page, phrase("T_INFO", visit.session.language));
}

Reply Site::errorPage(Visit &visit)
{
    Page page("error.tpl", visit.session.language);
    return show(visit, page, phrase("T_ERROR", visit.session.language));
}

// A page that keeps the visitor waiting for a while, ten seconds at most.
Reply Site::slowPage(Visit &visit)
{
    const auto wanted = numberOf(value(visit.request.query, "ms"));
    if (!wanted)
        throw Refusal{400};
    const int milliseconds = std::min(*wanted, 10000);
    {
        std::unique_lock lock(m_waitMutex);
        m_stopped.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return m_stopping; });
    }
    Page page("slow.tpl", visit.session.language);
    page.content().set("TEXT", phrase("WAITED", visit.session.language, std::to_string(milliseconds)));
    return show(visit, page, "Vantu");
}

// A page that never arrives whole.
Reply Site::brokenPage(Visit &visit)
{
    Reply reply = info(visit);
    reply.dropped = true;
    return reply;
}

Reply Site::problem(Visit &visit, int status)
{
    Page page("problem.tpl", visit.session.language);
    page.content().set("TEXT", phrase(status == 404 ? "NOT_FOUND" : "BAD_REQUEST", visit.session.language));
    Reply reply = show(visit, page, phrase("T_PROBLEM", visit.session.language));
    reply.status = status;
    return reply;
}
