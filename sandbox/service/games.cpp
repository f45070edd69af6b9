// SPDX-License-Identifier: MIT
#include "page.h"

#include <ctime>

namespace {

constexpr std::size_t mostInvited = 1000;
constexpr std::size_t longestAddress = 1000;

Reply games(Visit &visit)
{
    Page page(visit.session.language, "games.tpl", visit.say("T_GAMES"));
    page.list("GAME_ROW", visit.query("SELECT * FROM played WHERE player = ? ORDER BY GAME", visit.player.id));
    return page.reply(visit);
}

Reply showGame(Visit &visit)
{
    const Game game = visit.gameOf(visit.arguments[0]);
    Page page(visit.session.language, "game.tpl", game.name);
    page.showGame(visit, game);
    page.list("PLAYER",
              visit.query(R"(SELECT person.* FROM friendship JOIN person ON UID = friend
                  WHERE player = ?1 AND EXISTS (SELECT 1 FROM won WHERE player = UID AND game = ?2)
                  ORDER BY NAME COLLATE NOCASE LIMIT 50)",
                          visit.player.id, game.id));
    return page.reply(visit);
}

Reply trophies(Visit &visit)
{
    const Game game = visit.gameOf(visit.arguments[0]);
    Page page(visit.session.language, "trophies.tpl", visit.say("T_TROPHIES"));
    page.showGame(visit, game);
    page.list("TROPHY",
              visit.query("SELECT trophy." + std::string(languageCode(visit.session.language))
                              + R"( AS TROPHY_NAME, points AS TROPHY_POINTS, at AS MOMENT, at IS NULL AS OPEN
                  FROM trophy LEFT JOIN won ON won.game = trophy.game AND won.bit = trophy.bit AND player = ?
                  WHERE trophy.game = ? ORDER BY at IS NULL, trophy.bit)",
                          visit.player.id, game.id));
    visit.change("UPDATE won SET seen = 1 WHERE player = ? AND game = ? AND seen = 0", visit.player.id, game.id);
    return page.reply(visit);
}

Reply compare(Visit &visit)
{
    const Player other = visit.playerOf(visit.arguments[0]);
    Page page(visit.session.language, "compare.tpl", visit.say("T_COMPARE"));
    page.list("ME", visit.query("SELECT * FROM person WHERE UID = ?", visit.player.id));
    page.row(visit.query("SELECT * FROM person WHERE UID = ?", other.id));
    page.list("GAME_ROW",
              visit.query(R"(SELECT mine.*, theirs.WON AS THEIRS, theirs.PERCENT AS THEIR_PERCENT
                  FROM played mine JOIN played theirs USING(GID) WHERE mine.player = ? AND theirs.player = ?
                  ORDER BY mine.GAME)",
                          visit.player.id, other.id));
    return page.reply(visit);
}

Reply addTrophies(Visit &visit)
{
    visit.optionalGame(visit.arguments[0]);
    const Player player = visit.playerOf(visit.arguments[1]);
    const Game game = visit.gameOf(visit.arguments[2]);
    int added = 0;
    for (const std::string &each : values(visit.request.form, "trophy_id[]")) {
        const int bit = numberOf(each).value_or(64);
        if (bit > 63)
            throw Refusal{400};
        // Those won before, or unknown to the game, are passed over.
        added += visit.change(
            "INSERT OR IGNORE INTO won SELECT ?, game, bit, ?, 0 FROM trophy WHERE game = ? AND bit = ?", player.id,
            std::time(nullptr), game.id, bit);
    }
    return plainText("new: " + std::to_string(added));
}

// Shown in a strip below the addresses while the player writes them.
Reply mailPreview(Visit &visit)
{
    Page page(visit.session.language, "mail.tpl", visit.say("T_INVITE"));
    const std::string &asked = visit.arguments[0];
    const int own = visit.session.game;
    const Game game = visit.optionalGame(asked.empty() && own > 0 ? std::to_string(own) : asked);
    if (game.id > 0) {
        page.showGame(visit, game);
        page.set("SUBJECT", visit.say("INVITE_SUBJECT", game.name));
        page.show("GAME_CARD");
    }
    page.set("NAME", visit.player.name);
    page.set("INVITE", visit.say("INVITE_TEXT", visit.player.name));
    return page.reply(visit);
}

