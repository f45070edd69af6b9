// SPDX-License-Identifier: MIT
#include "chromerules.h"

#include "globaldefine.h"

#include <QUrl>

namespace {

enum class Test {
    Equals, ///< ignores letter case
    StartsWith,
    StartsWithIgnoringCase,
    Contains,
};

struct UrlTest {
    Command command;
    Test test;
    const char *text;
};

// The mix of tests that heed and tests that ignore letter case is deliberate, as is the service root's part in each.
// Any test that passes shows its command, or hides it if that is Back, which every other address allows.
constexpr UrlTest urlRules[] = {
    {Command::Info, Test::Equals, K_LINK_VANTU},
    {Command::Quit, Test::Equals, K_LINK_VANTU},
    {Command::Quit, Test::StartsWith, K_URL_START_PREFIX},
    {Command::Quit, Test::Equals, K_LINK_LOGIN},
    {Command::Quit, Test::StartsWith, K_URL_LOGIN_INDEX_PREFIX},
    {Command::Quit, Test::StartsWith, K_URL_LOGIN_DELETED_PREFIX},
    {Command::NewMessage, Test::Contains, K_LINK_MESSAGES_INDEX},
    {Command::Edit, Test::Equals, K_LINK_EDIT_ACCOUNT},
    {Command::Add, Test::Equals, K_LINK_FRIENDS},
    {Command::Add, Test::Equals, K_URL_FRIENDS_SLASH},
    {Command::Add, Test::Contains, K_URL_FRIENDS_DELETED},
    {Command::Add, Test::Contains, K_URL_FRIENDS_PAGE},
    {Command::Interact, Test::StartsWithIgnoringCase, K_URL_PROFILE_PREFIX},
    {Command::Recommend, Test::StartsWith, K_URL_GAME_PREFIX},
    {Command::Recommend, Test::StartsWith, K_URL_RECOMMEND_EMAIL_PREFIX},
    {Command::Back, Test::Equals, K_LINK_VANTU},
    {Command::Back, Test::StartsWith, K_URL_START_PREFIX},
    {Command::Back, Test::Equals, K_LINK_FRIENDS},
    {Command::Back, Test::Equals, K_LINK_MESSAGES_INDEX},
    {Command::Back, Test::Equals, K_LINK_GAMES},
    {Command::Back, Test::Equals, K_LINK_RECOMMEND_EMAIL},
    {Command::Back, Test::Contains, K_LINK_LOGIN},
};

bool passes(const QString &url, const UrlTest &rule)
{
    const QLatin1String text(rule.text);
    switch (rule.test) {
    case Test::Equals:
        return url.compare(text, Qt::CaseInsensitive) == 0;
    case Test::StartsWith:
        return url.startsWith(text);
    case Test::StartsWithIgnoringCase:
        return url.startsWith(text, Qt::CaseInsensitive);
    case Test::Contains:
        return url.contains(text);
    }
    return false;
}

} // namespace

ChromeVisibility chromeFor(const QString &url, VantuState state)
{
    ChromeVisibility chrome;
    const auto set
        = [&chrome](Command command, bool visible) { chrome.commands.set(static_cast<std::size_t>(command), visible); };
    const bool normal = state == Normal;
    chrome.tabs = normal;
    set(Command::Back, normal);
    set(Command::Cancel, !normal);
    set(Command::Send, !normal);
    for (const UrlTest &rule : urlRules) {
        // Edit is shown deliberately whatever the state: over a composer too.
        if ((normal || rule.command == Command::Edit) && passes(url, rule))
            set(rule.command, rule.command != Command::Back);
    }
    return chrome;
}

std::optional<Tab> sectionOf(const QString &url)
{
    static constexpr struct {
        const char *segment;
        Tab tab;
    } sectionPrefixes[] = {{"", Tab::Home}, {"messages", Tab::Inbox}, {"friends", Tab::Friends}, {"games", Tab::Games}};

    const QLatin1String root(K_SERVICE_ROOT);
    const QString path = url.startsWith(root) ? QUrl(url.mid(root.size())).path() : QString();
    if (path.section(QLatin1Char('/'), 1, 1) != QLatin1String("vantu"))
        return std::nullopt;
    const QString segment = path.section(QLatin1Char('/'), 2, 2);
    for (const auto &section : sectionPrefixes) {
        if (segment == QLatin1String(section.segment))
            return section.tab;
    }
    return std::nullopt;
}
