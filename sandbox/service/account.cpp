// SPDX-License-Identifier: MIT
#include "page.h"
#include "secrets.h"

#include <algorithm>

namespace {

constexpr std::size_t longestName = 40;
constexpr std::size_t longestLine = 100;

bool isYes(const std::string &text)
{
    return !text.empty() && text != "0";
}

bool isLine(const std::string &text, std::size_t longest)
{
    return isText(text, longest) && std::none_of(text.begin(), text.end(), [](unsigned char c) { return c < 0x20; });
}

// @p secret is the password or a login token given out before.
bool signIn(Visit &visit, const std::string &login, const std::string &secret, bool remember)
{
    const std::string known = isText(login, longestLine) ? login : std::string();
    SQLite::Statement row = visit.query(R"(SELECT id, login, name, password, EXISTS
        (SELECT 1 FROM login_token WHERE hash = ? AND player = id) FROM player WHERE login = lower(?))",
                                        tokenHash(secret), known);
    const bool exists = row.executeStep();
    const bool isToken = exists && row.getColumn(4).getInt() != 0;
    // A name that nobody has takes as long as one that somebody has.
    if (!isToken && !passwordMatches(secret, exists ? row.getColumn(3).getString() : std::string()))
        return false;
    visit.player = {row.getColumn(0), row.getColumn(1), row.getColumn(2)};
    visit.session.player = visit.player.id;
    visit.session.loginToken = isToken ? secret : remember ? randomToken() : std::string();
    if (remember && !isToken)
        visit.change("INSERT INTO login_token VALUES(?, ?)", tokenHash(visit.session.loginToken), visit.player.id);
    visit.session.loginUnknown = false;
    visit.renewed = true;
    return true;
}

Reply signInForm(Visit &visit, const std::string &login)
{
    Page page(visit.session.language, "login.tpl", visit.say("T_SIGN_IN"));
    page.set("LOGIN", isText(login, longestLine) ? login : std::string());
    if (visit.showGuests)
        page.show("GUESTS");
    return page.reply(visit);
}

// The companion opens the service with all that it knows; a visitor who is signed in already stays so.
void takeStartUrl(Visit &visit)
{
    const Fields &query = visit.request.query;
    visit.session.language = languageOf(value(query, "lg"), visit.session.language);
    if (const auto number = numberOf(value(query, "KVB")))
        visit.session.game = visit.exists("SELECT 1 FROM game WHERE id = ?", *number) ? *number : 0;
    visit.renewed = !visit.isKnown;
    const std::string login = value(query, "username");
    if (!login.empty() && isYes(value(query, "remember_me")))
        signIn(visit, login, value(query, "pass"), true);
}

Reply home(Visit &visit)
{
    takeStartUrl(visit);
    const std::string &me = visit.player.id;
    if (me.empty())
        return signInForm(visit, value(visit.request.query, "username"));
    Page page(visit.session.language, "home.tpl", visit.say("T_HOME"));
    page.set("HELLO_TEXT", visit.say("HELLO", visit.player.name.substr(0, visit.player.name.find(' '))));
    page.row(visit.query("SELECT * FROM person JOIN unread ON player = UID WHERE UID = ?", me));
    page.list("PLAYING", visit.query("SELECT * FROM played WHERE player = ? AND GID = ?", me, visit.session.game));
    page.list("NEWS_ROW",
              visit.query("SELECT person.*, trophy." + std::string(languageCode(visit.session.language))
                              + R"( AS TROPHY, game.name AS GAME, at AS DAY
        FROM friendship JOIN person ON UID = friend JOIN won ON won.player = friend JOIN game ON game.id = won.game
        JOIN trophy ON trophy.game = won.game AND trophy.bit = won.bit WHERE friendship.player = ?
        ORDER BY at DESC LIMIT 6)",
                          me));
    return page.reply(visit);
}

Reply loginPage(Visit &visit)
{
    if (!value(visit.request.query, "iDelete").empty() && visit.player.id.empty())
        visit.session.notice = visit.say("SIGNED_OUT");
    return signInForm(visit, "");
}

Reply login(Visit &visit)
{
    const Fields &form = visit.request.form;
    const std::string login = value(form, "username");
    if (signIn(visit, login, value(form, "password"), isYes(value(form, "remember_me"))))
        return redirection("/vantu/");
    visit.session.notice = visit.say("WRONG_LOGIN");
    return signInForm(visit, login);
}

Reply logout(Visit &visit)
{
    visit.change("DELETE FROM login_token WHERE hash = ?", tokenHash(visit.session.loginToken));
    visit.session.player.clear();
    visit.session.loginToken.clear();
    visit.session.search.clear();
    visit.session.loginUnknown = false;
    visit.renewed = true;
    return redirection("/vantu/login?iDelete=1");
}

Reply account(Visit &visit)
{
    Page page(visit.session.language, "account.tpl", visit.say("T_ACCOUNT"));
    page.set("LOGIN", visit.player.login);
    page.row(visit.query("SELECT * FROM person JOIN standing USING(UID) WHERE UID = ?", visit.player.id));
    return page.reply(visit);
}

Reply editAccount(Visit &visit)
{
    Page page(visit.session.language, "edit.tpl", visit.say("T_EDIT"));
    page.row(visit.query("SELECT * FROM person WHERE UID = ?", visit.player.id));
    return page.reply(visit);
}

Reply saveAccount(Visit &visit)
{
    const Fields &form = visit.request.form;
    const std::string name = value(form, "name");
    const std::string city = value(form, "city");
    const std::string motto = value(form, "motto");
    if (name.empty() || !isLine(name, longestName) || !isLine(city, longestLine) || !isLine(motto, longestLine)) {
        // What was typed stays, to be put right.
        visit.session.notice = visit.say("NAME_NEEDED");
        Page page(visit.session.language, "edit.tpl", visit.say("T_EDIT"));
        for (const auto &[field, text] : {std::pair("NAME", name), std::pair("CITY", city), std::pair("MOTTO", motto)})
            page.set(field, isText(text, text.size()) ? text : std::string());
        Reply reply = page.reply(visit);
        reply.status = 400;
        return reply;
    }
    visit.change("UPDATE player SET name = ?, city = ?, motto = ? WHERE id = ?", name, city, motto, visit.player.id);
    visit.session.notice = visit.say("SAVED");
    return redirection("/vantu/account");
}

} // namespace

const std::vector<Route> accountRoutes = {
    {"GET", "/vantu", Route::Anybody, home},
    {"GET", "/vantu/login", Route::Anybody, loginPage},
    {"GET", "/vantu/login/index", Route::Anybody, loginPage},
    {"POST", "/vantu/login", Route::Anybody, login},
    {"GET", "/vantu/logout", Route::Anybody, logout},
    {"GET", "/vantu/account", Route::PlayerOnly, account},
    {"GET", "/vantu/account/edit", Route::PlayerOnly, editAccount},
    {"POST", "/vantu/account/edit", Route::PlayerOnly, saveAccount},
};
