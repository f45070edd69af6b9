// SPDX-License-Identifier: MIT
#include "secrets.h"
#include "site.h"

#include <algorithm>

namespace {

bool isYes(const std::string &text)
{
    return !text.empty() && text != "0";
}

// Characters, not bytes; the text is known to be well-formed.
std::size_t length(const std::string &text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](unsigned char c) { return (c & 0xC0) != 0x80; }));
}

bool isLine(const std::string &text, std::size_t longest)
{
    return isText(text, longest * 4) && length(text) <= longest
        && std::none_of(text.begin(), text.end(), [](unsigned char c) { return c < 0x20; });
}

} // namespace

Reply Site::home(Visit &visit)
{
    takeStartUrl(visit);
    if (!visit.player)
        return signInForm(visit, value(visit.request.query, "username"), "");
    const Language language = visit.session.language;
    Page page("home.tpl", language);
    Section &content = page.content();
    content.setPlayer(*visit.player);
    content.set("HELLO_TEXT", phrase("HELLO", language, visit.player->name.substr(0, visit.player->name.find(' '))));
    const Unread unread = m_database.unread(visit.player->id);
    if (unread.messages > 0)
        content.add("MESSAGES").set("COUNT", unread.messages);
    if (unread.friends > 0)
        content.add("FRIENDS").set("COUNT", unread.friends);
    if (unread.games > 0)
        content.add("GAMES").set("COUNT", unread.games);
    if (const auto game = m_database.game(visit.session.game, visit.player->id, language))
        content.add("PLAYING").setGame(*game);
    const std::vector<News> news = m_database.news(visit.player->id, language);
    for (const News &each : news) {
        Section row = content.add("NEWS_ROW");
        row.setPlayer(each.player);
        row.set("TROPHY", each.trophy);
        row.set("GAME", each.game);
        row.set("WHEN", dayOrTime(each.at, language));
    }
    content.showIf(news.empty(), "EMPTY");
    return show(visit, page, phrase("T_HOME", language));
}

// The companion opens the service with all that it knows; a visitor who is signed in already stays so.
void Site::takeStartUrl(Visit &visit)
{
    const Fields &query = visit.request.query;
    if (const auto number = numberOf(value(query, "KVB")))
        visit.session.game = m_database.game(*number, "", visit.session.language) ? *number : 0;
    const std::string login = value(query, "username");
    if (!login.empty() && isYes(value(query, "remember_me")))
        signIn(visit, login, value(query, "pass"), true);
}

// @p secret is the password or a login token given out before.
bool Site::signIn(Visit &visit, const std::string &login, const std::string &secret, bool remember)
{
    const auto player = isText(login, 100) ? m_database.playerByLogin(login) : std::nullopt;
    if (!player)
        return false;
    const bool isToken = m_database.hasLoginToken(player->id, tokenHash(secret));
    if (!isToken && !passwordMatches(secret, m_database.passwordHashOf(player->id)))
        return false;
    std::string token = isToken ? secret : std::string();
    if (remember && !isToken) {
        token = randomToken();
        m_database.addLoginToken(player->id, tokenHash(token));
    }
    visit.session.player = player->id;
    visit.session.loginToken = token;
    visit.player = player;
    visit.renewed = true;
    return true;
}

Reply Site::signInForm(Visit &visit, const std::string &login, const std::string &notice)
{
    Page page("login.tpl", visit.session.language);
    page.content().set("LOGIN", isText(login, 100) ? login : std::string());
    page.content().showIf(m_showGuests, "GUESTS");
    if (!notice.empty())
        visit.session.notice = phrase(notice, visit.session.language);
    return show(visit, page, phrase("T_SIGN_IN", visit.session.language));
}

Reply Site::loginPage(Visit &visit)
{
    const bool signedOut = !value(visit.request.query, "iDelete").empty();
    return signInForm(visit, "", signedOut && !visit.player ? "SIGNED_OUT" : "");
}

Reply Site::login(Visit &visit)
{
    const Fields &form = visit.request.form;
    const std::string login = value(form, "username");
    if (!signIn(visit, login, value(form, "password"), isYes(value(form, "remember_me"))))
        return signInForm(visit, login, "WRONG_LOGIN");
    return redirection("/vantu/");
}

Reply Site::logout(Visit &visit)
{
    m_database.removeLoginToken(tokenHash(visit.session.loginToken));
    visit.session.player.clear();
    visit.session.loginToken.clear();
    visit.renewed = true;
    return redirection("/vantu/login?iDelete=1");
}

Reply Site::account(Visit &visit)
{
    Page page("account.tpl", visit.session.language);
    Section &content = page.content();
    content.setPlayer(*visit.player);
    content.set("LOGIN", visit.player->login);
    const Standing standing = m_database.standing(visit.player->id);
    content.set("UP", standing.up);
    content.set("DOWN", standing.down);
    return show(visit, page, phrase("T_ACCOUNT", visit.session.language));
}

Reply Site::editAccount(Visit &visit)
{
    Page page("edit.tpl", visit.session.language);
    page.content().setPlayer(*visit.player);
    return show(visit, page, phrase("T_EDIT", visit.session.language));
}

Reply Site::saveAccount(Visit &visit)
{
    const Fields &form = visit.request.form;
    Player changed = *visit.player;
    changed.name = value(form, "name");
    changed.city = value(form, "city");
    changed.motto = value(form, "motto");
    const std::string wanted = value(form, "new_password");
    const bool fits
        = !changed.name.empty() && isLine(changed.name, 40) && isLine(changed.city, 100) && isLine(changed.motto, 100);
    std::string mistake = fits ? "" : "NAME_NEEDED";
    if (fits && !wanted.empty() && !changePassword(visit, value(form, "current_password"), wanted))
        mistake = "PASSWORD_REFUSED";
    if (!mistake.empty()) {
        visit.session.notice = phrase(mistake, visit.session.language);
        Reply reply = editAccount(visit);
        reply.status = 400;
        return reply;
    }
    m_database.updatePlayer(changed);
    visit.session.notice = phrase("SAVED", visit.session.language);
    return redirection("/vantu/account");
}

// Whoever knew the old password is signed out everywhere, except here.
bool Site::changePassword(Visit &visit, const std::string &current, const std::string &wanted)
{
    if (!isLine(wanted, 100) || length(wanted) < 6
        || !passwordMatches(current, m_database.passwordHashOf(visit.player->id)))
        return false;
    m_database.setPasswordHash(visit.player->id, passwordHash(wanted));
    m_sessions.removeOthers(visit.player->id, visit.request.sessionId);
    if (!visit.session.loginToken.empty()) {
        visit.session.loginToken = randomToken();
        m_database.addLoginToken(visit.player->id, tokenHash(visit.session.loginToken));
    }
    return true;
}
