// SPDX-License-Identifier: MIT
#include "servicetest.h"

#include <QRegularExpression>

namespace {

const char *const variableNames[]
    = {"sUserUid",  "iInboxMessages", "iGamesMessages", "iFriendsMessages", "iGameId",
       "sSubject",  "bIsFriend",      "bShowAdd",       "bShowEvaluate",    "iUserId",
       "sUserName", "sTitle",         "strUserName",    "strPassword",      "blnRememberMe"};

// The texts of a page that do not stand out from what is behind them: 4.5 to 1, or 3 to 1 for large ones and badges.
const L1 faintTexts(R"((function () {
    function luminance(color) {
        return color.match(/\d+/g).slice(0, 3).map(function (part) {
            return part <= 10 ? part / 3295 : Math.pow((part / 255 + 0.055) / 1.055, 2.4);
        }).reduce(function (sum, part, i) { return sum + part * [0.2126, 0.7152, 0.0722][i]; }, 0.05);
    }
    function behind(element) {
        var style = getComputedStyle(element);
        var stops = style.backgroundImage.match(/rgb\([^)]*\)/g);
        return stops || (/^rgb\(/.test(style.backgroundColor) ? [style.backgroundColor] : behind(element.parentNode));
    }
    var found = [], node, nodes = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT, null, false);
    while ((node = nodes.nextNode())) {
        var element = node.parentNode, style = getComputedStyle(element), size = parseFloat(style.fontSize);
        var isLarge = size >= 24 || size >= 18.5 && /bold|[7-9]00/.test(style.fontWeight) || element.className == 'badge';
        if (!node.data.trim() || element.tagName == 'SCRIPT')
            continue;
        behind(element).forEach(function (color) {
            var one = luminance(style.color), other = luminance(color);
            if (Math.max(one, other) / Math.min(one, other) < (isLarge ? 3 : 4.5))
                found.push(node.data + ' ' + style.color + ' on ' + color);
        });
    }
    return found.join('; ');
})())");

// What a page says, with "WHEN" for days and times, which pass.
QString words(const Visitor &visitor)
{
    static const QRegularExpression moment(L1("(\\d\\d [A-Z][a-z]{2}, )?\\d\\d:\\d\\d|\\d\\d [A-Z][a-z]{2}(?=\\W|$)"));
    return visitor.text().simplified().replace(moment, L1("WHEN"));
}

} // namespace

/// The pages as a player meets them in the companion's web engine, and the variables that the companion fetches.
class ServicePages : public ServiceTest {
    Q_OBJECT

private slots:
    void startUrl_data()
    {
        QTest::addColumn<QString>("login");
        QTest::addColumn<QString>("password");
        QTest::addColumn<QString>("remember");
        QTest::addColumn<QString>("player");

        const auto row = [](const char *login, const char *password, const char *remember, const char *player) {
            QTest::addRow("%s %s %s", login, password, remember) << login << password << remember << player;
        };
        row("", "", "0", "");
        row("luca", "luca123", "1", "u102");
        row("LUCA", "luca123", "1", "u102");
        row("luca", "luca123", "0", "");
        row("luca", "emma123", "1", "");
        row("luca", "", "1", "");
        row("luca' or 1=1 --", "luca123", "1", "");
    }
    void startUrl()
    {
        QFETCH(QString, login);
        QFETCH(QString, password);
        QFETCH(QString, remember);
        QFETCH(QString, player);
        Visitor visitor(m_service->root());
        QVERIFY(visitor.start(L1("DE"), login, password, remember));
        // The page stands at the start URL itself: nothing there may lead back.
        QVERIFY(visitor.path().startsWith(L1("/vantu/?lg=DE")));
        QCOMPARE(visitor.variable(L1("sUserUid")), player);
        QCOMPARE(visitor.variable(L1("sTitle")), player.isEmpty() ? L1("Anmelden") : L1("Home"));
        QCOMPARE(visitor.variable(L1("strUserName")), player.isEmpty() ? L1("") : L1("luca"));
        QCOMPARE(visitor.variable(L1("blnRememberMe")), player.isEmpty() ? L1("") : L1("1"));
        QCOMPARE(visitor.variable(L1("iGameId")), L1("7"));
        QVERIFY(visitor.open(L1("/vantu/friends")));
        QCOMPARE(visitor.path(), player.isEmpty() ? L1("/vantu/login") : L1("/vantu/friends"));
        QCOMPARE(visitor.variable(L1("iGameId")), L1("7"));
    }

