// SPDX-License-Identifier: MIT
#include "portal.h"

#include "mdialog.h"
#include "mfocusring.h"
#include "mmessagebox.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QTcpServer>
#include <QTcpSocket>

namespace {

/// What her profile hands over.
const QString ann = "iUserId = 'p3', sUserName = 'Ann'"_s;

const QString countClicks = "clicks = 0; onclick = function() { ++clicks }"_s;
const QString annsProfile = "/vantu/account/index/uid/p3"_s;
const QString messageComposer = "cancel send recipients text"_s;
const QRectF webViewPlace(0, 60, 480, 664);

} // namespace

class ComposerTest : public PortalTest {
    Q_OBJECT

private slots:
    void messageComposerOpensAndCloses()
    {
        loadPage("/vantu/messages/index"_s, "sTitle = 'Inbox'"_s);
        page->txtMessage->setText("left over"_s);
        page->on_SelectButtonClicked(3);
        QCOMPARE(page->state, SendMessageState);
        QCOMPARE(shown(), messageComposer);
        QVERIFY(page->txtMessage->text().isEmpty());
        QCOMPARE(page->lblWebTitle->text(), "Send Message"_s);
        QCOMPARE(page->lblWebTitle->color(), QColor(Qt::black));
        QCOMPARE(page->oldURL, url("/vantu/messages/index"_s));

        service->forget();
        waitForLoad([this] {
            page->on_SelectButtonClicked(7);
            QCOMPARE(page->lblWebTitle->text(), "page title"_s);
            QCOMPARE(page->lblWebTitle->color(), QColor(Qt::white));
        });
        QCOMPARE(service->urls(), {url("/vantu/messages/index"_s)});
        QCOMPARE(shown(), "new web tabs"_s);
        QCOMPARE(page->lblWebTitle->text(), "Inbox"_s);

        service->forget();
        page->on_SelectButtonClicked(7); // In the normal state it closes the keyboard and no more.
        QVERIFY(service->requests().isEmpty());
    }

    void messageGoesOutOnce()
    {
        page->userID = "p12"_s;
        page->recommendGameId = "7"_s;
        page->openSendMessagePage();
        page->addrWidget->addNewUIDAddress("Ann"_s, "p3"_s);
        page->addrWidget->addNewUIDAddress("Bob"_s, "p4"_s);
        page->txtMessage->setText("1+1=2 & ½\nça va?"_s);
        page->on_SelectButtonClicked(8);
        page->on_SelectButtonClicked(8);
        QCOMPARE(page->state, Normal);
        QTRY_COMPARE(posts().size(), 1);
        QTRY_VERIFY(!isLoading());
        QCOMPARE(posts().size(), 1);
        const TestService::Request post = posts().first();
        QCOMPARE(post.url, url("/vantu/messages/send-message/android_uid/7p12"_s));
        QVERIFY(post.body.startsWith("user_id[]=p3&user_id[]=p4&message="));
        QCOMPARE(QUrl::fromPercentEncoding(post.body.mid(post.body.indexOf("message=") + 8)), "1+1=2 & ½\nça va?"_s);
        QVERIFY(post.cookie.isEmpty());
    }

    void postsGoOutOnceAndAreGivenUp()
    {
        QTcpServer silent;
        QVERIFY(silent.listen(QHostAddress::LocalHost));
        QByteArray taken;
        bool hangsUp = false;
        connect(&silent, &QTcpServer::newConnection, this, [&] {
            QTcpSocket *visitor = silent.nextPendingConnection();
            connect(visitor, &QTcpSocket::readyRead, this, [&, visitor] {
                taken += visitor->readAll();
                if (hangsUp && taken.endsWith("message="))
                    visitor->close();
            });
        });
        QNetworkAccessManager &network = *page->nwAccessMgr;
        network.setProxy(QNetworkProxy(QNetworkProxy::HttpProxy, "127.0.0.1"_s, silent.serverPort()));
        for (int i = 0; i < 6; ++i) // As many as go out at a time.
            page->doSendMessage();
        QTRY_COMPARE(taken.count("message="), 6);
        QTRY_VERIFY(network.findChildren<QNetworkReply *>().isEmpty());
        hangsUp = true;
        page->doSendMessage();
        QTRY_VERIFY(network.findChildren<QNetworkReply *>().isEmpty());
        QCOMPARE(taken.count("POST "), 7);
    }