void addInvitation(const Visit &visit, const Player &sender, const Game &game, const std::string &name,
                   const std::string &address)
{
    visit.change("INSERT INTO invitation(sender, game, name, address, sent) VALUES(?, ?, ?, ?, ?)", sender.id, game.id,
                 name, address, std::time(nullptr));
}

Reply invite(Visit &visit)
{
    const Game game = visit.optionalGame(visit.arguments[0]);
    const Player sender = visit.playerOf(visit.arguments[1]);
    const std::vector<std::string> names = values(visit.request.form, "name[]");
    const std::vector<std::string> addresses = values(visit.request.form, "email[]");
    if (addresses.empty() || names.size() != addresses.size() || addresses.size() > mostInvited)
        throw Refusal{400};
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        if (addresses[i].empty() || !isText(addresses[i], longestAddress) || !isText(names[i], longestAddress))
            throw Refusal{400};
        addInvitation(visit, sender, game, names[i], addresses[i]);
    }
    return plainText("invited");
}

Reply sharingPage(Visit &visit, const std::string &network)
{
    const Game game = visit.gameOf(visit.arguments[0]);
    Page page(visit.session.language, "share.tpl", network);
    page.showGame(visit, game);
    page.row(visit.query("SELECT * FROM person WHERE UID = ?", visit.player.id));
    page.set("NETWORK", network);
    page.set("ACTION", visit.request.path);
    page.set("MESSAGE", visit.say("SHARE_TEXT", game.name));
    return page.reply(visit);
}

// Nothing is really sent: it stands among the player's invitations.
Reply shared(Visit &visit, const std::string &network, const std::string &next)
{
    const Game game = visit.gameOf(visit.arguments[0]);
    addInvitation(visit, visit.player, game, network, network);
    return redirection(next + std::to_string(game.id));
}

// The companion switches scripts off on these pages: plain forms only.
Reply twitterPage(Visit &visit)
{
    return sharingPage(visit, "Twitter");
}

Reply tweet(Visit &visit)
{
    return shared(visit, "Twitter", "/vantu/games/signal-twitter-send/gid/");
}

Reply tweeted(Visit &visit)
{
    Page page(visit.session.language, "shared.tpl", "Twitter");
    page.showGame(visit, visit.gameOf(visit.arguments[0]));
    return page.reply(visit);
}

// The companion's "back" knows the sharing page by the word in its address.
Reply toFacebook(Visit &visit)
{
    return redirection("/vantu/facebook/share/gid/" + std::to_string(visit.gameOf(visit.arguments[0]).id));
}

Reply facebookPage(Visit &visit)
{
    return sharingPage(visit, "Facebook");
}

Reply shareOnFacebook(Visit &visit)
{
    visit.session.notice = visit.say("SHARED");
    return shared(visit, "Facebook", "/vantu/games/show-game/gid/");
}

} // namespace

const std::vector<Route> gameRoutes = {
    {"GET", "/vantu/games", Route::PlayerOnly, games},
    {"GET", "/vantu/games/show-game/gid/*", Route::PlayerOnly, showGame},
    {"GET", "/vantu/games/show-game/gid/*/fb_send/yes", Route::PlayerOnly, toFacebook},
    {"GET", "/vantu/games/trophies/gid/*", Route::PlayerOnly, trophies},
    {"GET", "/vantu/games/compare/uid/*", Route::PlayerOnly, compare},
    {"GET", "/vantu/games/recommend-via-mail/id/?", Route::PlayerOnly, mailPreview},
    {"GET", "/vantu/games/recommend-via-twitter/id/*", Route::PlayerOnly, twitterPage},
    {"POST", "/vantu/games/recommend-via-twitter/id/*", Route::PlayerOnly, tweet},
    {"GET", "/vantu/games/signal-twitter-send/gid/*", Route::PlayerOnly, tweeted},
    {"GET", "/vantu/facebook/share/gid/*", Route::PlayerOnly, facebookPage},
    {"POST", "/vantu/facebook/share/gid/*", Route::PlayerOnly, shareOnFacebook},
    // The companion's own requests bring no cookie: the id in the path says who asks.
    {"POST", "/vantu/games/recommend-via-mail/id/?/android_uid/*", Route::Anybody, invite},
    {"POST", "/vantu/index/add-trophy?/android_uid/*/kvb_game/*", Route::Anybody, addTrophies},
};
