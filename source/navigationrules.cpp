// SPDX-License-Identifier: MIT
#include "navigationrules.h"

#include "globaldefine.h"

#include <QUrl>

#include <array>

const char *const errorSentences[errorSentenceCount] = {
    u8"An error has occurred inside the application", u8"Une erreur est survenue dans l'application",
    u8"In der Anwendung ist ein Fehler aufgetreten",  u8"Ha ocurrido un error en la aplicación",
    u8"Si è verificato un errore nell'applicazione",
};

const char *const searchedTextScript = "(function () {"
                                       "    if (document.querySelector('iframe, frame, object, embed'))"
                                       "        return null;"
                                       "    var text = document.documentElement.innerText;"
                                       "    var fields = document.querySelectorAll('input, textarea');"
                                       "    for (var i = 0; i < fields.length; ++i)"
                                       "        text += '\\n' + fields[i].value;"
                                       "    return text;"
                                       "})()";

// In a script the "javascript:" in front reads as a statement label.
const char *const bridgeScripts[bridgeScriptCount] = {
    "javascript:window.VANTU.getUserID(sUserUid)",
    "javascript:window.VANTU.getInboxMessages(iInboxMessages)",
    "javascript:window.VANTU.getGamesMessages(iGamesMessages)",
    "javascript:window.VANTU.getFriendsMessages(iFriendsMessages)",
    "javascript:window.VANTU.getGameId(iGameId)",
    "javascript:window.VANTU.getSubject(sSubject)",
    "javascript:window.VANTU.checkIsFriend(bIsFriend)",
    "javascript:window.VANTU.showAddFriendOption(bShowAdd)",
    "javascript:window.VANTU.showRateOption(bShowEvaluate)",
    "javascript:window.VANTU.getCurentUserUid(iUserId)",
    "javascript:window.VANTU.getCurentUserName(sUserName)",
    "javascript:window.VANTU.showTitle(sTitle)",
    "javascript:window.VANTU.getUserName(strUserName)",
    "javascript:window.VANTU.getPassword(strPassword)",
    "javascript:window.VANTU.getAutoLogin(blnRememberMe)",
};

bool isSameOrigin(const QUrl &one, const QUrl &other)
{
    const auto port = [](const QUrl &url) { return url.port(url.scheme() == QLatin1String("https") ? 443 : 80); };
    return one.scheme() == other.scheme() && one.host() == other.host() && port(one) == port(other);
}

namespace {

/// Whether @p word (lower case, ASCII) may stand in @p text for a search that ignores case. A letter of it may stand
/// there in a guise that only the search sees through, and between two letters there may be what the search skips:
/// neither is printable ASCII. By the bitap algorithm.
bool mayHoldWord(const QString &text, const char *word)
{
    std::array<unsigned, 128> placesOf{}; // bit i: the letter is the word's i-th
    int length = 0;
    for (; word[length]; ++length) {
        const auto letter = static_cast<unsigned char>(word[length]);
        placesOf[letter] |= 1U << length;
        placesOf[letter - ('a' - 'A')] |= 1U << length;
    }
    unsigned found = 1; // bit i: the word's first i letters end here
    for (const QChar character : text) {
        const ushort code = character.unicode();
        if (code > '~')
            found |= found << 1;
        else if (code >= ' ')
            found = (found & placesOf[code]) << 1 | 1;
        if (found >> length & 1)
            return true;
    }
    return false;
}

} // namespace

bool isServiceUrl(const QUrl &url)
{
    return isSameOrigin(url, QUrl(QLatin1String(K_SERVICE_ROOT)));
}

bool mayHoldErrorSentence(const QString &text)
{
    // Each sentence holds one of these words.
    return mayHoldWord(text, "error") || mayHoldWord(text, "erreur") || mayHoldWord(text, "fehler");
}

bool isRefused(const QUrl &url)
{
    const bool isServiceEncrypted = QUrl(QLatin1String(K_SERVICE_ROOT)).scheme() == QLatin1String("https");
    return isServiceEncrypted && (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("ftp"));
}

bool isTwitterUrl(const QString &url)
{
    return url.contains(QLatin1String("twitter"), Qt::CaseInsensitive);
}

bool isFacebookUrl(const QString &url)
{
    return url.contains(QLatin1String("facebook"), Qt::CaseInsensitive);
}

bool isFriendsListUrl(const QString &url)
{
    return url == QLatin1String(K_LINK_FRIENDS) || url.startsWith(QLatin1String(K_URL_FRIENDS_SLASH))
        || url.startsWith(QLatin1String(K_LINK_FRIENDS) + QLatin1Char('?'));
}

QString backTarget(const QString &url, const QString &game)
{
    const QLatin1String games(K_LINK_GAMES);
    const QLatin1String trophies(K_URL_TROPHIES_PREFIX);
    if (url.startsWith(games + QLatin1String("/show-game/gid")))
        return games;
    if (url.startsWith(trophies))
        return games + QLatin1String("/show-game/gid/") + game;
    if (url.startsWith(QLatin1String(K_URL_TWITTER_SENT_PREFIX)))
        return trophies + game;
    return QString();
}
