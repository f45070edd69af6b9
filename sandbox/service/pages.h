// SPDX-License-Identifier: MIT
#pragma once

#include "database.h"
#include "sessions.h"

#include <ctemplate/template.h>
#include <string>

/// Loads the embedded templates; once, before the first page. Throws std::runtime_error when one does not parse.
void loadTemplates();

/// The values that every page defines as variables of its scripts, for the companion to fetch.
struct PageVariables {
    std::string userUid;
    Unread unread;
    std::string gameId;
    std::string subject;
    bool isFriend = false;
    bool showAdd = false;
    bool showEvaluate = false;
    std::string userId;
    std::string userName;
    std::string title;
    std::string loginName;
    std::string loginToken;
    bool rememberMe = false;
};

/// Part of a page that a template shows zero or more times; text set here is escaped where the template uses it.
class Section {
public:
    explicit Section(ctemplate::TemplateDictionary *dictionary);

    void set(const char *name, const std::string &text);
    void set(const char *name, int number);
    /// Adds one more showing of the section of that name.
    Section add(const char *name);
    /// Shows the section of that name when @p condition holds.
    void showIf(bool condition, const char *name);

    /// UID, NAME, INITIALS and HUE (a style of the avatar), MOTTO and CITY.
    void setPlayer(const Player &player);
    /// GID, GAME, TAGLINE, WON, TROPHIES, PERCENT, and the section FRESH with COUNT.
    void setGame(const Game &game);

private:
    ctemplate::TemplateDictionary *m_dictionary;
};

/// One page in the making.
class Page {
public:
    /// @p templateName is the file of the page's content.
    Page(const char *templateName, Language language);

    PageVariables variables;
    Section &content() { return m_content; }
    /// A text shown once on top of the page; none when empty.
    void setNotice(const std::string &text);
    std::string html();

private:
    ctemplate::TemplateDictionary m_dictionary;
    Section m_content;
};
