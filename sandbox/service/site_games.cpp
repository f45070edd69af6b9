// SPDX-License-Identifier: MIT
#include "site.h"

Reply Site::games(Visit &visit)
{
    const Language language = visit.session.language;
    Page page("games.tpl", language);
    for (const Game &each : m_database.games(visit.player->id, language))
        page.content().add("GAME_ROW").setGame(each);
    return show(visit, page, phrase("T_GAMES", language));
}

Reply Site::showGame(Visit &visit)
{
    const Language language = visit.session.language;
    const Game game = gameOf(visit.arguments[0], visit.player->id, language);
    Page page("game.tpl", language);
    page.variables.gameId = std::to_string(game.id);
    page.content().setGame(game);
    const std::vector<Player> players = m_database.friendsInGame(game.id, visit.player->id);
    page.content().showIf(!players.empty(), "HAS_PLAYERS");
    for (const Player &each : players)
        page.content().add("PLAYER").setPlayer(each);
    return show(visit, page, game.name);
}

Reply Site::trophies(Visit &visit)
{
    const Language language = visit.session.language;
    const Game game = gameOf(visit.arguments[0], visit.player->id, language);
    Page page("trophies.tpl", language);
    page.variables.gameId = std::to_string(game.id);
    page.content().setGame(game);
    for (const Trophy &each : m_database.trophies(game.id, visit.player->id, language)) {
        Section row = page.content().add("TROPHY");
        row.set("TROPHY_NAME", each.name);
        row.set("TROPHY_POINTS", each.points);
        row.set("STATE", each.wonAt > 0 ? "won" : "open");
        if (each.wonAt > 0)
            row.add("WON_AT").set("WHEN", dayAndTime(each.wonAt, language));
        else
            row.add("OPEN");
    }
    m_database.markTrophiesSeen(game.id, visit.player->id);
    return show(visit, page, phrase("T_TROPHIES", language));
}

Reply Site::compare(Visit &visit)
{
    const Language language = visit.session.language;
    const Player other = playerOf(visit.arguments[0]);
    Page page("compare.tpl", language);
    setAbout(visit, page, other);
    page.content().setPlayer(other);
    page.content().add("ME").setPlayer(*visit.player);
    const std::vector<Game> mine = m_database.games(visit.player->id, language);
    const std::vector<Game> theirs = m_database.games(other.id, language);
    for (std::size_t i = 0; i < mine.size() && i < theirs.size(); ++i) {
        Section row = page.content().add("GAME_ROW");
        row.setGame(mine[i]);
        row.set("THEIRS", theirs[i].won);
        row.set("THEIR_PERCENT", theirs[i].trophies > 0 ? theirs[i].won * 100 / theirs[i].trophies : 0);
    }
    return show(visit, page, phrase("T_COMPARE", language));
}

Reply Site::addTrophies(Visit &visit)
{
    optionalGame(visit.arguments[0]);
    const Player player = playerOf(visit.arguments[1]);
    const Game game = gameOf(visit.arguments[2], player.id, Language::English);
    std::vector<int> bits;
    for (const std::string &each : values(visit.request.form, "trophy_id[]")) {
        const int bit = numberOf(each).value_or(64);
        if (bit > 63)
            throw Refusal{400};
        bits.push_back(bit);
    }
    return plainText("new: " + std::to_string(m_database.addTrophies(player.id, game.id, bits)));
}

// Shown in a strip below the addresses while the player writes them.
Reply Site::mailPreview(Visit &visit)
{
    const Language language = visit.session.language;
    Page page("mail.tpl", language);
    page.content().setPlayer(*visit.player);
    const std::string number = visit.arguments.empty() ? std::to_string(visit.session.game) : visit.arguments[0];
    if (!visit.arguments.empty() || visit.session.game > 0) {
        const Game game = gameOf(number, visit.player->id, language);
        page.variables.gameId = number;
        Section section = page.content().add("GAME_CARD");
        section.setGame(game);
        section.set("SUBJECT", phrase("INVITE_SUBJECT", language, game.name));
    }
    page.content().set("INVITE", phrase("INVITE_TEXT", language, visit.player->name));
    return show(visit, page, phrase("T_INVITE", language));
}

Reply Site::invite(Visit &visit)
{
    const int game = optionalGame(visit.arguments[0]);
    const Player sender = playerOf(visit.arguments[1]);
    const std::vector<std::string> names = values(visit.request.form, "name[]");
    const std::vector<std::string> addresses = values(visit.request.form, "email[]");
    if (addresses.empty() || names.size() != addresses.size() || addresses.size() > 1000)
        throw Refusal{400};
    std::vector<std::pair<std::string, std::string>> invited;
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        if (addresses[i].empty() || !isText(addresses[i], 1000) || !isText(names[i], 1000))
            throw Refusal{400};
        invited.emplace_back(names[i], addresses[i]);
    }
    m_database.addInvitations(sender.id, game, invited);
    return plainText("invited");
}

Reply Site::sharingPage(Visit &visit, const Game &game, const std::string &network, const std::string &action)
{
    const Language language = visit.session.language;
    Page page("share.tpl", language);
    page.variables.gameId = std::to_string(game.id);
    Section &content = page.content();
    content.setPlayer(*visit.player);
    content.setGame(game);
    content.set("NETWORK", network);
    content.set("ACTION", action);
    content.set("MESSAGE", phrase("SHARE_TEXT", language, game.name));
    return show(visit, page, network);
}

// The companion switches scripts off on these pages: plain forms only.
Reply Site::twitterPage(Visit &visit)
{
    const Game game = gameOf(visit.arguments[0], visit.player->id, visit.session.language);
    return sharingPage(visit, game, "Twitter", "/vantu/games/recommend-via-twitter/id/" + std::to_string(game.id));
}

Reply Site::tweet(Visit &visit)
{
    const Game game = gameOf(visit.arguments[0], visit.player->id, visit.session.language);
    m_database.addInvitations(visit.player->id, game.id, {{"Twitter", "Twitter"}});
    return redirection("/vantu/games/signal-twitter-send/gid/" + std::to_string(game.id));
}

Reply Site::tweeted(Visit &visit)
{
    const Game game = gameOf(visit.arguments[0], visit.player->id, visit.session.language);
    Page page("shared.tpl", visit.session.language);
    page.variables.gameId = std::to_string(game.id);
    page.content().setGame(game);
    return show(visit, page, "Twitter");
}

// The companion's "back" knows the sharing page by the word in its address.
Reply Site::toFacebook(Visit &visit)
{
    const Game game = gameOf(visit.arguments[0], visit.player->id, visit.session.language);
    return redirection("/vantu/facebook/share/gid/" + std::to_string(game.id));
}

Reply Site::facebookPage(Visit &visit)
{
    const Game game = gameOf(visit.arguments[0], visit.player->id, visit.session.language);
    return sharingPage(visit, game, "Facebook", "/vantu/facebook/share/gid/" + std::to_string(game.id));
}

Reply Site::shareOnFacebook(Visit &visit)
{
    const Game game = gameOf(visit.arguments[0], visit.player->id, visit.session.language);
    m_database.addInvitations(visit.player->id, game.id, {{"Facebook", "Facebook"}});
    visit.session.notice = phrase("SHARED", visit.session.language);
    return redirection("/vantu/games/show-game/gid/" + std::to_string(game.id));
}
