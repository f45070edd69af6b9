// SPDX-License-Identifier: MIT
#include "site.h"

namespace {

// Friends can be picked as recipients from the first page alone, so it is long.
constexpr int friendsPerPage = 100;

} // namespace

Reply Site::friends(Visit &visit)
{
    const Language language = visit.session.language;
    const std::string &me = visit.player->id;
    const int number = visit.arguments.empty() ? 1 : numberOf(visit.arguments[0]).value_or(0);
    if (number < 1 || number > 1000000)
        throw Refusal{404};
    Page page("friends.tpl", language);
    Section &content = page.content();
    content.showIf(value(visit.request.query, "select") == "yes", "SELECTING");
    const std::vector<Friend> list = m_database.friends(me, (number - 1) * friendsPerPage, friendsPerPage);
    for (const Friend &each : list) {
        Section row = content.add("FRIEND");
        row.setPlayer(each.player);
        row.showIf(each.isNew, "FRESH");
    }
    content.showIf(list.empty(), "EMPTY");
    const bool hasNext = m_database.friendCount(me) > number * friendsPerPage;
    content.showIf(number > 1 || hasNext, "PAGES");
    if (number > 1)
        content.add("BACKWARD").set("PAGE", number - 1);
    if (hasNext)
        content.add("FORWARD").set("PAGE", number + 1);
    m_database.markFriendsSeen(me);
    return show(visit, page, phrase("T_FRIENDS", language));
}

Reply Site::addFriends(Visit &visit)
{
    const Language language = visit.session.language;
    const std::string text = value(visit.request.query, "q");
    if (!isText(text, 400))
        throw Refusal{400};
    Page page("add-friends.tpl", language);
    Section &content = page.content();
    const std::vector<Player> found
        = text.empty() ? m_database.suggestions(visit.player->id) : m_database.search(visit.player->id, text);
    content.set("QUERY", text);
    content.set("HEADING", phrase(text.empty() ? "PERHAPS_YOU_KNOW" : "FOUND", language));
    for (const Player &each : found) {
        Section row = content.add("PLAYER");
        row.setPlayer(each);
        row.add(m_database.areFriends(visit.player->id, each.id) ? "IS_FRIEND" : "CAN_ADD");
    }
    content.showIf(!found.empty(), "HAS_HEADING");
    content.showIf(found.empty(), "EMPTY");
    return show(visit, page, phrase("T_ADD_FRIENDS", language));
}

Reply Site::invitations(Visit &visit)
{
    const Language language = visit.session.language;
    Page page("invitations.tpl", language);
    const std::vector<Invitation> list = m_database.invitations(visit.player->id);
    for (const Invitation &each : list) {
        Section row = page.content().add("INVITATION");
        row.set("ADDRESS", each.address);
        row.set("GAME", each.game);
        row.set("WHEN", dayAndTime(each.sent, language));
    }
    page.content().showIf(list.empty(), "EMPTY");
    return show(visit, page, phrase("T_INVITATIONS", language));
}

Reply Site::profile(Visit &visit)
{
    const Language language = visit.session.language;
    const Player player = playerOf(visit.arguments[0]);
    Page page("profile.tpl", language);
    setAbout(visit, page, player);
    Section &content = page.content();
    content.setPlayer(player);
    content.showIf(page.variables.isFriend, "IS_FRIEND");
    content.showIf(player.id != visit.player->id, "OTHER");
    const Standing standing = m_database.standing(player.id);
    const int votes = standing.up + standing.down;
    content.set("UP", standing.up);
    content.set("DOWN", standing.down);
    content.set("UP_PERCENT", votes > 0 ? standing.up * 100 / votes : 0);
    content.add(votes > 0 ? "RATED_BAR" : "UNRATED");
    for (const Game &each : m_database.games(player.id, language)) {
        if (each.won > 0)
            content.add("GAME_ROW").setGame(each);
    }
    return show(visit, page, player.name);
}

Reply Site::addFriend(Visit &visit)
{
    const Player player = playerOf(visit.arguments[0]);
    if (player.id == visit.player->id)
        throw Refusal{400};
    m_database.addFriend(visit.player->id, player.id);
    visit.session.notice = phrase("FRIEND_ADDED", visit.session.language, player.name);
    return redirection("/vantu/account/index/uid/" + player.id);
}

Reply Site::deleteFriend(Visit &visit)
{
    const Player player = playerOf(visit.arguments[0]);
    if (!m_database.areFriends(visit.player->id, player.id))
        throw Refusal{400};
    m_database.deleteFriend(visit.player->id, player.id);
    visit.session.notice = phrase("FRIEND_DELETED", visit.session.language);
    return redirection("/vantu/friends?iDelete=1");
}

Reply Site::evaluate(Visit &visit)
{
    const Player player = playerOf(visit.arguments[0]);
    const std::string &vote = visit.arguments[1];
    if ((vote != "0" && vote != "1") || !m_database.areFriends(visit.player->id, player.id))
        throw Refusal{400};
    m_database.rate(visit.player->id, player.id, vote == "1");
    visit.session.notice = phrase("RATED", visit.session.language, player.name);
    return redirection("/vantu/account/index/uid/" + player.id);
}
