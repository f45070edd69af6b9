// SPDX-License-Identifier: MIT
#include "runningservice.h"
#include "visitor.h"

#include <memory>
#include <QtTest>

using L1 = QLatin1String;

namespace {

const char *const variableNames[]
    = {"sUserUid",  "iInboxMessages", "iGamesMessages", "iFriendsMessages", "iGameId",
       "sSubject",  "bIsFriend",      "bShowAdd",       "bShowEvaluate",    "iUserId",
       "sUserName", "sTitle",         "strUserName",    "strPassword",      "blnRememberMe"};

} // namespace

/// The pages as a player meets them in the companion's web engine, and the variables that the companion fetches.
class ServicePages : public QObject {
    Q_OBJECT

private slots:
    // Each test function has a service of its own, and its rows share it.
    void init()
    {
        if (m_function != QTest::currentTestFunction()) {
            m_function = QTest::currentTestFunction();
            m_service = std::make_unique<RunningService>();
        }
        m_emma = std::make_unique<Visitor>(m_service->root());
        QVERIFY(m_emma->start(L1("EN"), L1("emma"), L1("emma123")));
    }
    void cleanup() { QCOMPARE(m_service->errors(), QString()); }

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
        QCOMPARE(visitor.open(L1("/vantu/friends")), true);
        QCOMPARE(visitor.path(), player.isEmpty() ? L1("/vantu/login") : L1("/vantu/friends"));
    }

    void signInForm()
    {
        Visitor visitor(m_service->root());
        visitor.start(L1("IT"));
        QVERIFY(visitor.submit(L1("/vantu/login"), "username=luca&password=wrong&remember_me=1"));
        QCOMPARE(visitor.path(), L1("/vantu/login"));
        QVERIFY(visitor.holds(L1("Nome utente o password errati.")));
        QVERIFY(visitor.submit(L1("/vantu/login"), "username=luca&password=luca123"));
        QCOMPARE(visitor.path(), L1("/vantu/"));
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
        QVERIFY(again.open(L1("/vantu/logout")));
        QVERIFY(again.path().startsWith(L1("/vantu/login?iDelete=")));
        QCOMPARE(again.variable(L1("strPassword")), L1(""));
        QVERIFY(again.start(L1("EN"), L1("emma"), token));
        QCOMPARE(again.variable(L1("sUserUid")), L1(""));
    }

    void everyPageInEveryLanguage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("error");
        const auto row = [](const char *language, const char *error) { QTest::newRow(language) << language << error; };
        row("EN", "An error has occurred inside the application");
        row("FR", "Une erreur est survenue dans l'application");
        row("DE", "In der Anwendung ist ein Fehler aufgetreten");
        row("IT", "Si è verificato un errore nell'applicazione");
        row("SP", "Ha ocurrido un error en la aplicación");
    }
    void everyPageInEveryLanguage()
    {
        QFETCH(QString, language);
        QFETCH(QString, error);
        m_emma->start(language);
        const QByteArray paths = "/vantu/ /vantu/login /vantu/login/index /vantu/login?iDelete=1 /vantu/messages/index "
                                 "/vantu/messages/index/uid/u103 /vantu/messages/sent/ /vantu/friends /vantu/friends/ "
                                 "/vantu/friends/?select=yes /vantu/friends/index/page/2 /vantu/friends/add-friends/ "
                                 "/vantu/friends/add-friends/?q=o /vantu/friends/show-invite-email /vantu/account "
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
            QVERIFY2(!m_emma->text().contains(L1("{{")), path);
            QVERIFY2(m_emma->evaluate(L1("document.body.scrollWidth <= 320")).toBool(), path);
        }
    }

    void variablesTellWhatIsShown_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("flags");
        QTest::addColumn<QString>("game");
        QTest::addColumn<QString>("subject");

        const auto row
            = [](const char *path, const char *user, const char *name, const char *flags, const char *game,
                 const char *subject) { QTest::newRow(path) << path << user << name << flags << game << subject; };
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
        QFETCH(QString, path);
        QVERIFY(m_emma->open(path));
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
        QVERIFY(m_emma->holds(L1("& his dog.")));
        QCOMPARE(m_emma->variable(L1("iInboxMessages")), L1("2"));
        QVERIFY(m_emma->open(L1("/vantu/friends")));
        QCOMPARE(m_emma->variable(L1("iFriendsMessages")), L1("0"));
        // Luca's message went to others too, who have not read it.
        Visitor marie(m_service->root());
        QVERIFY(marie.start(L1("EN"), L1("marie"), L1("marie123")));
        QCOMPARE(marie.variable(L1("iInboxMessages")), L1("2"));
    }

    void addingAndDeletingAFriend()
    {
        QVERIFY(m_emma->open(L1("/vantu/friends/add-friends/?q=MATEUSZ")));
        QVERIFY(m_emma->holds(L1("Mateusz Kowalski")));
        QVERIFY(m_emma->open(L1("/vantu/account/add-friend/uid/u108")));
        QCOMPARE(m_emma->path(), L1("/vantu/account/index/uid/u108"));
        QCOMPARE(m_emma->variable(L1("bIsFriend")), L1("1"));
        Visitor mateusz(m_service->root());
        QVERIFY(mateusz.start(L1("EN"), L1("mateusz"), L1("mateusz123")));
        QCOMPARE(mateusz.variable(L1("iFriendsMessages")), L1("1"));
        QVERIFY(mateusz.open(L1("/vantu/friends/delete-friend/uid/u101")));
        QVERIFY(mateusz.path().startsWith(L1("/vantu/friends?iDelete")));
        QVERIFY(!mateusz.text().contains(L1("Emma")));
        QVERIFY(m_emma->open(L1("/vantu/account/index/uid/u108")));
        QCOMPARE(m_emma->variable(L1("bIsFriend")), L1("0"));
        QCOMPARE(m_emma->variable(L1("bShowAdd")), L1("1"));
    }

    void aRaterHasOneVote()
    {
        const auto thumbs
            = [this] { return m_emma->evaluate(L1("document.querySelector('.thumbs').textContent")).toString(); };
        QVERIFY(m_emma->open(L1("/vantu/account/index/uid/u104")));
        QCOMPARE(thumbs(), L1("21"));
        QVERIFY(m_emma->open(L1("/vantu/friends/evaluate/fid/u104/value/0")));
        QCOMPARE(m_emma->path(), L1("/vantu/account/index/uid/u104"));
        QCOMPARE(thumbs(), L1("12"));
        QVERIFY(m_emma->open(L1("/vantu/friends/evaluate/fid/u104/value/1")));
        QVERIFY(m_emma->open(L1("/vantu/friends/evaluate/fid/u104/value/1")));
        QCOMPARE(thumbs(), L1("21"));
    }

    void refusals_data()
    {
        QTest::addColumn<QString>("sentence");
        const char *const missing = "There is no such page.";
        const char *const bad = "something in the request is not right";
        QTest::newRow("/vantu/account/index/uid/u999") << missing;
        QTest::newRow("/vantu/account/add-friend/uid/u101") << bad;
        QTest::newRow("/vantu/friends/delete-friend/uid/u112") << bad;
        QTest::newRow("/vantu/friends/evaluate/fid/u112/value/1") << bad;
        QTest::newRow("/vantu/friends/evaluate/fid/u102/value/2") << bad;
        QTest::newRow("/vantu/friends/index/page/999999999999") << missing;
        QTest::newRow("/vantu/friends/add-friends/?q=%FF") << bad;
        QTest::newRow("/vantu/games/show-game/gid/7x") << missing;
        QTest::newRow("/vantu/messages/send-message/android_uid/7u101") << missing;
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
        QVERIFY(m_emma->open(L1("/vantu/account/index/uid/u101")));
        QCOMPARE(m_emma->variable(L1("sUserName")), name);
        QCOMPARE(m_emma->evaluate(L1("document.querySelector('h1').textContent")).toString(), name);
        QVERIFY(m_emma->holds(L1("&amp;")));
        QVERIFY(m_emma->open(L1("/vantu/account/edit")));
        QCOMPARE(m_emma->evaluate(L1("document.getElementById('motto').value")).toString(), L1("\"><img>"));
        QCOMPARE(m_emma->evaluate(L1("document.querySelectorAll('img, b').length")).toInt(), 0);
    }

    void accountRefusesWhatDoesNotFit_data()
    {
        QTest::addColumn<QByteArray>("form");
        QTest::newRow("a long name") << "name=" + QByteArray("%C3%A9").repeated(41);
        QTest::newRow("two lines") << QByteArray("name=a%0Ab");
        QTest::newRow("not UTF-8") << QByteArray("name=%FF");
        QTest::newRow("a wrong password") << QByteArray("name=a&new_password=another1&current_password=wrong");
    }
    void accountRefusesWhatDoesNotFit()
    {
        QFETCH(QByteArray, form);
        m_emma->submit(L1("/vantu/account/edit"), form);
        QCOMPARE(m_emma->evaluate(L1("document.querySelectorAll('.notice').length")).toInt(), 1);
        QVERIFY(m_emma->open(L1("/vantu/account")));
        QVERIFY(m_emma->holds(L1("Emma Lindqvist")));
    }

    void newPasswordEndsOtherLogins()
    {
        const QString before = m_emma->variable(L1("strPassword"));
        Visitor elsewhere(m_service->root());
        QVERIFY(elsewhere.start(L1("EN"), L1("emma"), before));
        QVERIFY(
            m_emma->submit(L1("/vantu/account/edit"), "name=Emma&current_password=emma123&new_password=br%26nd+new"));
        QVERIFY(m_emma->variable(L1("strPassword")) != before);
        QVERIFY(elsewhere.open(L1("/vantu/friends")));
        QCOMPARE(elsewhere.path(), L1("/vantu/login"));
        for (const QString &old : {before, QString(L1("emma123"))}) {
            elsewhere.start(L1("EN"), L1("emma"), old);
            QCOMPARE(elsewhere.variable(L1("sUserUid")), L1(""));
        }
        QVERIFY(elsewhere.submit(L1("/vantu/login"), "username=emma&password=br%26nd+new"));
        QCOMPARE(elsewhere.path(), L1("/vantu/"));
    }

    void brokenPageDoesNotArrive() { QVERIFY(!m_emma->open(L1("/vantu/broken"))); }

    void manyVisitorsAtOnce()
    {
        QNetworkAccessManager network;
        QVector<QNetworkReply *> replies;
        for (int i = 0; i < 60; ++i) {
            QNetworkRequest request(QUrl(m_service->root() + L1("/vantu/messages/send-message/android_uid/7u10")
                                         + QString::number(2 + i % 4)));
            request.setHeader(QNetworkRequest::ContentTypeHeader,
                              QByteArrayLiteral("application/x-www-form-urlencoded"));
            replies << network.post(request, "user_id[]=u101&message=" + QByteArray::number(i));
        }
        for (QNetworkReply *reply : replies)
            QTRY_VERIFY_WITH_TIMEOUT(reply->isFinished(), 20000);
        QVERIFY(m_emma->open(L1("/vantu/")));
        QCOMPARE(m_emma->variable(L1("iInboxMessages")), L1("63"));
    }

private:
    QByteArray m_function;
    std::unique_ptr<RunningService> m_service;
    std::unique_ptr<Visitor> m_emma;
};

QTEST_MAIN(ServicePages)
#include "tst_servicepages.moc"
