// SPDX-License-Identifier: MIT
#include "page.h"

namespace {

// Friends can be picked as recipients from the first page alone, so it is long.
constexpr int friendsPerPage = 100;

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

Reply friends(Visit &visit)
{
    const std::string &me = visit.player.id;
    const int number = visit.arguments.empty() ? 1 : numberOf(visit.arguments[0]).value_or(0);
    if (number < 1 || number > 1000000)
        throw Refusal{404};
    Page page(visit.session.language, "friends.tpl", visit.say("T_FRIENDS"));
    if (value(visit.request.query, "select") == "yes")
        page.show("SELECTING");
    page.list("FRIEND",
              visit.query(R"(SELECT person.*, seen = 0 AS FRESH FROM friendship JOIN person ON UID = friend
                  WHERE player = ? ORDER BY NAME COLLATE NOCASE, UID LIMIT ? OFFSET ?)",
                          me, friendsPerPage, (number - 1) * friendsPerPage));
    page.row(visit.query(R"(SELECT ?1 - 1 AS BACKWARD, CASE WHEN count(*) > ?1 * ?2 THEN ?1 + 1 END AS FORWARD
                 FROM friendship WHERE player = ?3)",
                         number, friendsPerPage, me));
    visit.change("UPDATE friendship SET seen = 1 WHERE player = ? AND seen = 0", me);
    return page.reply(visit);
}

// The text comes in a form and never stands in an address: there, some words have a meaning for the companion.
Reply search(Visit &visit)
{
    visit.session.search = value(visit.request.form, "q");
    if (!isText(visit.session.search, 100))
        throw Refusal{400};
    return redirection(visit.session.search.empty() ? "/vantu/friends/add-friends/"
                                                    : "/vantu/friends/add-friends/?found=1");
}

Reply addFriends(Visit &visit)
{
    const bool isSearch = !value(visit.request.query, "found").empty() && !visit.session.search.empty();
    Page page(visit.session.language, "add-friends.tpl", visit.say("T_ADD_FRIENDS"));
    page.set("HEADING", visit.say(isSearch ? "FOUND" : "PERHAPS_YOU_KNOW"));
    page.set("QUERY", isSearch ? visit.session.search : "");
    // Those found, or those who have most friends in common.
    page.list("PLAYER",
              visit.query(R"(WITH mine AS (SELECT friend FROM friendship WHERE player = ?1)
                  SELECT person.*, UID IN mine AS IS_FRIEND, UID NOT IN mine AS CAN_ADD
                  FROM person JOIN player ON id = UID
                  WHERE UID <> ?1 AND CASE WHEN ?2 THEN person.NAME LIKE ?3 ESCAPE '\' OR login LIKE ?3 ESCAPE '\'
                      ELSE UID NOT IN mine END
                  ORDER BY (SELECT count(*) FROM friendship WHERE player = UID AND friend IN mine AND NOT ?2) DESC,
                      person.NAME COLLATE NOCASE LIMIT CASE WHEN ?2 THEN 50 ELSE 10 END)",
                          visit.player.id, isSearch ? 1 : 0, containing(visit.session.search)));
    return page.reply(visit);
}

Reply invitations(Visit &visit)
{
    Page page(visit.session.language, "invitations.tpl", visit.say("T_INVITATIONS"));
    page.list("INVITATION",
              visit.query(R"(SELECT address AS ADDRESS, game.name AS GAME, sent AS MOMENT
                  FROM invitation LEFT JOIN game ON game.id = game WHERE sender = ?
                  ORDER BY invitation.id DESC LIMIT 100)",
                          visit.player.id));
    return page.reply(visit);
}

Reply profile(Visit &visit)
{
    const Player player = visit.playerOf(visit.arguments[0]);
    Page page(visit.session.language, "profile.tpl", player.name);
    page.showPlayer(visit, player);
    page.row(visit.query("SELECT * FROM standing WHERE UID = ?", player.id));
    page.list("GAME_ROW", visit.query("SELECT * FROM played WHERE player = ? AND WON > 0 ORDER BY GAME", player.id));
    return page.reply(visit);
}

Reply addFriend(Visit &visit)
{
    const Player player = visit.playerOf(visit.arguments[0]);
    if (player.id != visit.player.id) {
        visit.change("INSERT OR IGNORE INTO friendship VALUES(?1, ?2, 1), (?2, ?1, 0)", visit.player.id, player.id);
        visit.session.notice = visit.say("FRIEND_ADDED", player.name);
    }
    return redirection("/vantu/account/index/uid/" + player.id);
}

Reply deleteFriend(Visit &visit)
{
    const Player player = visit.playerOf(visit.arguments[0]);
    if (visit.change("DELETE FROM friendship WHERE (player = ?1 AND friend = ?2) OR (player = ?2 AND friend = ?1)",
                     visit.player.id, player.id)
        == 0)
        throw Refusal{400};
    visit.session.notice = visit.say("FRIEND_DELETED", player.name);
    return redirection("/vantu/friends?iDelete=1");
}

Reply evaluate(Visit &visit)
{
    const Player player = visit.playerOf(visit.arguments[0]);
    const std::string &vote = visit.arguments[1];
    if ((vote != "0" && vote != "1") || !visit.isFriend(player.id))
        throw Refusal{400};
    visit.change("INSERT OR REPLACE INTO rating VALUES(?, ?, ?)", visit.player.id, player.id, vote);
    visit.session.notice = visit.say("RATED", player.name);
    return redirection("/vantu/account/index/uid/" + player.id);
}

} // namespace

const std::vector<Route> peopleRoutes = {
    {"GET", "/vantu/friends", Route::PlayerOnly, friends},
    {"GET", "/vantu/friends/index/page/*", Route::PlayerOnly, friends},
    {"GET", "/vantu/friends/add-friends", Route::PlayerOnly, addFriends},
    {"POST", "/vantu/friends/add-friends", Route::PlayerOnly, search},
    {"GET", "/vantu/friends/show-invite-email", Route::PlayerOnly, invitations},
    {"GET", "/vantu/account/index/uid/*", Route::PlayerOnly, profile},
    {"GET", "/vantu/account/add-friend/uid/*", Route::PlayerOnly, addFriend},
    {"GET", "/vantu/friends/delete-friend/uid/*", Route::PlayerOnly, deleteFriend},
    {"GET", "/vantu/friends/evaluate/fid/*/value/*", Route::PlayerOnly, evaluate},
};