    void signInForm()
    {
        Visitor visitor(m_service->root());
        visitor.start(L1("IT"));
        QVERIFY(visitor.submit(L1("/vantu/login"), "username=luca&password=wrong&remember_me=1"));
        QCOMPARE(visitor.path(), L1("/vantu/login"));
        QVERIFY(visitor.holds(L1("Nome utente o password errati.")));
        QCOMPARE(visitor.evaluate(L1("document.getElementById('username').value")).toString(), L1("luca"));
        QVERIFY(visitor.submit(L1("/vantu/login"), "username=luca&password=luca123&remember_me=0"));
        QCOMPARE(visitor.path(), L1("/vantu/"));
        QVERIFY(!visitor.holds(L1("errati")));
        QCOMPARE(visitor.variable(L1("sUserUid")), L1("u102"));
        QCOMPARE(visitor.variable(L1("strPassword")), L1(""));
        QCOMPARE(visitor.variable(L1("blnRememberMe")), L1(""));
    }

    void storedLoginIsATokenThatSigningOutEnds()
    {
        const QString token = m_emma->variable(L1("strPassword"));
        QCOMPARE(token.size(), 64);
        Visitor again(m_service->root());
        QVERIFY(again.start(L1("EN"), L1("emma"), token));
        QCOMPARE(again.variable(L1("strPassword")), token);
        QVERIFY(!again.start(L1("EN"), L1("luca"), token) || again.variable(L1("sUserUid")) == L1("u101"));
        QVERIFY(again.open(L1("/vantu/logout")));
        QVERIFY(again.path().startsWith(L1("/vantu/login?iDelete=")));
        QVERIFY(again.holds(L1("You are signed out.")));
        QCOMPARE(again.variable(L1("strPassword")), L1(""));
        QVERIFY(again.start(L1("EN"), L1("emma"), token));
        QCOMPARE(again.variable(L1("sUserUid")), L1(""));
    }

    void everyPageInEveryLanguage_data()
    {
        QTest::addColumn<QString>("error");
        QTest::newRow("EN") << "An error has occurred inside the application";
        QTest::newRow("FR") << "Une erreur est survenue dans l'application";
        QTest::newRow("DE") << "In der Anwendung ist ein Fehler aufgetreten";
        QTest::newRow("IT") << "Si è verificato un errore nell'applicazione";
        QTest::newRow("SP") << "Ha ocurrido un error en la aplicación";
    }
    void everyPageInEveryLanguage()
    {
        QFETCH(QString, error);
        m_emma->start(L1(QTest::currentDataTag()));
        const QByteArray paths = "/vantu/ /vantu/login /vantu/login/index /vantu/login?iDelete=1 /vantu/messages/index "
                                 "/vantu/messages/index/uid/u103 /vantu/messages/sent/ /vantu/friends /vantu/friends/ "
                                 "/vantu/friends/?select=yes /vantu/friends/index/page/2 /vantu/friends/add-friends/ "
                                 "/vantu/friends/show-invite-email /vantu/account "
                                 "/vantu/account/edit /vantu/account/index/uid/u101 /vantu/account/index/uid/u112 "
                                 "/vantu/games /vantu/games/show-game/gid/12 /vantu/games/trophies/gid/7 "
                                 "/vantu/games/compare/uid/u102 /vantu/games/recommend-via-mail/id/ "
                                 "/vantu/games/recommend-via-mail/id/7 /vantu/games/recommend-via-twitter/id/7 "
                                 "/vantu/games/signal-twitter-send/gid/7 /vantu/games/show-game/gid/7/fb_send/yes "
                                 "/vantu/info/ /vantu/error /vantu/slow?ms=0 /vantu/none";
        for (const QByteArray &path : paths.split(' ')) {
            QVERIFY2(m_emma->open(L1(path)), path);
            QCOMPARE(m_emma->holds(error), path == "/vantu/error");
            for (const char *name : variableNames)
                QVERIFY2(!m_emma->variable(L1(name)).isNull(), (path + ": " + name).constData());
            const QString title = m_emma->variable(L1("sTitle"));
            QVERIFY2(!title.isEmpty() && title.size() <= 18, qPrintable(title));
            QCOMPARE(m_emma->evaluate(L1("document.title")).toString(), title);
            // Only a profile may name a player: any page that does so can become a recipient.
            QCOMPARE(!m_emma->variable(L1("iUserId")).isEmpty(), path.contains("/account/index/"));
            QVERIFY2(!m_emma->text().contains(L1("{{")), path);
            QVERIFY2(m_emma->evaluate(L1("document.body.scrollWidth <= 320")).toBool(), path);
            QCOMPARE(m_emma->evaluate(faintTexts).toString(), QString());
        }
    }

