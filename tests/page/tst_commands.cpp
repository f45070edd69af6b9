// SPDX-License-Identifier: MIT
#include "portal.h"

#include "mainwindow.h"
#include "mybutton.h"

#include "mbuttongroup.h"
#include "mprogressindicator.h"

#include <QWebHistory>
#include <QWebSettings>

static void click(Portal &portal, const QGraphicsWidget *button)
{
    const QPoint point = portal.window.mapFromScene(button->sceneBoundingRect().center());
    QTest::mouseClick(portal.window.viewport(), Qt::LeftButton, Qt::NoModifier, point);
}

class CommandsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { g_languageIdx = 0; }

    void sectionIsFollowedAndStartsAfresh()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.service.answer(QStringLiteral("/vantu/friends"), {{}, 302, "/vantu/friends/add-friends/"});
        portal.service.answer(QStringLiteral("/vantu/friends/add-friends/"), {TestService::page({})});
        portal.loadPage(QStringLiteral("/vantu/games/show-game/gid/7"));
        QVERIFY(page.btnGame->isChecked());
        portal.loadPage(QStringLiteral("/vantu/account"));
        QVERIFY(page.btnGame->isChecked());
        click(portal, page.btnFriend);
        QTRY_COMPARE(portal.shownUrl(), Portal::url(QStringLiteral("/vantu/friends/add-friends/")));
        QTRY_VERIFY(!page.progressIndicator->isVisible());
        QVERIFY(!page.webView->history()->canGoBack());
        portal.loadPage(QStringLiteral("/vantu/account"));
        QVERIFY(page.webView->history()->canGoBack());
    }

    void unknownIdsDoNothing()
    {
        Portal portal;
        portal.loadPage(QStringLiteral("/vantu/info/"));
        portal.service.forget();
        for (const int id : {-1, 4, 10, 1000000}) {
            portal.page->on_ToggleButtonClicked(id);
            if (id != 4)
                portal.page->on_SelectButtonClicked(id);
        }
        QVERIFY(portal.page->webView->history()->canGoBack());
        QVERIFY(!portal.page->progressIndicator->isVisible());
        QCOMPARE(portal.service.requests().size(), 0);
    }

    void quitSavesAndEndsTheLoop()
    {
        Portal portal;
        portal.page->_username = QStringLiteral("alice");
        portal.page->_password = QStringLiteral("12345678");
        portal.page->_rememberMe = QStringLiteral("1");
        QTimer::singleShot(0, &portal.window, [&] { click(portal, portal.page->btnQuit); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(is_Send_Resume);
        is_Send_Resume = false;

        TestPage next;
        QCOMPARE(next._username, QStringLiteral("alice"));
        QCOMPARE(next._password, QStringLiteral("12345678"));
        QTRY_VERIFY(!portal.service.requests().isEmpty());
        QVERIFY(portal.service.urls().last().contains(QLatin1String("&username=alice&pass=12345678&remember_me=1&")));
        next.clearUserLogin();
        QVERIFY(TestPage()._username.isEmpty());
    }

    void interactRowsFollowTheProfile_data()
    {
        QTest::addColumn<bool>("isFriend");
        QTest::addColumn<bool>("showRate");
        QTest::addColumn<QString>("rows");
        QTest::newRow("friend") << true << false << QStringLiteral("Send Message,Delete Friend,Compare Games");
        QTest::newRow("friend to rate") << true << true
                                        << QStringLiteral("Send Message,Delete Friend,Rate,Compare Games");
        QTest::newRow("stranger") << false << false << QStringLiteral("Send Message,Add as friend,Compare Games");
    }

    void interactRowsFollowTheProfile()
    {
        QFETCH(bool, isFriend);
        QFETCH(bool, showRate);
        Portal portal;
        portal.page->_isFriend = isFriend;
        portal.page->_showRate = showRate;
        portal.page->on_SelectButtonClicked(5);
        QTRY_VERIFY(portal.page->popupInteract.isVisible());
        QCOMPARE(portal.page->popupInteract.title(), QStringLiteral("Interact"));
        const QString rows = portal.page->mdlInteractModel.stringList().join(QLatin1Char(','));
        QTEST(rows, "rows");
    }

    void menuRowsLoadTheirLinks_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("path");
        const QString uid = QStringLiteral("p3");
        for (int language = 0; language < K_LANGUAGE_COUNT; ++language) {
            const auto row = [&](const auto &table, const char *path) {
                const QString text = QString::fromLatin1(table.rows[language]);
                QTest::addRow("%d %s", language, table.rows[language])
                    << language << text << QString::fromLatin1(path).arg(uid);
            };
            row(TXT_DELETE_FRIEND, "/vantu/friends/delete-friend/uid/%1");
            row(TXT_ADD_FRIEND, "/vantu/account/add-friend/uid/%1");
            row(TXT_COMPARE_GAMES, "/vantu/games/compare/uid/%1");
            row(TXT_RATE_UP, "/vantu/friends/evaluate/fid/%1/value/1");
            // The German thumbs down holds the thumbs up.
            row(TXT_RATE_DOWN,
                language == 2 ? "/vantu/friends/evaluate/fid/%1/value/1" : "/vantu/friends/evaluate/fid/%1/value/0");
        }
    }

    void menuRowsLoadTheirLinks()
    {
        QFETCH(int, language);
        QFETCH(QString, row);
        QFETCH(QString, path);
        g_languageIdx = language;
        TestService service;
        TestPage page;
        page._currentUserUid = QStringLiteral("p3");
        QStringListModel model({row});
        page.on_UserInteract(model.index(0));
        QTRY_VERIFY(service.urls().contains(Portal::url(path)));
    }

    void twitterAndFacebook()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.loadPage(QStringLiteral("/vantu/games/show-game/gid/7"),
                        {{QStringLiteral("iGameId"), QStringLiteral("7")}});
        page.on_UserRecommend(page.mdlRecommendModel.index(2));
        QCOMPARE(page.oldURL, Portal::url(QStringLiteral("/vantu/games/show-game/gid/7")));
        QTRY_VERIFY(
            portal.service.urls().contains(Portal::url(QStringLiteral("/vantu/games/show-game/gid/7/fb_send/yes"))));
        QTRY_VERIFY(!page.progressIndicator->isVisible());

        page.oldURL.clear();
        page.on_UserRecommend(page.mdlRecommendModel.index(1));
        QVERIFY(onTwitterPage);
        QVERIFY(!page.webView->settings()->testAttribute(QWebSettings::JavascriptEnabled));
        QVERIFY(!page.webView->settings()->testAttribute(QWebSettings::TiledBackingStoreEnabled));
        QVERIFY(page.oldURL.isEmpty());
        QTRY_VERIFY(
            portal.service.urls().contains(Portal::url(QStringLiteral("/vantu/games/recommend-via-twitter/id/7"))));
        onTwitterPage = false;
    }
};

PORTAL_TEST_MAIN(CommandsTest)
#include "tst_commands.moc"
