// SPDX-License-Identifier: MIT
#include "portal.h"

#include "addresswidget.h"
#include "mybutton.h"
#include "navigationrules.h"
#include "retrybutton.h"

#include "mbutton.h"
#include "mbuttongroup.h"
#include "mlabel.h"
#include "mprogressindicator.h"

#include <QBuffer>
#include <QImage>
#include <QWebFrame>
#include <QWebHistory>
#include <QWebSettings>

static bool tiles(const Portal &portal)
{
    return portal.page->webView->settings()->testAttribute(QWebSettings::TiledBackingStoreEnabled);
}

static bool scripts(const Portal &portal)
{
    return portal.page->webView->settings()->testAttribute(QWebSettings::JavascriptEnabled);
}

class LifecycleTest : public QObject {
    Q_OBJECT

private slots:
    void startPageIsAskedForOnce()
    {
        TestService service;
        g_KVB = 12;
        g_languageIdx = 3;
        TestPage page;
        QTRY_COMPARE(service.requests().size(), 1);
        const QString url = service.urls().first();
        g_KVB = 0;
        g_languageIdx = 0;
        QVERIFY2(url.startsWith(Portal::url(QStringLiteral("/vantu/?lg=IT&country="))), qPrintable(url));
        QVERIFY2(
            url.endsWith(QLatin1String("&KVB=12&username=&pass=&remember_me=0&type=MEEGO&width=480&height=854&fb=1")),
            qPrintable(url));
    }