    void everyPageSaysWhatIsSo_data()
    {
        QTest::addColumn<QString>("said");
        QTest::newRow("/vantu/")
            << "EL Hello, Emma! One more level, then bed. Unread messages 3 New friends 1 NOW PLAYING Torvane 1 / 6 "
               "trophies NEWS FROM FRIENDS JM Jonas Müller Last stop · Night Tram WHEN YT Yuki Tanaka Against the wind "
               "· Kite Harbour WHEN LB Luca Bianchi Bell ringer · Torvane WHEN YT Yuki Tanaka Night diver · Torvane "
               "WHEN YT Yuki Tanaka First steps · Torvane WHEN OH Oliver Hughes Above the clouds · Kite Harbour WHEN";
        QTest::newRow("/vantu/messages/index")
            << "YT Yuki Tanaka Hajimemashite! Nice to meet you, Emma. Your high score in Kite Harbour is… WHEN 1 LB "
               "Luca Bianchi Who is in for a round of Pebble Kings tonight? Bianchi vs. the rest of the… WHEN 1 CR "
               "Carmen Ruiz ¡Enhorabuena por el trofeo! ¿Me enseñas el truco? WHEN 1 OH Oliver Hughes You: Of course. "
               "This time I will win :-) WHEN JM Jonas Müller Bin dabei! Ich bringe Limonade mit. WHEN ML Marie "
               "Lefèvre On joue tous ensemble samedi soir ? J'apporte les crêpes. WHEN Sent messages";
        QTest::newRow("/vantu/messages/index/uid/u102")
            << "LB Luca Bianchi Chi si ferma è perduto. Who is in for a round of Pebble Kings tonight? Bianchi vs. the "
               "rest of the world & his dog. WHEN Thank you, I would never have looked there. WHEN Yes! Behind the "
               "bell tower, you have to dive twice. WHEN Ciao Luca! Have you found the second key in Torvane yet? WHEN";
        QTest::newRow("/vantu/messages/sent/")
            << "OH To: Oliver Hughes Of course. This time I will win :-) WHEN LB To: Luca Bianchi Thank you, I would "
               "never have looked there. WHEN LB To: Luca Bianchi Ciao Luca! Have you found the second key in Torvane "
               "yet? WHEN";
        QTest::newRow("/vantu/friends")
            << "CR Carmen Ruiz ¿Otra partida? JM Jonas Müller Straßenbahnfahrer aus Überzeugung LB Luca Bianchi Chi si "
               "ferma è perduto. ML Marie Lefèvre Jamais sans mon café. OH Oliver Hughes Slow and steady YT Yuki "
               "Tanaka Mō ikkai! new";
        QTest::newRow("/vantu/friends/add-friends/")
            << "Search PERHAPS YOU KNOW ND Noah van Dijk Utrecht Add AO Amara Okafor Lagos Add IC Inês Carvalho Porto "
               "Add MK Mateusz Kowalski Łódź Add SP Sofia Papadaki Θεσσαλονίκη Add Invitations";
        QTest::newRow("/vantu/friends/show-invite-email") << "You have not invited anybody yet.";
        QTest::newRow("/vantu/account") << "EL Emma Lindqvist emma Göteborg One more level, then bed. STANDING 2 0 My "
                                           "page Sent messages Invitations Sign out";
        QTest::newRow("/vantu/account/index/uid/u102")
            << "LB Luca Bianchi Torino Friend Chi si ferma è perduto. STANDING 3 1 GAMES Pebble Kings 2 / 3 trophies "
               "Torvane 3 / 6 trophies Compare games";
        QTest::newRow("/vantu/account/index/uid/u112") << "AO Amara Okafor Lagos Play fair, win big STANDING No "
                                                          "ratings yet GAMES Deep Lantern 1 / 3 trophies Compare games";
        QTest::newRow("/vantu/games")
            << "Deep Lantern 1 / 3 trophies Kite Harbour 2 / 3 trophies Night Tram 1 / 3 trophies Orchard Rush 0 / 2 "
               "trophies Pebble Kings 1 / 3 trophies Torvane 1 / 6 trophies";
        QTest::newRow("/vantu/games/show-game/gid/7")
            << "Torvane Find your way through the sunken towers. Trophies 1 / 6 FRIENDS WHO PLAY CR Carmen Ruiz ¿Otra "
               "partida? LB Luca Bianchi Chi si ferma è perduto. ML Marie Lefèvre Jamais sans mon café. YT Yuki Tanaka "
               "Mō ikkai!";
        QTest::newRow("/vantu/games/trophies/gid/7")
            << "Torvane 1 / 6 Key bearer Won: WHEN 10 points First steps Not won yet 10 points Deep breath Not won yet "
               "20 points Bell ringer Not won yet 20 points Night diver Not won yet 30 points Master of the towers Not "
               "won yet 100 points";
        QTest::newRow("/vantu/games/compare/uid/u102")
            << "EL You Luca Bianchi LB Deep Lantern 1 / 3 0 / 3 Kite Harbour 2 / 3 0 / 3 Night Tram 1 / 3 0 / 3 "
               "Orchard Rush 0 / 2 0 / 2 Pebble Kings 1 / 3 2 / 3 Torvane 1 / 6 3 / 6";
        QTest::newRow("/vantu/games/recommend-via-mail/id/")
            << "This is what your friend will read Play Torvane with me Emma Lindqvist · Vantu Hello, your friend Emma "
               "Lindqvist plays here and would like you to come along. Install the game, find your friends and win "
               "trophies with them. Torvane: Find your way through the sunken towers. Play now";
        QTest::newRow("/vantu/games/recommend-via-mail/id/3")
            << "This is what your friend will read Play Kite Harbour with me Emma Lindqvist · Vantu Hello, your friend "
               "Emma Lindqvist plays here and would like you to come along. Install the game, find your friends and "
               "win trophies with them. Kite Harbour: Fly high above the windy port. Play now";
        QTest::newRow("/vantu/games/recommend-via-twitter/id/7")
            << "TWITTER EL Emma Lindqvist I am playing Torvane. Come and play with me! Torvane Find your way through "
               "the sunken towers. Share Practice page: nothing leaves this computer.";
    }
    void everyPageSaysWhatIsSo()
    {
        QVERIFY(m_emma->open(L1(QTest::currentDataTag())));
        QTEST(words(*m_emma), "said");
    }

