// SPDX-License-Identifier: MIT
#include "pages.h"

#include "embedded.h"

#include <stdexcept>

namespace {

constexpr char layout[] = "layout.tpl";

// First letters of the first and the last word, whole characters of UTF-8.
std::string initials(const std::string &name)
{
    const auto letterAt = [&name](std::size_t start) {
        std::size_t end = start + 1;
        while (end < name.size() && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80)
            ++end;
        return name.substr(start, end - start);
    };
    if (name.empty())
        return "?";
    const std::size_t space = name.rfind(' ');
    const bool twoWords = space != std::string::npos && space + 1 < name.size();
    return twoWords ? letterAt(0) + letterAt(space + 1) : letterAt(0);
}

int hue(const std::string &id)
{
    unsigned sum = 0;
    for (const char c : id)
        sum = sum * 31 + static_cast<unsigned char>(c);
    return static_cast<int>(sum % 8);
}

ctemplate::TemplateDictionary *included(ctemplate::TemplateDictionary &page, const char *name, const char *file)
{
    ctemplate::TemplateDictionary *dictionary = page.AddIncludeDictionary(name);
    dictionary->SetFilename(file);
    return dictionary;
}

} // namespace

void loadTemplates()
{
    for (const EmbeddedTemplate &each : embeddedTemplates) {
        if (!ctemplate::StringToTemplateCache(each.name, each.text, ctemplate::STRIP_BLANK_LINES))
            throw std::runtime_error(std::string("broken template ") + each.name);
    }
}

Section::Section(ctemplate::TemplateDictionary *dictionary)
    : m_dictionary(dictionary)
{
}

void Section::set(const char *name, const std::string &text)
{
    m_dictionary->SetValue(name, text);
}

void Section::set(const char *name, int number)
{
    m_dictionary->SetIntValue(name, number);
}

Section Section::add(const char *name)
{
    return Section(m_dictionary->AddSectionDictionary(name));
}

void Section::showIf(bool condition, const char *name)
{
    if (condition)
        m_dictionary->ShowSection(name);
}

void Section::setPlayer(const Player &player)
{
    set("UID", player.id);
    set("NAME", player.name);
    set("INITIALS", initials(player.name));
    set("HUE", hue(player.id));
    set("MOTTO", player.motto);
    set("CITY", player.city);
}

void Section::setGame(const Game &game)
{
    set("GID", game.id);
    set("GAME", game.name);
    set("TAGLINE", game.tagline);
    set("WON", game.won);
    set("TROPHIES", game.trophies);
    set("PERCENT", game.trophies > 0 ? game.won * 100 / game.trophies : 0);
    if (game.fresh > 0)
        add("FRESH").set("COUNT", game.fresh);
}

Page::Page(const char *templateName, Language language)
    : m_dictionary("page")
    , m_content(included(m_dictionary, "CONTENT", templateName))
{
    for (const Phrase &each : phrases)
        m_dictionary.SetTemplateGlobalValue(each.key, each.texts[static_cast<int>(language)]);
    m_dictionary.SetTemplateGlobalValue("LANG", htmlCode(language));
    included(m_dictionary, "STYLE", "style.css");
    included(m_dictionary, "SYMBOLS", "symbols.svg");
}

void Page::setNotice(const std::string &text)
{
    if (!text.empty())
        m_dictionary.SetValueAndShowSection("TEXT", text, "NOTICE");
}

std::string Page::html()
{
    m_dictionary.SetValue("sUserUid", variables.userUid);
    m_dictionary.SetIntValue("iInboxMessages", variables.unread.messages);
    m_dictionary.SetIntValue("iGamesMessages", variables.unread.games);
    m_dictionary.SetIntValue("iFriendsMessages", variables.unread.friends);
    m_dictionary.SetValue("iGameId", variables.gameId);
    m_dictionary.SetValue("sSubject", variables.subject);
    m_dictionary.SetIntValue("bIsFriend", variables.isFriend);
    m_dictionary.SetIntValue("bShowAdd", variables.showAdd);
    m_dictionary.SetIntValue("bShowEvaluate", variables.showEvaluate);
    m_dictionary.SetValue("iUserId", variables.userId);
    m_dictionary.SetValue("sUserName", variables.userName);
    m_dictionary.SetValue("sTitle", variables.title);
    m_dictionary.SetValue("strUserName", variables.loginName);
    m_dictionary.SetValue("strPassword", variables.loginToken);
    // Empty, not "0": the companion takes any text for yes.
    m_dictionary.SetValue("blnRememberMe", variables.rememberMe ? "1" : "");
    std::string html;
    if (!ctemplate::ExpandTemplate(layout, ctemplate::STRIP_BLANK_LINES, &m_dictionary, &html))
        throw std::runtime_error("cannot expand a template");
    return html;
}