    void friendsArePickedFromTheList()
    {
        // The list is opened over a page on its way.
        service->answer("/vantu/slow"_s, {TestService::page(ann), 200, {}, 300});
        page->webView->setUrl(QUrl(url("/vantu/slow"_s)));
        page->openSendMessagePage();
        page->txtMessage->setText("written before"_s);
        openList();
        QCOMPARE(shownUrl(), url("/vantu/friends"_s));
        QCOMPARE(page->webView->geometry(), QRectF(0, 0, 480, 814));
        QVERIFY(page->isInFriendSelectionScreen);
        QCOMPARE(shown(), "web"_s);
        QVERIFY(page->webView->isEnabled());

        bool deaf = false;
        connect(page->webView, &QGraphicsWebView::urlChanged, page.get(), [&] { deaf = !page->webView->isEnabled(); });
        loadPage(annsProfile, ann);
        QVERIFY(deaf); // No second tap while the first friend is on the way.
        composerIsBack({"p3"_s}, "written before"_s);
    }

    void onlyAPickAddsSomebody_data()
    {
        const Table<bool, QString, QString, QString> row("picking", "path", "variables", "outcome");
        row("profile under the composer", false, annsProfile, ann, ""_s);
        row("page without a player", true, "/vantu/info/"_s, {}, ""_s);
        row("player without a name", true, annsProfile, "iUserId = 'p3'"_s, ""_s);
        row("name without a player", true, annsProfile, "sUserName = 'Ann'"_s, ""_s);
        row("the list again", true, "/vantu/friends"_s, {}, "picking"_s);
        row("another page of the list", true, "/vantu/friends/index/page/2"_s, {}, "picking"_s);
        row("the list under the composer", false, "/vantu/friends/"_s, {}, ""_s);
    }

    void onlyAPickAddsSomebody()
    {
        QFETCH(bool, picking);
        QFETCH(QString, path);
        QFETCH(QString, variables);
        // What an earlier page has named stands in the members still.
        loadPage("/vantu/account/index/uid/p9"_s, "iUserId = 'p9', sUserName = 'Eve'"_s);
        page->openSendMessagePage();
        if (picking)
            openList();
        else
            load("/vantu/info/"_s, "<script>VANTU.on_btnAddAddressClicked()</script>");
        loadPage(path, variables);
        const bool isBack = shown() == messageComposer;
        const QString outcome = isBack ? page->addrWidget->getAllAddress().join(QLatin1Char(',')) : "picking"_s;
        QTEST(outcome, "outcome");
        QVERIFY(page->webView->isEnabled());
        QCOMPARE(page->isInFriendSelectionScreen, !isBack);
    }

    void pickingCanFailAndBeLeft()
    {
        page->openSendMessagePage();
        page->addrWidget->addNewUIDAddress("Bob"_s, "p4"_s);
        page->txtMessage->setText("kept"_s);
        openList();
        service->isSilent = true;
        QVERIFY(!visit(url(annsProfile)));
        composerIsBack({"p4"_s}, "kept"_s);
        service->isSilent = false;
        for (const int listDelay : {0, 2000}) { // The second does not come in time.
            service->answer("/vantu/friends"_s, {TestService::page({}), 200, {}, listDelay});
            emit page->addrWidget->btnAddressClicked();
            QVERIFY(!page->btnStopPicking->isVisible());
            QTRY_VERIFY(page->btnStopPicking->isVisible());
            click(page->btnStopPicking);
            composerIsBack({"p4"_s}, "kept"_s);
        }
    }