    void variablesTellWhatIsShown_data()
    {
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("flags");
        QTest::addColumn<QString>("game");
        QTest::addColumn<QString>("subject");

        const auto row = [](const char *path, const char *user, const char *name, const char *flags, const char *game,
                            const char *subject) { QTest::newRow(path) << user << name << flags << game << subject; };
        const char *const torvane = "Play Torvane with me";
        row("/vantu/", "", "", "000", "7", torvane);
        row("/vantu/account/index/uid/u103", "u103", "Marie Lefèvre", "101", "7", torvane);
        row("/vantu/account/index/uid/u108", "u108", "Mateusz Kowalski", "010", "7", torvane);
        row("/vantu/account/index/uid/u101", "u101", "Emma Lindqvist", "000", "7", torvane);
        row("/vantu/games/show-game/gid/11", "", "", "000", "11", "Play Night Tram with me");
        row("/vantu/games/recommend-via-mail/id/3", "", "", "000", "3", "Play Kite Harbour with me");
        row("/vantu/games/signal-twitter-send/gid/15", "", "", "000", "15", "Play Deep Lantern with me");
    }
    void variablesTellWhatIsShown()
    {
        QVERIFY(m_emma->open(L1(QTest::currentDataTag())));
        QTEST(m_emma->variable(L1("iUserId")), "user");
        QTEST(m_emma->variable(L1("sUserName")), "name");
        QTEST(QString(m_emma->variable(L1("bIsFriend")) + m_emma->variable(L1("bShowAdd"))
                      + m_emma->variable(L1("bShowEvaluate"))),
              "flags");
        QTEST(m_emma->variable(L1("iGameId")), "game");
        QTEST(m_emma->variable(L1("sSubject")), "subject");
    }