    void chromeDuringAndAfterALoad()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.service.answer(QStringLiteral("/vantu/games"), {TestService::page({}), 200, {}, 300});
        QSignalSpy finished(page.webView, &QGraphicsWebView::loadFinished);
        page.webView->setUrl(QUrl(Portal::url(QStringLiteral("/vantu/games"))));
        QTRY_VERIFY(page.progressIndicator->isVisible());
        QVERIFY(page.btnQuit->isVisible());
        QVERIFY(!page.btnBack->isVisible());
        QVERIFY(finished.wait());
        QVERIFY(!page.progressIndicator->isVisible());
        QVERIFY(!page.btnQuit->isVisible());
        QVERIFY(page.btnHome->isVisible());
        QCOMPARE(page.webView->zoomFactor(), 1.5);
    }

    void failedLoadLeavesAWayOut_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("tap on the picture") << false;
        QTest::newRow("Return") << true;
    }
    void failedLoadLeavesAWayOut()
    {
        QFETCH(bool, byKey);
        Portal portal;
        QVERIFY(QTest::qWaitForWindowActive(&portal.window));
        TestPage &page = *portal.page;
        portal.loadPage(QStringLiteral("/vantu/friends"), {{QStringLiteral("sTitle"), QStringLiteral("'Friends'")}});
        QVERIFY(!page.btnQuit->isVisible());
        portal.service.goSilent();
        QSignalSpy finished(page.webView, &QGraphicsWebView::loadFinished);
        page.on_ToggleButtonClicked(3);
        QVERIFY(finished.wait());
        QCOMPARE(finished.takeFirst().first().toBool(), false);
        QVERIFY(page.btnQuit->isVisible());
        QVERIFY(!page.btnAdd->isVisible());
        QVERIFY(!page.progressIndicator->isVisible());
        QCOMPARE(page.lblWebTitle->text(), QStringLiteral("Friends"));
        QCOMPARE(page.webView->page()->mainFrame()->toPlainText(), QString());

        // In the page's place stands a picture, which tries again.
        const auto items = page.webView->childItems();
        const auto found = std::find_if(items.begin(), items.end(), [](QGraphicsItem *item) {
            return qobject_cast<RetryButton *>(item->toGraphicsObject()) && item->isVisible();
        });
        QVERIFY(found != items.end());
        const QGraphicsItem *picture = *found;
        portal.service.comeBack();
        portal.service.forget();
        portal.service.answer(QStringLiteral("/vantu/games"), {TestService::page({})});
        if (byKey)
            QTest::keyClick(&portal.window, Qt::Key_Return);
        else
            QTest::mouseClick(portal.window.viewport(), Qt::LeftButton, {},
                              portal.window.mapFromScene(picture->sceneBoundingRect().center()));
        QVERIFY(finished.wait());
        QCOMPARE(portal.service.urls(), QStringList(Portal::url(QStringLiteral("/vantu/games"))));
        QVERIFY(!page.btnQuit->isVisible());
        QVERIFY(!picture->isVisible());

        // A link that leads nowhere leaves its page in sight.
        portal.service.goSilent();
        page.webView->load(QUrl(Portal::url(QStringLiteral("/vantu/info/"))));
        QVERIFY(finished.wait());
        QVERIFY(!picture->isVisible());
    }

    void anyKindOfPageCanBeLeft_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<QByteArray>("content");
        QByteArray png;
        QBuffer buffer(&png);
        QImage picture(2, 2, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(&buffer, "PNG");
        QTest::newRow("picture") << QByteArray("image/png") << png;
        QTest::newRow("broken picture") << QByteArray("image/png") << png.left(12);
        QTest::newRow("empty picture") << QByteArray("image/jpeg") << QByteArray();
        QTest::newRow("drawing") << QByteArray("image/svg+xml")
                                 << QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>");
        QTest::newRow("broken XML") << QByteArray("text/xml") << QByteArray("<a><b");
        QTest::newRow("text") << QByteArray("text/plain") << QByteArray("text");
        QTest::newRow("sound") << QByteArray("audio/wav") << QByteArray("RIFF");
    }

    void anyKindOfPageCanBeLeft()
    {
        QFETCH(QByteArray, type);
        QFETCH(QByteArray, content);
        Portal portal;
        TestPage &page = *portal.page;
        const auto tab = [&](int id) {
            emit page.toggleButtons->buttonClicked(id);
            const QString path = id == 0 ? QStringLiteral("/vantu/") : QStringLiteral("/vantu/friends");
            QCOMPARE(portal.shownUrl(), Portal::url(path)); // At once, before the service has answered.
            QTRY_VERIFY(!page.progressIndicator->isVisible());
        };
        portal.service.answer(QStringLiteral("/vantu/friends"), {content, 200, {}, 0, type});
        tab(2);
        tab(0);
        page.openSendMessagePage();
        emit page.addrWidget->btnAddressClicked();
        QTRY_VERIFY(!page.progressIndicator->isVisible());
        emit page.selectButtons->buttonClicked(7);
        QTRY_COMPARE(portal.shownUrl(), Portal::url(QStringLiteral("/vantu/")));
        QTRY_VERIFY(!page.progressIndicator->isVisible());
        QCOMPARE(page.state, Normal);
    }

    void linkWithoutAPageLeavesTheOneOnDisplay_data()
    {
        QTest::addColumn<QString>("target");
        QTest::newRow("empty answer") << Portal::url(QStringLiteral("/nothing"));
        QTest::newRow("download") << Portal::url(QStringLiteral("/archive"));
        QTest::newRow("mail") << QStringLiteral("mailto:support@vantu.test");
        QTest::newRow("unknown scheme") << QStringLiteral("strange:address");
    }

    void linkWithoutAPageLeavesTheOneOnDisplay()
    {
        QFETCH(QString, target);
        Portal portal;
        TestPage &page = *portal.page;
        portal.service.answer(QStringLiteral("/nothing"), {{}, 204});
        portal.service.answer(QStringLiteral("/archive"), {"PK", 200, {}, 0, "application/zip"});
        const auto follow = [&] {
            portal.waitForLoad([&] {
                page.webView->page()->mainFrame()->evaluateJavaScript(QStringLiteral("location = '%1'").arg(target));
            });
        };
        portal.loadPage(QStringLiteral("/vantu/friends"), {}, QStringLiteral("the friends"));
        follow();
        QVERIFY(page.btnAdd->isVisible() && page.btnFriend->isVisible());
        QVERIFY(!page.btnQuit->isVisible());
        QVERIFY(!page.progressIndicator->isVisible());
        QCOMPARE(page.webView->page()->mainFrame()->toPlainText(), QStringLiteral("the friends"));

        page.openSendMessagePage();
        emit page.addrWidget->btnAddressClicked();
        QTRY_VERIFY(!page.progressIndicator->isVisible());
        QVERIFY(page.webView->isVisible());
        follow();
        QVERIFY(page.addrWidget->isVisible() && page.btnCancel->isVisible() && !page.webView->isVisible());
        QCOMPARE(page.addrWidget->getRecipientsCount(), 0);
    }

    void errorPageIsRecognised_data()
    {
        QTest::addColumn<QString>("sentence");
        for (const char *sentence : errorSentences)
            QTest::newRow(sentence) << QString::fromUtf8(sentence);
    }

    void errorPageIsRecognised()
    {
        QFETCH(QString, sentence);
        Portal portal;
        portal.loadPage(QStringLiteral("/vantu/error"), {{QStringLiteral("sTitle"), QStringLiteral("'Oops'")}},
                        QStringLiteral("<p>%1.</p>").arg(sentence));
        QVERIFY(onErrorPage);
        QVERIFY(!tiles(portal));
        QVERIFY(portal.page->webView->page()->selectedText().isEmpty());
        QCOMPARE(portal.page->lblWebTitle->text(), QStringLiteral("Oops"));

        portal.loadPage(QStringLiteral("/vantu/games"), {}, QStringLiteral("An error has occurred"));
        QVERIFY(!onErrorPage);
        QVERIFY(tiles(portal));
    }

    void twitterPageSwitchesScriptsOff()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.service.answerUrl(QStringLiteral("http://twitter.test/share"), {TestService::page({})});
        QStringList log;
        QObject observer;
        connect(page.webView, &QGraphicsWebView::urlChanged, &observer,
                [&] { log << (scripts(portal) ? QStringLiteral("on") : QStringLiteral("off")); });
        connect(page.webView, &QGraphicsWebView::loadFinished, &observer,
                [&] { log << (scripts(portal) ? QStringLiteral("on") : QStringLiteral("off")); });
        QSignalSpy finished(page.webView, &QGraphicsWebView::loadFinished);
        page.webView->setUrl(QUrl(QStringLiteral("http://twitter.test/share")));
        QTRY_VERIFY(!finished.isEmpty());
        QCOMPARE(log.first(), QStringLiteral("off"));
        QVERIFY(onTwitterPage);
        QVERIFY(!tiles(portal));
        QVERIFY(scripts(portal)); // Back on once the page has loaded.

        portal.loadPage(QStringLiteral("/vantu/games/signal-twitter-send/gid/7"));
        QVERIFY(onTwitterPage); // Both ends hold the word.
        portal.loadPage(QStringLiteral("/vantu/games"));
        portal.loadPage(QStringLiteral("/vantu/friends"));
        QVERIFY(!onTwitterPage);
        QVERIFY(tiles(portal));
    }

    void backFromFacebookLoadsTheOldPage()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.loadPage(QStringLiteral("/vantu/games/show-game/gid/7"));
        portal.service.answerUrl(QStringLiteral("http://facebook.test/share"), {TestService::page({})});
        page.oldURL = Portal::url(QStringLiteral("/vantu/games/show-game/gid/8"));
        portal.waitForLoad([&] { page.webView->setUrl(QUrl(QStringLiteral("http://facebook.test/share"))); });
        portal.service.answer(QStringLiteral("/vantu/games"), {TestService::page({})});
        page.goBack();
        // Setting the old page's address reports it at once, so the rule for game pages follows right behind.
        QTRY_COMPARE(portal.shownUrl(), Portal::url(QStringLiteral("/vantu/games")));
        QTRY_VERIFY(!page.progressIndicator->isVisible());
    }
};

PORTAL_TEST_MAIN(LifecycleTest)
#include "tst_lifecycle.moc"
