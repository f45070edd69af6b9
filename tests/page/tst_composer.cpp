// SPDX-License-Identifier: MIT
#include "portal.h"

#include "addresswidget.h"
#include "mybutton.h"

#include "mclosebutton.h"
#include "mdialog.h"
#include "mlabel.h"
#include "mmessagebox.h"
#include "mprogressindicator.h"
#include "mtextedit.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QTcpServer>
#include <QTcpSocket>
#include <QWebSettings>

using Variables = QMap<QString, QString>;
Q_DECLARE_METATYPE(Variables)

namespace {

/// What her profile hands over.
const Variables ann{{QStringLiteral("iUserId"), QStringLiteral("'p3'")},
                    {QStringLiteral("sUserName"), QStringLiteral("'Ann'")}};

const QRectF webViewPlace(0, 60, 480, 664);

QList<TestService::Request> posts(const Portal &portal)
{
    QList<TestService::Request> result;
    for (const TestService::Request &request : portal.service.requests()) {
        if (request.method == QLatin1String("POST"))
            result << request;
    }
    return result;
}

/// The dialogs on screen.
QList<MDialog *> dialogs(const Portal &portal)
{
    QList<MDialog *> result;
    for (QGraphicsItem *item : portal.window.scene()->items()) {
        auto *dialog = dynamic_cast<MDialog *>(item);
        if (dialog && dialog->isVisible())
            result << dialog;
    }
    return result;
}

/// As the panel's add button does.
void openList(Portal &portal)
{
    portal.service.answer(QStringLiteral("/vantu/friends"), {TestService::page({})});
    emit portal.page->addrWidget->btnAddressClicked();
    QTRY_VERIFY(!portal.page->progressIndicator->isVisible());
}

} // namespace

