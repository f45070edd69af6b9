// SPDX-License-Identifier: MIT
#include "portal.h"

#include "interactrules.h"
#include "mainwindow.h"

class CommandsTest : public PortalTest {
    Q_OBJECT

private slots:
    void sectionIsFollowedAndStartsAfresh()
    {
        service->answer("/vantu/friends"_s, {{}, 302, "/vantu/friends/add-friends/"});
        service->answer("/vantu/friends/add-friends/"_s, {TestService::page({})});
        loadPage("/vantu/games/show-game/gid/7"_s);
        QVERIFY(page->btnGame->isChecked());
        loadPage("/vantu/account"_s);
        QVERIFY(page->btnGame->isChecked());
        click(page->btnFriend);
        QTRY_COMPARE(shownUrl(), url("/vantu/friends/add-friends/"_s));
        QTRY_VERIFY(!isLoading());
        QVERIFY(!page->webView->history()->canGoBack());
        loadPage("/vantu/account"_s);
        QVERIFY(page->webView->history()->canGoBack());
    }

    void unknownIdsDoNothing()
    {
        loadPage("/vantu/info/"_s);
        service->forget();
        for (const int id : {-1, 4, 10, 1000000}) {
            page->on_ToggleButtonClicked(id);
            if (id != 4)
                page->on_SelectButtonClicked(id);
        }
        QVERIFY(page->webView->history()->canGoBack());
        QVERIFY(!isLoading());
        QCOMPARE(service->requests().size(), 0);
    }

    void quitSavesAndEndsTheLoop()
    {
        page->_username = "alice"_s;
        page->_password = "12345678"_s;
        page->_rememberMe = "1"_s;
        QTimer::singleShot(0, window.get(), [&] { click(page->btnQuit); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(is_Send_Resume);
        is_Send_Resume = false;

        TestPage next;
        QCOMPARE(next._username, "alice"_s);
        QCOMPARE(next._password, "12345678"_s);
        QTRY_VERIFY(!service->requests().isEmpty());
        QVERIFY(service->urls().last().contains("&username=alice&pass=12345678&remember_me=1&"_s));
        next.clearUserLogin();
        QVERIFY(TestPage()._username.isEmpty());
    }

    void interactRowsFollowTheProfile()
    {
        page->_isFriend = true;
        page->_showRate = true;
        page->on_SelectButtonClicked(5);
        QTRY_VERIFY(page->popupInteract.isVisible());
        QCOMPARE(page->popupInteract.title(), "Interact"_s);
        QCOMPARE(page->mdlInteractModel.stringList(), interactRows(true, true));
        loadPage("/vantu/info/"_s);
        QTRY_VERIFY(!page->popupInteract.isVisible());
    }

    void rowsAndCommandsLoadTheirLinks()
    {
        for (const auto &[row, path] : {std::pair("Delete Friend", "/vantu/friends/delete-friend/uid/p3"),
                                        {"Add as friend", "/vantu/account/add-friend/uid/p3"},
                                        {"Compare Games", "/vantu/games/compare/uid/p3"},
                                        {"Thumbs up", "/vantu/friends/evaluate/fid/p3/value/1"},
                                        {"Thumbs down", "/vantu/friends/evaluate/fid/p3/value/0"}}) {
            page->_currentUserUid = "p3"_s;
            const QStringListModel model({QLatin1String(row)});
            page->on_UserInteract(model.index(0));
            QTRY_VERIFY2(service->urls().value(0) == url(QLatin1String(path)), row);
            QTRY_VERIFY(!isLoading());
            service->forget();
        }
        for (const auto &[command, path] : {std::pair(1, "/vantu/info/"), {6, "/vantu/friends/add-friends/"}}) {
            page->on_SelectButtonClicked(command);
            QTRY_VERIFY2(service->urls().value(0) == url(QLatin1String(path)), path);
            QTRY_VERIFY(!isLoading());
            service->forget();
        }
        page->_currentUserName = "Ann"_s;
        const QStringListModel model({"Rate"_s, "Send Message"_s});
        page->on_UserInteract(model.index(0));
        QTRY_VERIFY(page->popupRate.isVisible());
        page->on_UserInteract(model.index(1));
        QCOMPARE(page->addrWidget->getAllAddress(), QStringList("p3"_s));
    }

    void twitterAndFacebook()
    {
        loadPage("/vantu/games/show-game/gid/7"_s, "iGameId = 7"_s);
        page->on_UserRecommend(page->mdlRecommendModel.index(2));
        QCOMPARE(page->oldURL, url("/vantu/games/show-game/gid/7"_s));
        QTRY_VERIFY(service->urls().contains(url("/vantu/games/show-game/gid/7/fb_send/yes"_s)));
        QTRY_VERIFY(!isLoading());

        page->oldURL.clear();
        page->on_UserRecommend(page->mdlRecommendModel.index(1));
        QVERIFY(onTwitterPage);
        QVERIFY(!isOn(QWebSettings::JavascriptEnabled));
        QVERIFY(!isOn(QWebSettings::TiledBackingStoreEnabled));
        QVERIFY(page->oldURL.isEmpty());
        QTRY_VERIFY(service->urls().contains(url("/vantu/games/recommend-via-twitter/id/7"_s)));
    }
};

PORTAL_TEST_MAIN(CommandsTest)
#include "tst_commands.moc"