    void badgesFallAsThingsAreSeen()
    {
        QCOMPARE(m_emma->variable(L1("iInboxMessages")), L1("3"));
        QCOMPARE(m_emma->variable(L1("iFriendsMessages")), L1("1"));
        QVERIFY(m_emma->open(L1("/vantu/messages/index")));
        QCOMPARE(m_emma->variable(L1("iInboxMessages")), L1("3"));
        QVERIFY(m_emma->open(L1("/vantu/messages/index/uid/u102")));
        QCOMPARE(m_emma->variable(L1("iInboxMessages")), L1("2"));
        QVERIFY(m_emma->open(L1("/vantu/friends/?select=yes")));
        QVERIFY(m_emma->text().startsWith(L1("CHOOSE A FRIEND")));
        QCOMPARE(m_emma->variable(L1("iFriendsMessages")), L1("0"));
        // Luca's message went to others too, who have not read it.
        Visitor marie(m_service->root());
        QVERIFY(marie.start(L1("EN"), L1("marie"), L1("marie123")));
        QCOMPARE(marie.variable(L1("iInboxMessages")), L1("2"));
    }

    void findingAddingAndDeletingAFriend()
    {
        QVERIFY(m_emma->submit(L1("/vantu/friends/add-friends/"), "q=MATEUSZ"));
        QCOMPARE(m_emma->path(), L1("/vantu/friends/add-friends/?found=1"));
        QCOMPARE(words(*m_emma), QString::fromUtf8("Search FOUND MK Mateusz Kowalski Łódź Add Invitations"));
        QCOMPARE(m_emma->evaluate(L1("document.querySelector('input').value")).toString(), L1("MATEUSZ"));
        QVERIFY(m_emma->submit(L1("/vantu/friends/add-friends/"), "q=_"));
        QCOMPARE(words(*m_emma), L1("Search Nobody of that name. Invitations"));

        QVERIFY(m_emma->open(L1("/vantu/account/add-friend/uid/u108")));
        QCOMPARE(m_emma->path(), L1("/vantu/account/index/uid/u108"));
        QVERIFY(m_emma->holds(L1("Mateusz Kowalski is now your friend.")));
        QCOMPARE(m_emma->variable(L1("bIsFriend")), L1("1"));
        QCOMPARE(m_emma->variable(L1("iFriendsMessages")), L1("1"));
        Visitor mateusz(m_service->root());
        QVERIFY(mateusz.start(L1("EN"), L1("mateusz"), L1("mateusz123")));
        QCOMPARE(mateusz.variable(L1("iFriendsMessages")), L1("1"));
        QVERIFY(mateusz.open(L1("/vantu/friends/delete-friend/uid/u101")));
        QCOMPARE(mateusz.path(), L1("/vantu/friends?iDelete=1"));
        QVERIFY(mateusz.holds(L1("Emma Lindqvist is no longer on your list.")));
        QVERIFY(!mateusz.text().contains(L1("EL")));
        QVERIFY(m_emma->open(L1("/vantu/account/index/uid/u108")));
        QCOMPARE(m_emma->variable(L1("bShowAdd")), L1("1"));
        QVERIFY(m_emma->open(L1("/vantu/account/add-friend/uid/u101")));
        QCOMPARE(m_emma->path(), L1("/vantu/account/index/uid/u101"));
    }

    void aRaterHasOneVote()
    {
        const auto thumbs
            = [this] { return m_emma->evaluate(L1("document.querySelector('.thumbs').textContent")).toString(); };
        QVERIFY(m_emma->open(L1("/vantu/account/index/uid/u104")));
        QCOMPARE(thumbs(), L1("21"));
        QVERIFY(m_emma->open(L1("/vantu/friends/evaluate/fid/u104/value/0")));
        QCOMPARE(m_emma->path(), L1("/vantu/account/index/uid/u104"));
        QVERIFY(m_emma->holds(L1("counts")));
        QCOMPARE(thumbs(), L1("12"));
        QVERIFY(m_emma->open(L1("/vantu/friends/evaluate/fid/u104/value/1")));
        QVERIFY(m_emma->open(L1("/vantu/friends/evaluate/fid/u104/value/1")));
        QCOMPARE(thumbs(), L1("21"));
    }

