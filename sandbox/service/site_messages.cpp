// SPDX-License-Identifier: MIT
#include "site.h"

#include <algorithm>

namespace {

constexpr std::size_t longestMessage = 200000;
constexpr std::size_t mostRecipients = 1000;

} // namespace

Reply Site::inbox(Visit &visit)
{
    const Language language = visit.session.language;
    Page page("inbox.tpl", language);
    const std::vector<Conversation> list = m_database.conversations(visit.player->id);
    for (const Conversation &each : list) {
        Section row = page.content().add("CONVERSATION");
        row.setPlayer(each.other);
        row.set("EXCERPT", each.excerpt);
        row.set("WHEN", dayOrTime(each.sent, language));
        row.showIf(each.mine, "MINE");
        if (each.unread > 0) {
            row.set("STATE", "unread");
            row.add("FRESH").set("COUNT", each.unread);
        }
    }
    page.content().showIf(list.empty(), "EMPTY");
    return show(visit, page, phrase("T_INBOX", language));
}

Reply Site::conversation(Visit &visit)
{
    const Language language = visit.session.language;
    const Player other = playerOf(visit.arguments[0]);
    Page page("conversation.tpl", language);
    setAbout(visit, page, other);
    page.content().setPlayer(other);
    const std::vector<Message> list = m_database.conversation(visit.player->id, other.id);
    for (const Message &each : list) {
        Section row = page.content().add("MESSAGE");
        row.set("SIDE", each.mine ? "mine" : "theirs");
        row.set("TEXT", each.text);
        row.set("WHEN", dayAndTime(each.sent, language));
    }
    page.content().showIf(list.empty(), "EMPTY");
    m_database.markRead(visit.player->id, other.id);
    return show(visit, page, other.name);
}

Reply Site::sentMessages(Visit &visit)
{
    const Language language = visit.session.language;
    Page page("sent.tpl", language);
    const std::vector<Message> list = m_database.sentMessages(visit.player->id);
    for (const Message &each : list) {
        Section row = page.content().add("MESSAGE");
        row.setPlayer(each.other);
        row.set("RECIPIENTS", each.recipients);
        row.set("EXCERPT", each.text);
        row.set("WHEN", dayOrTime(each.sent, language));
    }
    page.content().showIf(list.empty(), "EMPTY");
    return show(visit, page, phrase("T_SENT", language));
}

Reply Site::sendMessage(Visit &visit)
{
    // The path joins game and player without a separator. Games are numbers and ids of players begin with a letter, so
    // the first letter is where the one ends and the other begins.
    const std::string &joined = visit.arguments[0];
    const std::size_t split = std::min(joined.find_first_not_of("0123456789"), joined.size());
    const Player sender = playerOf(joined.substr(split));
    const int game = optionalGame(joined.substr(0, split));
    const std::vector<std::string> recipients = values(visit.request.form, "user_id[]");
    const std::string text = value(visit.request.form, "message");
    const bool isGood
        = !recipients.empty() && recipients.size() <= mostRecipients && !text.empty() && isText(text, longestMessage);
    if (!isGood || !m_database.addMessage(sender.id, game, recipients, text))
        throw Refusal{400};
    return plainText("sent");
}
