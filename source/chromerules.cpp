#include "chromerules.h"

#include "globaldefine.h"

#include <algorithm>
#include <iterator>

namespace {

enum class Test {
    Equals, ///< ignores letter case
    StartsWith,
    StartsWithIgnoringCase,
    Contains,
};

struct UrlTest {
    Test test;
    const char *text;
};

// The mix of tests that heed and tests that ignore letter case is deliberate, as is the service root's part in each.
constexpr UrlTest INFO[] = {{Test::Equals, K_LINK_VANTU}};
constexpr UrlTest QUIT[] = {{Test::Equals, K_LINK_VANTU},
                            {Test::StartsWith, K_URL_START_PREFIX},
                            {Test::Equals, K_LINK_LOGIN},
                            {Test::StartsWith, K_URL_LOGIN_INDEX_PREFIX},
                            {Test::StartsWith, K_URL_LOGIN_DELETED_PREFIX}};
constexpr UrlTest NEW_MESSAGE[] = {{Test::Contains, K_LINK_MESSAGES_INDEX}};
constexpr UrlTest NO_BACK[] = {{Test::Equals, K_LINK_VANTU},   {Test::StartsWith, K_URL_START_PREFIX},
                               {Test::Equals, K_LINK_FRIENDS}, {Test::Equals, K_LINK_MESSAGES_INDEX},
                               {Test::Equals, K_LINK_GAMES},   {Test::Equals, K_LINK_RECOMMEND_EMAIL},
                               {Test::Contains, K_LINK_LOGIN}};
constexpr UrlTest EDIT[] = {{Test::Equals, K_LINK_EDIT_ACCOUNT}};
constexpr UrlTest ADD[] = {{Test::Equals, K_LINK_FRIENDS},
                           {Test::Equals, K_URL_FRIENDS_SLASH},
                           {Test::Contains, K_URL_FRIENDS_DELETED},
                           {Test::Contains, K_URL_FRIENDS_PAGE}};
constexpr UrlTest INTERACT[] = {{Test::StartsWithIgnoringCase, K_URL_PROFILE_PREFIX}};
constexpr UrlTest RECOMMEND[]
    = {{Test::StartsWith, K_URL_GAME_PREFIX}, {Test::StartsWith, K_URL_RECOMMEND_EMAIL_PREFIX}};

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

template <std::size_t Count> bool passesAny(const QString &url, const UrlTest (&rules)[Count])
{
    return std::any_of(std::begin(rules), std::end(rules), [&url](const UrlTest &rule) { return passes(url, rule); });
}

} // namespace

ChromeVisibility chromeFor(const QString &url, VantuState state)
{
    const bool normal = state == Normal;
    ChromeVisibility chrome;
    chrome.tabs = normal;
    chrome.cancelAndSend = !normal;
    chrome.info = normal && passesAny(url, INFO);
    chrome.quit = normal && passesAny(url, QUIT);
    chrome.newMessage = normal && passesAny(url, NEW_MESSAGE);
    chrome.back = normal && !passesAny(url, NO_BACK);
    chrome.edit = passesAny(url, EDIT); // Deliberately whatever the state: it shows over a composer too.
    chrome.add = normal && passesAny(url, ADD);
    chrome.interact = normal && passesAny(url, INTERACT);
    chrome.recommend = normal && passesAny(url, RECOMMEND);
    return chrome;
}