    void sharingStandsAmongTheInvitations()
    {
        QVERIFY(m_emma->submit(L1("/vantu/games/recommend-via-twitter/id/7"), ""));
        QCOMPARE(m_emma->path(), L1("/vantu/games/signal-twitter-send/gid/7"));
        QVERIFY(m_emma->submit(L1("/vantu/facebook/share/gid/11"), ""));
        QCOMPARE(m_emma->path(), L1("/vantu/games/show-game/gid/11"));
        QVERIFY(m_emma->holds(L1("Shared. Thank you!")));
        QVERIFY(m_emma->open(L1("/vantu/friends/show-invite-email")));
        QCOMPARE(words(*m_emma), L1("Facebook Night Tram WHEN Twitter Torvane WHEN"));
    }

    void refusals_data()
    {
        QTest::addColumn<QString>("sentence");
        const char *const missing = "There is no such page.";
        const char *const bad = "something in the request is not right";
        QTest::newRow("/vantu/account/index/uid/u999") << missing;
        QTest::newRow("/vantu/friends/delete-friend/uid/u112") << bad;
        QTest::newRow("/vantu/friends/evaluate/fid/u112/value/1") << bad;
        QTest::newRow("/vantu/friends/evaluate/fid/u102/value/2") << bad;
        QTest::newRow("/vantu/friends/index/page/0") << missing;
        QTest::newRow("/vantu/friends/index/page/999999999999") << missing;
        QTest::newRow("/vantu/games/show-game/gid/7x") << missing;
        QTest::newRow("/vantu/messages/send-message/android_uid/7u101") << missing;
        QTest::newRow("/vantu/slow?ms=long") << bad;
    }
    void refusals()
    {
        QFETCH(QString, sentence);
        m_emma->open(L1(QTest::currentDataTag()));
        QVERIFY2(m_emma->holds(sentence), qPrintable(m_emma->text()));
        QCOMPARE(m_emma->variable(L1("sUserUid")), L1("u101"));
    }

    void accountIsEdited()
    {
        const QString name = QStringLiteral("</script><b>\"É'\\{{sTitle}}");
        QVERIFY(m_emma->submit(L1("/vantu/account/edit"),
                               "name=" + QUrl::toPercentEncoding(name) + "&city=%26amp%3B&motto=%22%3E%3Cimg%3E"));
        QCOMPARE(m_emma->path(), L1("/vantu/account"));
        QVERIFY(m_emma->holds(L1("Your changes are saved.")));
        QVERIFY(m_emma->open(L1("/vantu/account/index/uid/u101")));
        QVERIFY(!m_emma->holds(L1("saved")));
        QCOMPARE(m_emma->variable(L1("sUserName")), name);
        QCOMPARE(m_emma->evaluate(L1("document.querySelector('h1').textContent")).toString(), name);
        QVERIFY(m_emma->holds(L1("&amp;")));
        QVERIFY(m_emma->open(L1("/vantu/account/edit")));
        QCOMPARE(m_emma->evaluate(L1("document.getElementById('motto').value")).toString(), L1("\"><img>"));
        QCOMPARE(m_emma->evaluate(L1("document.querySelectorAll('img, b').length")).toInt(), 0);
    }

    void accountRefusesWhatDoesNotFitAndKeepsIt_data()
    {
        QTest::addColumn<QByteArray>("form");
        QTest::newRow("no name") << QByteArray("name=&motto=typed");
        QTest::newRow("a long name") << "motto=typed&name=" + QByteArray("%C3%A9").repeated(41);
        QTest::newRow("a long town") << "motto=typed&name=a&city=" + QByteArray(101, 'b');
        QTest::newRow("two lines") << QByteArray("motto=typed&name=a%0Ab");
        QTest::newRow("not UTF-8") << QByteArray("motto=typed&name=%FF");
    }
    void accountRefusesWhatDoesNotFitAndKeepsIt()
    {
        QFETCH(QByteArray, form);
        m_emma->submit(L1("/vantu/account/edit"), form);
        QCOMPARE(m_emma->evaluate(L1("document.querySelectorAll('.notice').length")).toInt(), 1);
        QCOMPARE(m_emma->evaluate(L1("document.getElementById('motto').value")).toString(), L1("typed"));
        QVERIFY(m_emma->open(L1("/vantu/account")));
        QVERIFY(m_emma->holds(L1("Emma Lindqvist")));
    }

    void brokenPageDoesNotArrive() { QVERIFY(!m_emma->open(L1("/vantu/broken"))); }
};

QTEST_MAIN(ServicePages)
#include "tst_servicepages.moc"
