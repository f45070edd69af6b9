// SPDX-License-Identifier: MIT
#include "chromerules.h"
#include "commandline.h"
#include "globaldefine.h"
#include "interactrules.h"
#include "navigationrules.h"
#include "servicerequests.h"
#include "testing.h"

#include <climits>

namespace {

QString url(const QString &path)
{
    return QLatin1String(K_SERVICE_ROOT) + path;
}

/// What @p chrome shows, by name.
QString names(const ChromeVisibility &chrome)
{
    QStringList shown;
    if (chrome.tabs)
        shown << "tabs"_s;
    const std::pair<Command, const char *> all[]
        = {{Command::Cancel, "cancel"},      {Command::Send, "send"},
           {Command::Info, "info"},          {Command::Quit, "quit"},
           {Command::NewMessage, "message"}, {Command::Back, "back"},
           {Command::Edit, "edit"},          {Command::Add, "add"},
           {Command::Interact, "interact"},  {Command::Recommend, "recommend"}};
    for (const auto &[command, name] : all) {
        if (chrome.shows(command))
            shown << QLatin1String(name);
    }
    return shown.join(QLatin1Char(' '));
}

} // namespace

/// What the companion decides, as tables of plain values, and its texts.
class RulesTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { g_languageIdx = 0; }

    void numbersOfTheCommandLine()
    {
        for (const auto &[text, number, language] : {std::tuple("12", 12, 0),
                                                     {"4", 4, 4}, // the last language
                                                     {"5", 5, 0},
                                                     {" \t-7up", -7, 0},
                                                     {"abc", 0, 0},
                                                     {"", 0, 0},
                                                     {"4294967303", INT_MAX, 0},
                                                     {"8589934594", INT_MAX, 0}, // 2 in the lower half
                                                     {"-99999999999999999999", INT_MIN, 0}})
            QVERIFY2(toInt(text) == number && toLanguage(text) == language, text);
    }

    void masksOfTheCommandLine()
    {
        constexpr quint64 all = ~quint64(0);
        constexpr quint64 highest = quint64(1) << 63;
        for (const auto &[text, mask] : {std::pair("4294967297", Q_UINT64_C(4294967297)),
                                         {"18446744073709551615", all},
                                         {" -1", all},
                                         {"-9223372036854775808", highest},
                                         {"18446744073709551616", all}, // too large
                                         {"-9223372036854775809", highest}, // too small
                                         {"many", 0}})
            QVERIFY2(toMask(text) == mask, text);
    }

    void commandsOfEachPage()
    {
        for (const auto &[expected, paths] :
             {std::pair("tabs info quit", "/vantu/ /VANTU/"),
              {"tabs quit",
               "/vantu/?lg=EN&country=FR /vantu/login /vantu/login/index /vantu/login/index/again "
               "/vantu/login?iDelete=3"},
              {"tabs quit back", "/vantu/LOGIN"},
              {"tabs", "/vantu/login?other=3 /vantu/login/forgotten /vantu/messages/INDEX /vantu/games"},
              {"tabs back",
               "/vantu /VANTU/?lg=EN /vantu/messages/show/id/4 /vantu/friends/add-friends/ "
               "/vantu/friends/?select=yes /vantu/GAMES/show-game/gid/7 /vantu/games/trophies/gid/7 "
               "/vantu/account/edit /vantu/info/"},
              {"tabs message", "/vantu/messages/index"},
              {"tabs message back", "/vantu/messages/index/page/2"},
              {"tabs add", "/vantu/friends /vantu/FRIENDS"},
              {"tabs back add", "/vantu/friends/ /vantu/friends?iDelete=p7 /vantu/friends/index/page/2"},
              {"tabs recommend", "/vantu/games/recommend-via-mail/id/"},
              {"tabs back recommend",
               "/vantu/games/show-game/gid/7 /vantu/games/recommend-via-mail/id "
               "/vantu/games/recommend-via-mail/id/7"},
              {"tabs back edit", "/vantu/account /vantu/Account"},
              {"tabs back interact", "/vantu/account/index/uid/p7 /VANTU/Account/index/uid/p7"}}) {
            for (const QByteArray &path : QByteArray(paths).split(' ')) {
                const QString shown = names(chromeFor(url(QLatin1String(path)), Normal));
                QVERIFY2(shown == QLatin1String(expected), qPrintable(QLatin1String(path) + ": "_s + shown));
            }
        }
    }

    void composersShowCancelAndSend()
    {
        for (const VantuState state : {SendMessageState, SendEmailState}) {
            for (const char *link : {K_LINK_VANTU, K_LINK_FRIENDS, K_LINK_MESSAGES_INDEX, K_URL_PROFILE_PREFIX})
                QCOMPARE(names(chromeFor(QLatin1String(link), state)), "cancel send"_s);
            QCOMPARE(names(chromeFor(QLatin1String(K_LINK_EDIT_ACCOUNT), state)), "cancel send edit"_s);
        }
    }

    void anotherHostGetsBackOnly()
    {
        QCOMPARE(names(chromeFor("http://elsewhere.test/vantu/"_s, Normal)), "tabs back"_s);
        // "Contains" takes in the root wherever it stands, and login anywhere hides back.
        QCOMPARE(names(chromeFor("http://elsewhere.test/?from="_s + QLatin1String(K_LINK_LOGIN), Normal)), "tabs"_s);
    }

    void sectionIsTheFirstPartOfThePath()
    {
        for (const auto &[section, paths] :
             {std::pair(0, "/vantu /vantu/ /vantu/?lg=EN&from=/vantu/games"),
              {1, "/vantu/messages/index/page/2"},
              {2, "/vantu/friends?iDelete=1 /vantu/friends/add-friends/"},
              {3, "/vantu/games#top"},
              {-1, " /vantu/login /vantu/account/index/uid/games /vantu/gamesome /vantunova/games"}}) { // none
            for (const QByteArray &path : QByteArray(paths).split(' ')) {
                const std::optional<Tab> found = sectionOf(url(QLatin1String(path)));
                QVERIFY2((found ? static_cast<int>(*found) : -1) == section, path);
            }
        }
        QVERIFY(!sectionOf("http://elsewhere.test/vantu/games"_s));
    }

    void backLeadsUpOneLevel()
    {
        for (const auto &[from, target] : {std::pair("/vantu/games/show-game/gid/7", "/vantu/games"),
                                           {"/vantu/games/show-game/gid/7/fb_send/yes", "/vantu/games"},
                                           {"/vantu/games/show-game/gid", "/vantu/games"},
                                           {"/vantu/games/show-game/7", ""},
                                           {"/vantu/games/trophies/gid/5", "/vantu/games/show-game/gid/42"},
                                           {"/vantu/games/Trophies/gid/5", ""},
                                           {"/vantu/games/signal-twitter-send/gid/5", "/vantu/games/trophies/gid/42"},
                                           {"/vantu/games/compare/uid/p7", ""},
                                           {"/vantu/friends", ""}}) {
            const QString to = backTarget(url(QLatin1String(from)), "42"_s);
            QCOMPARE(to, *target ? url(QLatin1String(target)) : QString());
        }
    }

    void oneLookRulesOutErrorSentences()
    {
        // Capitals, accents, hyphens that are not seen, letters of double width.
        for (const char *text :
             {"AN ERROR HAS OCCURRED", "An \u00e9rr\u00f8r has occurred", "ein Feh\u00ad\u200bler ist", "\uff25rror"})
            QVERIFY2(mayHoldErrorSentence(QString::fromUtf8(text)), text);
        QVERIFY(!mayHoldErrorSentence("Ana has er, ror and f\u00e9hle; r.\nOh\u00e9 !"_s));
        QVERIFY(!mayHoldErrorSentence({}));
    }

    void sharingSitesAreKnownByAWord()
    {
        QVERIFY(isTwitterUrl("https://Twitter.test/share?x=1"_s));
        QVERIFY(!isTwitterUrl("http://vantu.test/vantu/"_s));
        QVERIFY(isFacebookUrl("http://m.FaceBook.test/"_s));
        QVERIFY(!isFacebookUrl(QLatin1String(K_LINK_RECOMMEND_FACEBOOK)));
    }

    void theServiceIsKnownByItsRoot()
    {
        for (const char *own : {"", "/", ":80/vantu/", "/vantu/?pass=x#y"})
            QVERIFY2(isServiceUrl(QUrl(url(QLatin1String(own)))), own);
        for (const char *other : {"https://vantu.test/", "http://vantu.test:8080/", "http://vantu.test.other.test/",
                                  "http://www.vantu.test/", "http://vantu.test@other.test/", "data:text/html,x",
                                  "about:blank", "blob:http://vantu.test/1", "/vantu/", ""})
            QVERIFY2(!isServiceUrl(QUrl(QLatin1String(other))), other);
    }

    void menuRowsAreKnownByTheirTexts()
    {
        for (g_languageIdx = 0; g_languageIdx < K_LANGUAGE_COUNT; ++g_languageIdx) {
            QCOMPARE(interactActionFor(localized(TXT_SEND_MESSAGE)), InteractAction::SendMessage);
            QCOMPARE(interactActionFor(localized(TXT_DELETE_FRIEND)), InteractAction::DeleteFriend);
            QCOMPARE(interactActionFor(localized(TXT_ADD_FRIEND)), InteractAction::AddFriend);
            QCOMPARE(interactActionFor(localized(TXT_RATE)), InteractAction::Rate);
            QCOMPARE(interactActionFor(localized(TXT_RATE_UP)), InteractAction::RateUp);
            QCOMPARE(interactActionFor(localized(TXT_COMPARE_GAMES)), InteractAction::Compare);
            // The German thumbs down holds the thumbs up.
            QCOMPARE(interactActionFor(localized(TXT_RATE_DOWN)),
                     g_languageIdx == 2 ? InteractAction::RateUp : InteractAction::RateDown);
        }
        g_languageIdx = 0;
        QCOMPARE(interactActionFor("Wave"_s), InteractAction::None);
        const QString message = "Send Message"_s;
        const QString compare = "Compare Games"_s;
        QCOMPARE(interactRows(true, false), QStringList({message, "Delete Friend"_s, compare}));
        QCOMPARE(interactRows(true, true), QStringList({message, "Delete Friend"_s, "Rate"_s, compare}));
        QCOMPARE(interactRows(false, false), QStringList({message, "Add as friend"_s, compare}));
    }

    void startUrlCarriesEverythingAsItIs()
    {
        StartValues values{"DE"_s, "AT"_s, "Slate 3"_s, "12.9"_s, "0a1b"_s, -3, "alice"_s, "pw1"_s, true};
        QCOMPARE(startUrl(values),
                 url("/vantu/?lg=DE&country=AT&d=Slate 3&f=12.9&udid=0a1b&KVB=-3&username=alice&pass=pw1"
                     "&remember_me=1&type=MEEGO&width=480&height=854&fb=1"_s));
        values.username = "a&b#c+d"_s;
        QVERIFY(startUrl(values).contains("&username=a&b#c+d&pass="_s));
        // A later placeholder inside a value is filled in its turn; an earlier one stays.
        values.username = "PASSWORD LANG"_s;
        QVERIFY(startUrl(values).contains("&username=pw1 LANG&pass=pw1&"_s));
    }

    void formsCarryEverythingUnchanged()
    {
        QCOMPARE(invitationBody({"a"_s, "x+y@z.test"_s}),
                 "name[]=a&email[]=a&name[]=x%2By%40z.test&email[]=x%2By%40z.test");
        QCOMPARE(trophyBody(0), QByteArray(""));
        QCOMPARE(trophyBody(quint64(1) << 63 | 33), QByteArray("trophy_id[]=0&trophy_id[]=5&trophy_id[]=63"));
        QCOMPARE(messageBody({}, "a&b=c;d+%41 \n€😀"_s),
                 QByteArray("message=a%26b%3Dc%3Bd%2B%2541%20%0A%E2%82%AC%F0%9F%98%80"));
    }

    void accentsOfTheTextsAreLatin1()
    {
        g_languageIdx = 2;
        QCOMPARE(localized(TXT_NO_RECIEPIENTS), "Wähle bitte mindestens einen Empfänger."_s);
        g_languageIdx = 4;
        QCOMPARE(localized(TXT_ADD_FRIEND), "Añadir como amigo"_s);
        const QByteArray french(TXT_SEND_TO.rows[1], sizeof TXT_SEND_TO.rows[1]);
        QCOMPARE(french, QByteArray("\xC0: \0\0\0\0\0", 8));
    }
};

QTEST_APPLESS_MAIN(RulesTest)
#include "tst_rules.moc"