class ComposerTest : public QObject {
    Q_OBJECT

private slots:
    void messageComposerOpens()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.loadPage(QStringLiteral("/vantu/messages/index"));
        page.txtMessage->setText(QStringLiteral("left over"));
        page.on_SelectButtonClicked(3);
        QCOMPARE(page.state, SendMessageState);
        QVERIFY(page.addrWidget->isVisible());
        QVERIFY(page.txtMessage->isVisible());
        QVERIFY(page.txtMessage->text().isEmpty());
        QVERIFY(page.btnCancel->isVisible() && page.btnSend->isVisible());
        QVERIFY(!page.webView->isVisible());
        QVERIFY(!page.btnHome->isVisible());
        QVERIFY(!page.btnNewMessage->isVisible());
        QVERIFY(!page.lblSubject->isVisible());
        QCOMPARE(page.lblWebTitle->text(), QStringLiteral("Send Message"));
        QCOMPARE(page.lblWebTitle->color(), QColor(Qt::black));
        QCOMPARE(page.oldURL, Portal::url(QStringLiteral("/vantu/messages/index")));
    }

    void messageGoesOutOnce()
    {
        Portal portal;
        TestPage &page = *portal.page;
        page.userID = QStringLiteral("p12");
        page.recommendGameId = QStringLiteral("7");
        page.openSendMessagePage();
        page.addrWidget->addNewUIDAddress(QStringLiteral("Ann"), QStringLiteral("p3"));
        page.addrWidget->addNewUIDAddress(QStringLiteral("Bob"), QStringLiteral("p4"));
        page.txtMessage->setText(QStringLiteral(u"1+1=2 & ½\nça va?"));
        page.on_SelectButtonClicked(8);
        page.on_SelectButtonClicked(8);
        QCOMPARE(page.state, Normal);
        QTRY_COMPARE(posts(portal).size(), 1);
        QTRY_VERIFY(!page.progressIndicator->isVisible());
        QCOMPARE(posts(portal).size(), 1);
        const TestService::Request post = posts(portal).first();
        QCOMPARE(post.url, Portal::url(QStringLiteral("/vantu/messages/send-message/android_uid/7p12")));
        QVERIFY(post.body.startsWith("user_id[]=p3&user_id[]=p4&message="));
        QCOMPARE(QUrl::fromPercentEncoding(post.body.mid(post.body.indexOf("message=") + 8)),
                 QStringLiteral(u"1+1=2 & ½\nça va?"));
        QVERIFY(post.cookie.isEmpty());
    }

    void postsGoOutOnceAndAreGivenUp()
    {
        Portal portal;
        QTcpServer service;
        QVERIFY(service.listen(QHostAddress::LocalHost));
        QByteArray taken;
        bool hangsUp = false;
        connect(&service, &QTcpServer::newConnection, this, [&] {
            QTcpSocket *visitor = service.nextPendingConnection();
            connect(visitor, &QTcpSocket::readyRead, this, [&, visitor] {
                taken += visitor->readAll();
                if (hangsUp && taken.endsWith("message="))
                    visitor->close();
            });
        });
        QNetworkAccessManager &network = *portal.page->nwAccessMgr;
        network.setProxy(QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), service.serverPort()));
        for (int i = 0; i < 6; ++i) // As many as go out at a time.
            portal.page->doSendMessage();
        QTRY_COMPARE(taken.count("message="), 6);
        QTRY_VERIFY(network.findChildren<QNetworkReply *>().isEmpty());
        hangsUp = true;
        portal.page->doSendMessage();
        QTRY_VERIFY(network.findChildren<QNetworkReply *>().isEmpty());
        QCOMPARE(taken.count("message="), 7);
    }

    void cancelReturnsToThePageBefore()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.loadPage(QStringLiteral("/vantu/messages/index"),
                        {{QStringLiteral("sTitle"), QStringLiteral("'Inbox'")}});
        page.openSendMessagePage();
        portal.service.forget();
        QSignalSpy finished(page.webView, &QGraphicsWebView::loadFinished);
        page.on_SelectButtonClicked(7);
        QCOMPARE(page.lblWebTitle->text(), QStringLiteral("page title"));
        QCOMPARE(page.lblWebTitle->color(), QColor(Qt::white));
        QVERIFY(finished.wait());
        QCOMPARE(portal.service.urls(), {Portal::url(QStringLiteral("/vantu/messages/index"))});
        QVERIFY(page.webView->isVisible());
        QVERIFY(!page.addrWidget->isVisible() && !page.txtMessage->isVisible());
        QVERIFY(page.btnNewMessage->isVisible());
        QCOMPARE(page.lblWebTitle->text(), QStringLiteral("Inbox"));

        portal.service.forget();
        page.on_SelectButtonClicked(7); // In the normal state it closes the keyboard and no more.
        QVERIFY(portal.service.requests().isEmpty());
    }

    void friendsArePickedFromTheList()
    {
        Portal portal;
        TestPage &page = *portal.page;
        page.openSendMessagePage();
        page.txtMessage->setText(QStringLiteral("written before"));
        openList(portal);
        QCOMPARE(page.webView->geometry(), QRectF(0, 0, 480, 814));
        QVERIFY(page.isInFriendSelectionScreen);
        QVERIFY(!page.addrWidget->isVisible() && !page.txtMessage->isVisible() && !page.btnSend->isVisible());
        QVERIFY(page.webView->isEnabled());

        bool deaf = false;
        QObject observer;
        connect(page.webView, &QGraphicsWebView::urlChanged, &observer, [&] { deaf = !page.webView->isEnabled(); });
        portal.loadPage(QStringLiteral("/vantu/account/index/uid/p3"), ann);
        QCOMPARE(page.state, SendMessageState);
        QVERIFY(deaf); // No second tap while the first friend is on the way.
        QVERIFY(!page.isInFriendSelectionScreen);
        QVERIFY(page.addrWidget->isVisible() && page.txtMessage->isVisible());
        QVERIFY(page.btnSend->isVisible() && page.btnCancel->isVisible());
        QVERIFY(!page.webView->isVisible());
        QVERIFY(page.webView->isEnabled());
        QCOMPARE(page.webView->geometry(), webViewPlace);
        QCOMPARE(page.addrWidget->getAllAddress(), QStringList(QStringLiteral("p3")));
        QCOMPARE(page.txtMessage->text(), QStringLiteral("written before"));
    }

    void onlyAPickAddsSomebody_data()
    {
        QTest::addColumn<bool>("picking");
        QTest::addColumn<QString>("path");
        QTest::addColumn<Variables>("variables");
        QTest::addColumn<QString>("outcome");
        const auto row = [](const char *name, bool picking, const char *path, const Variables &variables,
                            const char *outcome) {
            QTest::newRow(name) << picking << QString::fromLatin1(path) << variables << QString::fromLatin1(outcome);
        };
        const Variables nameOnly{{QStringLiteral("sUserName"), QStringLiteral("'Ann'")}};
        row("profile picked", true, "/vantu/account/index/uid/p3", ann, "p3");
        row("profile under the composer", false, "/vantu/account/index/uid/p3", ann, "");
        row("page without a player", true, "/vantu/info/", {}, "");
        row("player without a name", true, "/vantu/account/index/uid/p3",
            {{QStringLiteral("iUserId"), QStringLiteral("'p3'")}}, "");
        row("name without a player", true, "/vantu/account/index/uid/p3", nameOnly, "");
        row("the list again", true, "/vantu/friends", {}, "picking");
        row("another page of the list", true, "/vantu/friends/index/page/2", {}, "picking");
        row("the list under the composer", false, "/vantu/friends/", {}, "");
    }

    void onlyAPickAddsSomebody()
    {
        QFETCH(bool, picking);
        QFETCH(QString, path);
        QFETCH(Variables, variables);
        Portal portal;
        TestPage &page = *portal.page;
        // What an earlier page has named stands in the members still.
        portal.loadPage(QStringLiteral("/vantu/account/index/uid/p9"),
                        {{QStringLiteral("iUserId"), QStringLiteral("'p9'")},
                         {QStringLiteral("sUserName"), QStringLiteral("'Eve'")}});
        page.openSendMessagePage();
        if (picking)
            openList(portal);
        else
            portal.load(QStringLiteral("/vantu/info/"), "<script>VANTU.on_btnAddAddressClicked()</script>");
        portal.loadPage(path, variables);
        const bool isBack = page.addrWidget->isVisible() && page.btnCancel->isVisible() && !page.webView->isVisible();
        const QString outcome
            = isBack ? page.addrWidget->getAllAddress().join(QLatin1Char(',')) : QStringLiteral("picking");
        QTEST(outcome, "outcome");
        QVERIFY(page.webView->isEnabled());
    }

    void listIsOpenedOverAPageOnItsWay()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.service.answer(QStringLiteral("/vantu/slow"), {TestService::page(ann), 200, {}, 300});
        page.webView->setUrl(QUrl(Portal::url(QStringLiteral("/vantu/slow"))));
        page.openSendMessagePage();
        openList(portal);
        QCOMPARE(portal.shownUrl(), Portal::url(QStringLiteral("/vantu/friends")));
        QVERIFY(page.webView->isVisible() && !page.addrWidget->isVisible());
    }

    void pickingCanBeLeft_data()
    {
        QTest::addColumn<int>("delay"); // of the list, in milliseconds
        QTest::newRow("a list that comes") << 0;
        QTest::newRow("a list that does not come") << 2000;
    }

    void pickingCanBeLeft()
    {
        QFETCH(int, delay);
        Portal portal;
        TestPage &page = *portal.page;
        page.openSendMessagePage();
        page.addrWidget->addNewUIDAddress(QStringLiteral("Bob"), QStringLiteral("p4"));
        page.txtMessage->setText(QStringLiteral("kept"));
        portal.service.answer(QStringLiteral("/vantu/friends"), {TestService::page({}), 200, {}, delay});
        emit page.addrWidget->btnAddressClicked();
        QVERIFY(!page.btnStopPicking->isVisible());
        QTRY_VERIFY(page.btnStopPicking->isVisible());
        const QPoint centre = portal.window.mapFromScene(page.btnStopPicking->sceneBoundingRect().center());
        QTest::mouseClick(portal.window.viewport(), Qt::LeftButton, Qt::NoModifier, centre);
        QVERIFY(!page.btnStopPicking->isVisible() && !page.webView->isVisible()
                && !page.progressIndicator->isVisible());
        QVERIFY(page.addrWidget->isVisible() && page.btnCancel->isVisible() && page.btnSend->isVisible());
        QCOMPARE(page.addrWidget->getAllAddress(), QStringList(QStringLiteral("p4")));
        QCOMPARE(page.txtMessage->text(), QStringLiteral("kept"));
        QCOMPARE(page.state, SendMessageState);
    }

    void slowLoadUnderAComposerShowsTheWayOut()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.service.answer(QStringLiteral("/vantu/games/recommend-via-mail/id/"),
                              {TestService::page({}), 200, {}, 2000});
        page.openSendEmailPage();
        QTRY_VERIFY(page.progressIndicator->isVisible());
        QVERIFY(!page.btnCancel->isVisible());
        QTRY_VERIFY(page.btnCancel->isVisible() && page.btnSend->isVisible());
        QVERIFY(page.progressIndicator->isVisible());
    }

    void keysWriteAndPick()
    {
        Portal portal;
        TestPage &page = *portal.page;
        const auto press = [&portal](Qt::Key key) { QTest::keyClick(&portal.window, key); };
        QVERIFY(QTest::qWaitForWindowActive(&portal.window));
        const QString inbox = QStringLiteral("/vantu/messages/index");
        const QString conversation = inbox + QStringLiteral("/uid/p3");
        portal.loadPage(inbox, {}, QStringLiteral("<a href='%1'>Ann</a>").arg(conversation));
        portal.service.answer(conversation, {TestService::page({})});
        portal.service.answer(QStringLiteral("/vantu/account/index/uid/p3"), {TestService::page(ann)});
        const QByteArray list = "<a href='/vantu/info/'>x</a><br><a href='/vantu/account/index/uid/p3'>Ann</a>";
        portal.service.answer(QStringLiteral("/vantu/friends"), {list});
        press(Qt::Key_Tab);
        QVERIFY(page.btnNewMessage->hasFocus());
        press(Qt::Key_Tab);
        press(Qt::Key_Tab); // in the page, to its link
        portal.waitForLoad([&] { press(Qt::Key_Return); });
        QCOMPARE(portal.shownUrl(), Portal::url(conversation));
        press(Qt::Key_Backtab);
        QVERIFY(page.btnNewMessage->hasFocus());
        press(Qt::Key_Return);
        QCOMPARE(page.state, SendMessageState);
        QTest::keyClicks(&portal.window, QStringLiteral("Hi"));
        QCOMPARE(page.txtMessage->text(), QStringLiteral("Hi"));

        press(Qt::Key_Backtab); // to the add button
        press(Qt::Key_Return);
        QVERIFY(page.isPickingFriend && page.webView->hasFocus());
        QTRY_VERIFY(!page.progressIndicator->isVisible());
        press(Qt::Key_Up); // round to the last
        press(Qt::Key_Return);
        QTRY_COMPARE(page.addrWidget->getAllAddress(), QStringList(QStringLiteral("p3")));

        press(Qt::Key_Backtab);
        press(Qt::Key_Backtab);
        press(Qt::Key_Return);
        QVERIFY(page.isPickingFriend);
        press(Qt::Key_Escape);
        QVERIFY(page.addrWidget->isVisible() && !page.webView->isVisible());
        QTest::keyClicks(&portal.window, QStringLiteral("!"));
        QCOMPARE(page.txtMessage->text(), QStringLiteral("Hi!"));
        QTest::keyClick(&portal.window, Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(page.state, Normal);
        QVERIFY2(!portal.window.scene()->focusItem(), "what is hidden has given up the focus");
    }

    void failedPickBringsTheComposerBack()
    {
        Portal portal;
        TestPage &page = *portal.page;
        page.openSendMessagePage();
        page.txtMessage->setText(QStringLiteral("kept"));
        openList(portal);
        portal.service.goSilent();
        portal.waitForLoad(
            [&] { page.webView->setUrl(QUrl(Portal::url(QStringLiteral("/vantu/account/index/uid/p3")))); });
        QVERIFY(page.addrWidget->isVisible() && page.txtMessage->isVisible());
        QVERIFY(page.btnSend->isVisible() && page.btnCancel->isVisible());
        QVERIFY(!page.webView->isVisible());
        QVERIFY(!page.isInFriendSelectionScreen);
        QCOMPARE(page.txtMessage->text(), QStringLiteral("kept"));
        QCOMPARE(page.addrWidget->getRecipientsCount(), 0);
        // The next pick, or the page after cancelling, can be used.
        QVERIFY(page.webView->isEnabled());
        QCOMPARE(page.webView->geometry(), webViewPlace);
    }

    void sendChecksRecipientsFirst()
    {
        Portal portal;
        TestPage &page = *portal.page;
        for (const VantuState state : {SendMessageState, SendEmailState, Normal}) {
            page.state = state;
            page.on_SelectButtonClicked(8);
            QTRY_VERIFY(dialogs(portal).size() == 1 && dialogs(portal).first()->hasAppeared());
            QCOMPARE(static_cast<MMessageBox *>(dialogs(portal).first())->text(),
                     QStringLiteral("Please select at least one recipient"));
            QTest::keyClick(portal.window.viewport(), Qt::Key_Return);
            QTRY_VERIFY(dialogs(portal).isEmpty());
            QCOMPARE(page.state, state);
        }
        QVERIFY(posts(portal).isEmpty());
    }

    void sendRefusesAnEmptyMessageOnly()
    {
        Portal portal;
        TestPage &page = *portal.page;
        page.openSendMessagePage();
        page.addrWidget->addNewUIDAddress(QStringLiteral("Ann"), QStringLiteral("p3"));
        page.on_SelectButtonClicked(8);
        QTRY_COMPARE(dialogs(portal).size(), 1);
        QCOMPARE(static_cast<MMessageBox *>(dialogs(portal).first())->text(),
                 QStringLiteral("You cannot send an empty message"));
        QCOMPARE(page.state, SendMessageState);
        QCOMPARE(page.addrWidget->getRecipientsCount(), 1);
        QVERIFY(posts(portal).isEmpty());
        QTest::keyClick(portal.window.viewport(), Qt::Key_Escape);
        QTRY_VERIFY(dialogs(portal).isEmpty());

        page.txtMessage->setText(QStringLiteral("  "));
        page.on_SelectButtonClicked(8);
        QTRY_COMPARE(posts(portal).size(), 1);
        QVERIFY(posts(portal).first().body.endsWith("&message=%20%20"));
    }

    void emailComposerOpensAndCloses()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.loadPage(QStringLiteral("/vantu/games/show-game/gid/7"),
                        {{QStringLiteral("iGameId"), QStringLiteral("7")}});
        portal.service.answer(QStringLiteral("/vantu/games/recommend-via-mail/id/7"),
                              {TestService::page({{QStringLiteral("sSubject"), QStringLiteral("'Play'")},
                                                  {QStringLiteral("sTitle"), QStringLiteral("'ignored'")}})});
        portal.service.answer(QStringLiteral("/vantu/games"), {TestService::page({})});
        QSignalSpy finished(page.webView, &QGraphicsWebView::loadFinished);
        page.on_UserRecommend(page.mdlRecommendModel.index(0));
        QVERIFY(finished.wait());
        QCOMPARE(page.state, SendEmailState);
        QCOMPARE(portal.shownUrl(), Portal::url(QStringLiteral("/vantu/games/recommend-via-mail/id/7")));
        QCOMPARE(page.webView->geometry(), QRectF(0, 310, 480, 530));
        QVERIFY(page.webView->isVisible() && page.addrWidget->isVisible() && page.lblSubject->isVisible());
        QVERIFY(!page.txtMessage->isVisible() && !page.btnHome->isVisible());
        QVERIFY(page.btnCancel->isVisible() && page.btnSend->isVisible());
        QCOMPARE(page.lblSubject->text(), QStringLiteral("Subject: Play"));
        QCOMPARE(page.lblWebTitle->text(), QStringLiteral("New message"));
        QVERIFY(!page.webView->settings()->testAttribute(QWebSettings::TiledBackingStoreEnabled));

        page.on_SelectButtonClicked(7);
        QCOMPARE(page.webView->geometry(), webViewPlace);
        QVERIFY(!page.addrWidget->isVisible() && !page.lblSubject->isVisible());
        QVERIFY(page.webView->settings()->testAttribute(QWebSettings::TiledBackingStoreEnabled));
        QCOMPARE(page.lblWebTitle->text(), QStringLiteral("New message"));
        QVERIFY(finished.wait());
        QCOMPARE(portal.shownUrl(), Portal::url(QStringLiteral("/vantu/games")));
        QVERIFY(page.btnHome->isVisible() && !page.btnCancel->isVisible());
    }

    void addButtonOfAnInvitationNeverLoadsTheFriends()
    {
        Portal portal;
        TestPage &page = *portal.page;
        page.openSendEmailPage();
        QTRY_VERIFY(!page.progressIndicator->isVisible());
        portal.service.forget();
        page.on_btnAddAddressClicked();
        QVERIFY(page.addrWidget->isVisible());
        QVERIFY(!page.progressIndicator->isVisible());
        QVERIFY(portal.service.requests().isEmpty());
    }
};

PORTAL_TEST_MAIN(ComposerTest)
#include "tst_composer.moc"
