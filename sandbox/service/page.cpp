// SPDX-License-Identifier: MIT
#include "page.h"

#include "embedded.h"

#include <stdexcept>

namespace {

ctemplate::TemplateDictionary *included(ctemplate::TemplateDictionary &page, const char *name, const char *file)
{
    ctemplate::TemplateDictionary *dictionary = page.AddIncludeDictionary(name);
    dictionary->SetFilename(file);
    return dictionary;
}

} // namespace

void loadTemplates()
{
    for (const auto &[name, text] : embeddedFiles) {
        if (name.find(".sql") == std::string::npos
            && !ctemplate::StringToTemplateCache(name, text, ctemplate::STRIP_BLANK_LINES))
            throw std::runtime_error("broken template " + name);
    }
}

Page::Page(Language language, const char *templateName, const std::string &title)
    : m_language(language)
    , m_page("page")
    , m_content(included(m_page, "CONTENT", templateName))
{
    for (const Phrase &each : phrases)
        m_page.SetTemplateGlobalValue(each.key, each.texts[static_cast<int>(language)]);
    m_page.SetTemplateGlobalValue("LANG", htmlCode(language));
    m_page.SetValue("sTitle", title);
    for (const char *number :
         {"iInboxMessages", "iGamesMessages", "iFriendsMessages", "bIsFriend", "bShowAdd", "bShowEvaluate"})
        m_page.SetIntValue(number, 0);
    included(m_page, "STYLE", "style.css");
    included(m_page, "SYMBOLS", "symbols.svg");
}

void Page::set(const char *name, const std::string &text)
{
    m_content->SetValue(name, text);
}

void Page::show(const char *section)
{
    m_content->ShowSection(section);
}

void Page::fill(ctemplate::TemplateDictionary &dictionary, SQLite::Statement &row)
{
    for (int i = 0; i < row.getColumnCount(); ++i) {
        const std::string name = row.getColumnName(i);
        std::string text = row.getColumn(i).getString();
        const bool isShown = !text.empty() && text != "0";
        if (isShown && name == "DAY")
            text = dayOrTime(row.getColumn(i).getInt64(), m_language);
        else if (isShown && name == "MOMENT")
            text = dayAndTime(row.getColumn(i).getInt64(), m_language);
        else if (name == "EXCERPT")
            text = excerpt(text);
        dictionary.SetValue(name, text);
        if (isShown)
            dictionary.ShowSection(name);
    }
}

void Page::row(SQLite::Statement &&rows)
{
    if (rows.executeStep())
        fill(*m_content, rows);
}

void Page::list(const char *name, SQLite::Statement &&rows)
{
    bool hasRows = false;
    for (; rows.executeStep(); hasRows = true)
        fill(*m_content->AddSectionDictionary(name), rows);
    show(hasRows ? "HAS_ROWS" : "EMPTY");
}

void Page::showPlayer(const Visit &visit, const Player &player)
{
    const bool isOther = visit.player.id != player.id;
    const bool isFriend = visit.isFriend(player.id);
    m_page.SetValue("iUserId", player.id);
    m_page.SetValue("sUserName", player.name);
    m_page.SetIntValue("bIsFriend", isFriend);
    m_page.SetIntValue("bShowAdd", isOther && !isFriend);
    m_page.SetIntValue("bShowEvaluate", isFriend);
    if (isFriend)
        show("IS_FRIEND");
    if (isOther)
        show("OTHER");
    row(visit.query("SELECT * FROM person WHERE UID = ?", player.id));
}

void Page::showGame(const Visit &visit, const Game &game)
{
    m_game = game.id;
    row(visit.query("SELECT played.*, game." + std::string(languageCode(m_language))
                        + " AS TAGLINE FROM played JOIN game ON id = GID WHERE GID = ? AND player = ?",
                    game.id, visit.player.id));
}

Reply Page::reply(Visit &visit)
{
    const std::string &me = visit.player.id;
    const Session &session = visit.session;
    m_page.ShowSection("VARIABLES");
    m_page.SetValue("sUserUid", me);
    if (SQLite::Statement counts = visit.query("SELECT * FROM unread WHERE player = ?", me); counts.executeStep())
        fill(m_page, counts);
    SQLite::Statement game
        = visit.query("SELECT id AS iGameId, name FROM game WHERE id = ?", m_game ? m_game : session.game);
    if (game.executeStep()) {
        fill(m_page, game);
        m_page.SetValue("sSubject", visit.say("INVITE_SUBJECT", game.getColumn(1)));
    }
    if (!me.empty() || !session.loginUnknown)
        m_page.ShowSection("LOGIN");
    if (!session.loginToken.empty()) {
        m_page.SetValue("strUserName", visit.player.login);
        m_page.SetValue("strPassword", session.loginToken);
        // Empty without a login, not "0": the companion takes any text for yes.
        m_page.SetValue("blnRememberMe", "1");
    }
    if (!session.notice.empty())
        m_page.SetValueAndShowSection("TEXT", session.notice, "NOTICE");
    visit.session.notice.clear();
    Reply reply;
    reply.body = html();
    return reply;
}

std::string Page::html()
{
    std::string html;
    if (!ctemplate::ExpandTemplate("layout.tpl", ctemplate::STRIP_BLANK_LINES, &m_page, &html))
        throw std::runtime_error("cannot expand a template");
    return html;
}
