// SPDX-License-Identifier: MIT
#include "page.h"

#include <algorithm>
#include <ctime>

namespace {

constexpr std::size_t longestMessage = 200000;
constexpr std::size_t mostRecipients = 1000;

Reply inbox(Visit &visit)
{
    Page page(visit.session.language, "inbox.tpl", visit.say("T_INBOX"));
    // Of the bare columns beside max(), SQLite takes those of the row that holds the maximum.
    page.list("CONVERSATION",
              visit.query(R"(
        SELECT person.*, text AS EXCERPT, sent AS DAY, mine AS MINE, sum(fresh) AS FRESH, max(message)
        FROM (SELECT message.id AS message, sender AS other, substr(text, 1, 200) AS text, sent, 0 AS mine,
                  read = 0 AS fresh FROM delivery JOIN message ON message.id = message WHERE recipient = ?1
              UNION ALL
              SELECT message.id, recipient, substr(text, 1, 200), sent, 1, 0
                  FROM message JOIN delivery ON message = message.id WHERE sender = ?1 AND recipient <> ?1)
        JOIN person ON UID = other GROUP BY other ORDER BY max(message) DESC LIMIT 100)",
                          visit.player.id));
    return page.reply(visit);
}

Reply conversation(Visit &visit)
{
    const std::string &me = visit.player.id;
    const Player other = visit.playerOf(visit.arguments[0]);
    Page page(visit.session.language, "conversation.tpl", other.name);
    page.row(visit.query("SELECT * FROM person WHERE UID = ?", other.id));
    page.list("MESSAGE",
              visit.query(R"(
        SELECT text AS TEXT, sent AS MOMENT, CASE sender WHEN ?1 THEN 'mine' ELSE 'theirs' END AS SIDE
        FROM message JOIN delivery ON message = message.id
        WHERE (sender = ?1 AND recipient = ?2) OR (sender = ?2 AND recipient = ?1)
        ORDER BY message.id DESC LIMIT 200)",
                          me, other.id));
    visit.change(R"(UPDATE delivery SET read = 1
        WHERE recipient = ? AND read = 0 AND message IN (SELECT id FROM message WHERE sender = ?))",
                 me, other.id);
    return page.reply(visit);
}

Reply sentMessages(Visit &visit)
{
    Page page(visit.session.language, "sent.tpl", visit.say("T_SENT"));
    page.list("MESSAGE",
              visit.query(R"(
        SELECT person.*, substr(text, 1, 200) AS EXCERPT, sent AS DAY,
            (SELECT group_concat(name, ', ') FROM (SELECT name FROM delivery JOIN player ON player.id = recipient
             WHERE message = message.id ORDER BY position)) AS RECIPIENTS
        FROM message JOIN delivery ON message = message.id AND position = 0 JOIN person ON UID = recipient
        WHERE sender = ? ORDER BY message.id DESC LIMIT 100)",
                          visit.player.id));
    return page.reply(visit);
}

Reply sendMessage(Visit &visit)
{
    // The path joins game and player without a separator. Games are numbers and ids of players begin with a letter, so
    // the first letter is where the one ends and the other begins.
    const std::string &joined = visit.arguments[0];
    const std::size_t split = std::min(joined.find_first_not_of("0123456789"), joined.size());
    const Player sender = visit.playerOf(joined.substr(split));
    const Game game = visit.optionalGame(joined.substr(0, split));
    const std::vector<std::string> recipients = values(visit.request.form, "user_id[]");
    const std::string text = value(visit.request.form, "message");
    if (recipients.empty() || recipients.size() > mostRecipients || text.empty() || !isText(text, longestMessage))
        throw Refusal{400};
    visit.change("INSERT INTO message(sender, game, text, sent) VALUES(?, ?, ?, ?)", sender.id, game.id, text,
                 std::time(nullptr));
    const std::int64_t message = visit.database.getLastInsertRowid();
    int position = 0;
    for (const std::string &recipient : recipients) {
        if (!visit.exists("SELECT 1 FROM player WHERE id = ?", recipient))
            throw Refusal{400};
        visit.change("INSERT OR IGNORE INTO delivery VALUES(?, ?, ?, 0)", message, recipient, position++);
    }
    return plainText("sent");
}

} // namespace

const std::vector<Route> messageRoutes = {
    {"GET", "/vantu/messages/index", Route::PlayerOnly, inbox},
    {"GET", "/vantu/messages/index/uid/*", Route::PlayerOnly, conversation},
    {"GET", "/vantu/messages/sent", Route::PlayerOnly, sentMessages},
    // The companion's own requests bring no cookie: the id in the path says who asks.
    {"POST", "/vantu/messages/send-message/android_uid/*", Route::Anybody, sendMessage},
};