    void keysWriteAndPick()
    {
        const auto press = [this](Qt::Key key) { QTest::keyClick(window.get(), key); };
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        const QString inbox = "/vantu/messages/index"_s;
        const QString conversation = inbox + "/uid/p3"_s;
        loadPage(inbox, countClicks, "<a href='%1'>Ann</a>"_s.arg(conversation));
        service->answer(conversation, {TestService::page({}, "<p style='height: 2000px'>"_s)});
        service->answer(annsProfile, {TestService::page(ann)});
        const QByteArray list = "<a href='/vantu/info/'>x</a><br><a href='/vantu/account/index/uid/p3'>Ann</a>";
        service->answer("/vantu/friends"_s, {list});
        press(Qt::Key_Tab);
        QVERIFY(page->btnNewMessage->hasFocus());
        waitUntilDrawn();
        click(page->webView);
        QTRY_COMPARE(evaluate("clicks"_s).toInt(), 1);
        QVERIFY(only<MFocusRing>(page->webView->childItems()).isEmpty());
        press(Qt::Key_Tab); // in the page, to its link
        QVERIFY(evaluate("document.hasFocus()"_s).toBool());
        QVERIFY(!only<MFocusRing>(page->webView->childItems()).isEmpty());
        waitForLoad([&] { press(Qt::Key_Return); });
        QCOMPARE(shownUrl(), url(conversation));
        press(Qt::Key_Backtab);
        QVERIFY(page->btnNewMessage->hasFocus() && !evaluate("document.hasFocus()"_s).toBool());
        press(Qt::Key_Return);
        QCOMPARE(page->state, SendMessageState);
        QTest::keyClicks(window.get(), "Hi"_s);
        QCOMPARE(page->txtMessage->text(), "Hi"_s);

        press(Qt::Key_Backtab); // to the add button
        press(Qt::Key_Return);
        QVERIFY(page->isPickingFriend && page->webView->hasFocus());
        QTRY_VERIFY(!isLoading());
        // Round to the last, and where the engine tells the page's end at once, to the first and round again.
        for (int i = 0; i < (QT_VERSION < QT_VERSION_CHECK(6, 0, 0) ? 3 : 1); ++i)
            press(Qt::Key_Up);
        press(Qt::Key_Return);
        QTRY_COMPARE(page->addrWidget->getAllAddress(), QStringList("p3"_s));

        press(Qt::Key_Backtab);
        press(Qt::Key_Backtab);
        press(Qt::Key_Return);
        QVERIFY(page->isPickingFriend);
        press(Qt::Key_Escape);
        QCOMPARE(shown(), messageComposer);
        QTest::keyClicks(window.get(), "!"_s);
        QCOMPARE(page->txtMessage->text(), "Hi!"_s);
        service->answer(conversation,
                        {TestService::page({}, "<a href='%1'>x</a><p style='height: 2000px'>"_s.arg(inbox))});
        QTest::keyClick(window.get(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(page->state, Normal);
        QVERIFY2(!window->scene()->focusItem(), "what is hidden has given up the focus");

        QTRY_VERIFY(!isLoading());
        page->webView->setFocus();
        press(Qt::Key_Down);
        QVERIFY2(page->webView->page()->mainFrame()->scrollPosition().y() > 20, "arrows walk among friends only");
        waitForLoad([&] { press(Qt::Key_Escape); });
        QVERIFY(shownUrl() != url(conversation));
    }

    void sendRefusesWhatIsIncomplete()
    {
        for (const VantuState state : {SendMessageState, SendEmailState, Normal}) {
            page->state = state;
            page->on_SelectButtonClicked(8);
            closeBox("Please select at least one recipient"_s, Qt::Key_Return);
            QCOMPARE(page->state, state);
        }

        page->openSendMessagePage();
        page->addrWidget->addNewUIDAddress("Ann"_s, "p3"_s);
        page->on_SelectButtonClicked(8);
        closeBox("You cannot send an empty message"_s, Qt::Key_Escape);
        composerIsBack({"p3"_s}, {});
        QVERIFY(posts().isEmpty());

        page->txtMessage->setText("  "_s);
        page->on_SelectButtonClicked(8);
        QTRY_COMPARE(posts().size(), 1);
        QVERIFY(posts().first().body.endsWith("&message=%20%20"));
    }

    void emailComposerOpensAndCloses()
    {
        loadPage("/vantu/games/show-game/gid/7"_s, "iGameId = 7"_s);
        service->answer(
            "/vantu/games/recommend-via-mail/id/7"_s,
            {TestService::page("sSubject = 'Play', sTitle = 'ignored'; "_s + countClicks, "play"_s), 200, {}, 2000});
        service->answer("/vantu/games"_s, {TestService::page(countClicks, "games"_s)});
        waitForLoad([this] {
            page->on_UserRecommend(page->mdlRecommendModel.index(0));
            QCOMPARE(page->lblWebTitle->text(), "Send Message"_s);
            QCOMPARE(page->lblWebTitle->color(), QColor(Qt::black));
            QTRY_VERIFY(isLoading());
            QVERIFY(!page->btnCancel->isVisible());
            QTRY_VERIFY(page->btnCancel->isVisible() && page->btnSend->isVisible());
            QVERIFY(isLoading());
        });
        QCOMPARE(page->state, SendEmailState);
        QCOMPARE(shownUrl(), url("/vantu/games/recommend-via-mail/id/7"_s));
        QCOMPARE(page->webView->geometry(), QRectF(0, 310, 480, 530));
        QCOMPARE(shown(), "cancel send web recipients subject"_s);
        QCOMPARE(page->lblSubject->text(), "Subject: Play"_s);
        QCOMPARE(page->lblWebTitle->text(), "New message"_s);
        QVERIFY(!isOn(QWebSettings::TiledBackingStoreEnabled));
        waitUntilDrawn();
        click(page->webView);
        QCOMPARE(evaluate("clicks"_s).toInt(), 0);

        page->on_btnAddAddressClicked(); // does not load the friends
        QVERIFY(!isLoading());
        waitForLoad([this] {
            page->on_SelectButtonClicked(7);
            QCOMPARE(page->webView->geometry(), webViewPlace);
            QVERIFY(!page->addrWidget->isVisible() && !page->lblSubject->isVisible());
            QVERIFY(isOn(QWebSettings::TiledBackingStoreEnabled));
            QCOMPARE(page->lblWebTitle->text(), "New message"_s);
        });
        QCOMPARE(shownUrl(), url("/vantu/games"_s));
        QCOMPARE(shown(), "web tabs"_s);
        QCOMPARE(page->lblWebTitle->color(), QColor(Qt::white));
        // The page hears taps again, also where a script has opened the other composer over this one.
        page->openSendEmailPage();
        page->openSendMessagePage();
        page->oldURL = url("/vantu/games"_s);
        waitForLoad([this] { page->on_SelectButtonClicked(7); });
        QTRY_COMPARE(shown(), "web tabs"_s);
        waitUntilDrawn();
        click(page->webView);
        QTRY_COMPARE(evaluate("clicks"_s).toInt(), 1);
    }

private:
    /// Checks that the message composer shows as it was left, and that the next pick, or the page after cancelling,
    /// can be used.
    void composerIsBack(const QStringList &recipients, const QString &text)
    {
        QCOMPARE(page->state, SendMessageState);
        QCOMPARE(shown(), messageComposer);
        QVERIFY(!page->isInFriendSelectionScreen);
        QCOMPARE(page->addrWidget->getAllAddress(), recipients);
        QCOMPARE(page->txtMessage->text(), text);
        QVERIFY(page->webView->isEnabled());
        QCOMPARE(page->webView->geometry(), webViewPlace);
    }

    /// Waits for the one message box with @p text and answers it by @p key.
    void closeBox(const QString &text, Qt::Key key)
    {
        QTRY_VERIFY(qobject_cast<MMessageBox *>(window->topPanel()));
        const QPointer<MMessageBox> box = qobject_cast<MMessageBox *>(window->topPanel());
        QTRY_VERIFY(box->hasAppeared());
        QCOMPARE(box->text(), text);
        QTest::keyClick(window->viewport(), key);
        QTRY_VERIFY(!box || !box->isVisible());
        QVERIFY(!window->topPanel());
    }
};

PORTAL_TEST_MAIN(ComposerTest)
#include "tst_composer.moc"
