// SPDX-License-Identifier: MIT
#pragma once

#include "site.h"

#include <ctemplate/template.h>
#include <string>

/// Loads the embedded templates; once, before the first page. Throws std::runtime_error when one does not parse.
void loadTemplates();

/// One page in the making. Text is escaped where a template uses it.
///
/// A template gets the row of a query as it stands: each column is a variable of that name, and a section of that name
/// where it is neither empty nor 0. Columns called DAY and MOMENT are moments in seconds since 1970 and become text;
/// one called EXCERPT is cut to one line.
class Page {
public:
    /// @p templateName is the file of the page's content, @p title what the companion's header shows.
    Page(Language language, const char *templateName, const std::string &title);

    void set(const char *name, const std::string &text);
    void show(const char *section);
    /// Fills the page itself from the first row, if any.
    void row(SQLite::Statement &&rows);
    /// Shows the section @p name once for each row, and the sections HAS_ROWS or EMPTY of the page.
    void list(const char *name, SQLite::Statement &&rows);
    /// Fills the page from that player, whom the companion may write to, rate or take for the chosen recipient.
    void showPlayer(const Visit &visit, const Player &player);
    /// Fills the page from that game, with the trophies of the player who is signed in; the companion may recommend it.
    void showGame(const Visit &visit, const Game &game);

    /// The page with the variables that the companion fetches; the notice of the session is shown and gone.
    Reply reply(Visit &visit);
    /// The page without them.
    std::string html();

private:
    void fill(ctemplate::TemplateDictionary &dictionary, SQLite::Statement &row);

    const Language m_language;
    int m_game = 0;
    ctemplate::TemplateDictionary m_page;
    ctemplate::TemplateDictionary *m_content;
};
