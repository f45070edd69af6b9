// SPDX-License-Identifier: MIT
#include "portal.h"

#include "mybutton.h"

#include "mlabel.h"

#include <QWebFrame>

using Variables = QMap<QString, QString>;

static Variables variables(std::initializer_list<std::pair<const char *, const char *>> list)
{
    Variables result;
    for (const auto &[name, literal] : list)
        result.insert(QLatin1String(name), QString::fromUtf8(literal));
    return result;
}

// First: the notice goes out once a process.

class BridgeTest : public QObject {
    Q_OBJECT

private slots:
    void trophyNoticeIsSentOnceASignedInPageShows()
    {
        g_trophyIdx = Q_UINT64_C(1) << 63 | 33;
        g_KVB = 7;
        Portal portal;
        portal.service.answer(QStringLiteral("/vantu/index/add-trophy/android_uid/p12/kvb_game/7"), {"ok"});
        portal.loadPage(QStringLiteral("/vantu/login"), variables({{"sUserUid", "''"}, {"iGameId", "''"}}));
        portal.loadPage(QStringLiteral("/vantu/"), variables({{"sUserUid", "'p12'"}, {"iGameId", "'7'"}}));
        portal.loadPage(QStringLiteral("/vantu/friends"), variables({{"sUserUid", "'p12'"}}));
        const auto posts = [&] {
            QList<TestService::Request> result;
            for (const TestService::Request &request : portal.service.requests()) {
                if (request.method == QLatin1String("POST"))
                    result << request;
            }
            return result;
        };
        QTRY_COMPARE(posts().size(), 1);
        portal.loadPage(QStringLiteral("/vantu/games"), variables({{"sUserUid", "'p12'"}}));
        QCOMPARE(posts().size(), 1);
        QCOMPARE(posts().first().url,
                 Portal::url(QStringLiteral("/vantu/index/add-trophy/android_uid/p12/kvb_game/7")));
        QCOMPARE(posts().first().body, QByteArray("trophy_id[]=0&trophy_id[]=5&trophy_id[]=63"));
        QCOMPARE(posts().first().contentType, QByteArray("application/x-www-form-urlencoded"));
        g_trophyIdx = 0;
        g_KVB = 0;
    }

    void everyValueArrives()
    {
        Portal portal;
        const TestPage &page = *portal.page;
        portal.loadPage(QStringLiteral("/vantu/games/show-game/gid/7"),
                        variables({{"sUserUid", "'p12'"},
                                   {"iInboxMessages", "3"},
                                   {"iGamesMessages", "'12'"},
                                   {"iFriendsMessages", "123"},
                                   {"iGameId", "7"},
                                   {"sSubject", "'Spiel für dich'"},
                                   {"bIsFriend", "1"},
                                   {"bShowAdd", "1"},
                                   {"bShowEvaluate", "1"},
                                   {"iUserId", "'p3'"},
                                   {"sUserName", "'Zoë'"},
                                   {"sTitle", "'Schöne Spiele'"},
                                   {"strUserName", "'alice'"},
                                   {"strPassword", "'p%w'"},
                                   {"blnRememberMe", "'1'"}}));
        QCOMPARE(page.userID, QStringLiteral("p12"));
        QCOMPARE(page.btnInbox->m_badgeNumber, 3);
        QCOMPARE(page.btnGame->m_badgeNumber, 12);
        QCOMPARE(page.btnFriend->m_badgeNumber, 123);
        QCOMPARE(page.strFriendsMessages, QStringLiteral("123"));
        QCOMPARE(page.recommendGameId, QStringLiteral("7"));
        QCOMPARE(page.recommendSubject, QStringLiteral(u"Spiel für dich"));
        QCOMPARE(page.lblSubject->text(), QStringLiteral(u"Subject: Spiel für dich"));
        QVERIFY(page._isFriend && page._showAdd && page._showRate);
        QCOMPARE(page._currentUserUid, QStringLiteral("p3"));
        QCOMPARE(page._currentUserName, QStringLiteral(u"Zoë"));
        QCOMPARE(page.lblWebTitle->text(), QStringLiteral(u"Schöne Spiele"));
        QCOMPARE(page._username, QStringLiteral("alice"));
        QCOMPARE(page._password, QStringLiteral("p%w"));
        QCOMPARE(page._rememberMe, QStringLiteral("1"));
    }

    void whatAPageDoesNotDefineStays()
    {
        Portal portal;
        const TestPage &page = *portal.page;
        portal.loadPage(QStringLiteral("/vantu/friends"),
                        variables({{"sUserUid", "'p12'"}, {"sUserName", "'Ann'"}, {"sTitle", "'Ann'"}}));
        // One script fails, those behind it still run.
        portal.loadPage(QStringLiteral("/vantu/games"), variables({{"sTitle", "'Games'"}}));
        QCOMPARE(page.userID, QStringLiteral("p12"));
        QCOMPARE(page._currentUserName, QStringLiteral("Ann"));
        QCOMPARE(page.lblWebTitle->text(), QStringLiteral("Games"));
    }

    void counts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("number");
        QTest::newRow("number") << QStringLiteral("3") << 3;
        QTest::newRow("negative") << QStringLiteral("-2") << -2;
        QTest::newRow("number and letter") << QStringLiteral("3a") << 0;
        QTest::newRow("empty") << QString() << 0;
        QTest::newRow("too large") << QStringLiteral("99999999999") << 0;
    }

    void counts()
    {
        QFETCH(QString, text);
        TestService service;
        TestPage page;
        page.btnInbox->m_badgeNumber = 77;
        page.getInboxMessages(text);
        QTEST(page.btnInbox->m_badgeNumber, "number");
        QCOMPARE(page.strInboxMessages, text);
    }

    void flags_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("flag");
        for (const char *yes : {"1", "2", "-1"})
            QTest::newRow(yes) << QString::fromLatin1(yes) << true;
        for (const char *no : {"0", "", "true", "yes", "1.0", "0x1"})
            QTest::newRow(no) << QString::fromLatin1(no) << false;
    }

    void flags()
    {
        QFETCH(QString, text);
        QFETCH(bool, flag);
        TestService service;
        TestPage page;
        page._isFriend = page._showAdd = page._showRate = !flag;
        page.checkIsFriend(text);
        page.showAddFriendOption(text);
        page.showRateOption(text);
        QCOMPARE(page._isFriend, flag);
        QCOMPARE(page._showAdd, flag);
        QCOMPARE(page._showRate, flag);
    }

    void titleGivesWayToTheComposer()
    {
        TestService service;
        TestPage page;
        g_languageIdx = 2;
        page.showTitle(QStringLiteral("Freunde"));
        QCOMPARE(page.lblWebTitle->text(), QStringLiteral("Freunde"));
        for (const VantuState state : {SendMessageState, SendEmailState}) {
            page.state = state;
            page.showTitle(QStringLiteral("Freunde"));
            QCOMPARE(page.lblWebTitle->text(), QStringLiteral("Neue Nachricht"));
        }
        page.getSubject(QStringLiteral("x"));
        QCOMPARE(page.lblSubject->text(), QStringLiteral("Betreff: x"));
        g_languageIdx = 0;
    }

    void eachPageSeesTheBridge()
    {
        Portal portal;
        portal.load(QStringLiteral("/vantu/info/"), "<script>VANTU.getGameId('from a script of its own')</script>");
        QCOMPARE(portal.page->recommendGameId, QStringLiteral("from a script of its own"));
    }
};

PORTAL_TEST_MAIN(BridgeTest)
#include "tst_bridge.moc"
