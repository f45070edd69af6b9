// SPDX-License-Identifier: MIT
#include "servicetest.h"

#include <QRegularExpression>

namespace {

const char *const variableNames[]
    = {"sUserUid",  "iInboxMessages", "iGamesMessages", "iFriendsMessages", "iGameId",
       "sSubject",  "bIsFriend",      "bShowAdd",       "bShowEvaluate",    "iUserId",
       "sUserName", "sTitle",         "strUserName",    "strPassword",      "blnRememberMe"};

// A file that lies beside this one.
QByteArray contents(const char *name)
{
    QFile file(QFINDTESTDATA(name));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

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
        const QString faintTexts = QString::fromUtf8(contents("fainttexts.js"));
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
            QCOMPARE(m_emma->evaluate(faintTexts).toString(), L1("none"));
        }
    }

    // What emma reads in the world as it begins: pages.txt holds address and text of each page.
    void everyPageSaysWhatIsSo_data()
    {
        QTest::addColumn<QString>("said");
        const QString pages = QString::fromUtf8(contents("pages.txt"));
        for (const QString &page : pages.trimmed().split(L1("\n\n")))
            QTest::newRow(qPrintable(page.section(QLatin1Char('\n'), 0, 0))) << page.section(QLatin1Char('\n'), 1);
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
        QTest::newRow("/vantu/slow?ms=10001") << bad;
        QTest::newRow("/vantu/games/show-game/gid/1234567890") << missing;
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
