// SPDX-License-Identifier: MIT
#include "mfocusring.h"
#include "portal.h"

#include "navigationrules.h"
#include "retrybutton.h"

#include <QImage>

class LifecycleTest : public PortalTest {
    Q_OBJECT

private slots:
    void noWhiteSheetBeforeTheFirstPage()
    {
        service->answer("/vantu/"_s, {"<body bgcolor='red'>", 200, {}, 500});
        page = std::make_unique<TestPage>();
        page->appear(window.get(), MSceneWindow::KeepWhenDone);
        QTRY_COMPARE(service->requests().size(), 1);
        QTRY_VERIFY(window->grab().toImage().pixelColor(240, 100) != Qt::white);
        QTRY_COMPARE(window->grab().toImage().pixelColor(240, 100), QColor(Qt::red));
    }

    void chromeDuringAndAfterALoad()
    {
        service->answer("/vantu/games"_s, {TestService::page({}, "<p style='height: 2000px'>"_s), 200, {}, 300});
        waitForLoad([this] {
            page->webView->setUrl(QUrl(url("/vantu/games"_s)));
            QTRY_VERIFY(isLoading());
            QCOMPARE(shown(), "quit web tabs"_s);
        });
        QVERIFY(!isLoading());
        QCOMPARE(shown(), "web tabs"_s);
        QCOMPARE(page->webView->zoomFactor(), 1.5);
        QWebFrame *frame = page->webView->page()->mainFrame();
        QTRY_COMPARE(frame->scrollPosition(), QPoint(0, 1));
        // The page keeps up with a slow finger, whatever its pixels are on the screen.
        for (int i = 0; i < 60; ++i)
            frame->scroll(0, 1);
        QTRY_VERIFY(qAbs(frame->scrollPosition().y() - 61) <= 1);
        QCOMPARE(page->webView->palette().color(QPalette::Window), QColor(Qt::white));
    }

    void failedLoadLeavesAWayOut()
    {
        constexpr bool errorsAreEntries = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        for (const bool byKey : {false, true}) {
            service->isSilent = false;
            loadPage("/vantu/friends"_s, "sTitle = 'Friends'"_s);
            QCOMPARE(shown(), "add web tabs"_s);
            service->isSilent = true;
            QVERIFY(!waitForLoad([this] { page->on_ToggleButtonClicked(3); }));
            QCOMPARE(shown(), "quit web tabs"_s);
            QVERIFY(!isLoading());
            QCOMPARE(page->webView->history()->canGoBack(), errorsAreEntries);
            QCOMPARE(page->lblWebTitle->text(), "Friends"_s);
            QCOMPARE(page->webView->page()->mainFrame()->toPlainText(), QString());

            // In the page's place stands a picture, which tries again.
            const QGraphicsItem *picture = retryPicture();
            QVERIFY(picture && picture->isVisible());
            service->isSilent = false;
            service->forget();
            QVERIFY(waitForLoad([&] { byKey ? QTest::keyClick(window.get(), Qt::Key_Return) : click(picture); }));
            QCOMPARE(service->urls(), QStringList(url("/vantu/games"_s)));
            QCOMPARE(shown(), "web tabs"_s);
            QVERIFY(!picture->isVisible());
            QCOMPARE(!only<MFocusRing>(page->webView->childItems()).isEmpty(), byKey);

            // A link that leads nowhere leaves its page in sight, unless the engine has begun the next with its
            // headers.
            service->isSilent = true;
            for (const QString &target : {"https://vantu.test/"_s, url("/vantu/info/"_s)}) {
                waitForLoad([&] { evaluate("location = '%1'"_s.arg(target)); });
                QCOMPARE(shown(), "quit web tabs"_s);
                QCOMPARE(picture->isVisible(),
                         QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) && target.startsWith(url(QString())));
            }
        }
    }

    void pageOfAKilledProcessCanBeAskedForAgain()
    {
        if (QT_VERSION < QT_VERSION_CHECK(6, 0, 0))
            QSKIP("Pages of this engine have no process of their own");
        const auto killPage = [this] {
            pid_t process = 0;
            for (const QObject *part : page->webView->page()->children())
                process = qMax(process, part->property("renderProcessPid").value<pid_t>());
            QVERIFY(process > 0 && ::kill(process, SIGKILL) == 0);
        };
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        loadPage("/vantu/friends"_s);
        waitForLoad([this] { evaluate("location = '/vantu/games'"_s); });
        service->forget();
        QVERIFY(!waitForLoad(killPage));
        QCOMPARE(shown(), "quit web tabs"_s);
        QVERIFY(retryPicture() && retryPicture()->isVisible());
        QVERIFY(waitForLoad([this] { QTest::keyClick(window.get(), Qt::Key_Return); }));
        QCOMPARE(service->urls(), QStringList(url("/vantu/games"_s)));
        QCOMPARE(shown(), "web tabs"_s);
        QVERIFY(!retryPicture()->isVisible());

        page->openSendMessagePage();
        QVERIFY(!waitForLoad(killPage));
        QCOMPARE(shown(), "cancel send recipients text"_s);
        QTest::keyClicks(window.get(), "a"_s);
        QCOMPARE(page->txtMessage->text(), "a"_s);
        QVERIFY(waitForLoad([this] { page->on_SelectButtonClicked(7); }));
        QCOMPARE(shown(), "web tabs"_s);
        QVERIFY(!retryPicture()->isVisible());
    }

    void anyKindOfPageCanBeLeft_data()
    {
        const Table<QByteArray, QByteArray> row("type", "content");
        QByteArray png;
        QBuffer buffer(&png);
        QImage picture(2, 2, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(&buffer, "PNG");
        row("picture", "image/png", png);
        row("broken picture", "image/png", png.left(12));
        row("empty picture", "image/jpeg", {});
        row("drawing", "image/svg+xml", "<svg xmlns='http://www.w3.org/2000/svg'/>");
        row("broken XML", "text/xml", "<a><b");
        row("text", "text/plain", "text");
        row("sound", "audio/wav", "RIFF");
    }

    void anyKindOfPageCanBeLeft()
    {
        QFETCH(QByteArray, type);
        QFETCH(QByteArray, content);
        const auto tab = [&](int id) {
            emit page->toggleButtons->buttonClicked(id);
            const QString path = id == 0 ? "/vantu/"_s : "/vantu/friends"_s;
            QCOMPARE(shownUrl(), url(path)); // At once, before the service has answered.
            QTRY_VERIFY(!isLoading());
        };
        service->answer("/vantu/friends"_s, {content, 200, {}, 0, type});
        tab(2);
        tab(0);
        page->openSendMessagePage();
        openList();
        emit page->selectButtons->buttonClicked(7);
        QTRY_COMPARE(shownUrl(), url("/vantu/"_s));
        QTRY_VERIFY(!isLoading());
        QCOMPARE(page->state, Normal);
    }

    void linkWithoutAPageLeavesTheOneOnDisplay_data()
    {
        const Table<QString> row("target");
        row("empty answer", url("/nothing"_s));
        row("download", url("/archive"_s));
        row("mail", "mailto:support@vantu.test"_s);
        row("unknown scheme", "strange:address"_s);
    }

    void linkWithoutAPageLeavesTheOneOnDisplay()
    {
        QFETCH(QString, target);
        service->answer("/nothing"_s, {{}, 204});
        service->answer("/archive"_s, {"PK", 200, {}, 0, "application/zip"});
        const auto follow = [&] { waitForLoad([&] { evaluate("location = '%1'"_s.arg(target)); }); };
        loadPage("/vantu/friends"_s, {}, "the friends"_s);
        follow();
        QCOMPARE(shown(), "add web tabs"_s);
        QVERIFY(!isLoading());
        QCOMPARE(page->webView->page()->mainFrame()->toPlainText(), "the friends"_s);

        page->openSendMessagePage();
        openList();
        QVERIFY(page->webView->isVisible());
        follow();
        QCOMPARE(shown(), "cancel send recipients text"_s);
        QCOMPARE(page->addrWidget->getRecipientsCount(), 0);
    }

    void errorPageIsRecognised()
    {
        for (const char *sentence : errorSentences) {
            loadPage("/vantu/error"_s, "sTitle = 'Oops'"_s, "<p>%1.</p>"_s.arg(QString::fromUtf8(sentence)));
            QVERIFY2(onErrorPage, sentence);
            QVERIFY(!isOn(QWebSettings::TiledBackingStoreEnabled));
            QVERIFY(page->webView->page()->selectedText().isEmpty());
            QCOMPARE(page->lblWebTitle->text(), "Oops"_s);

            loadPage("/vantu/games"_s, {}, "An error has occurred"_s);
            QVERIFY(!onErrorPage);
            QVERIFY(isOn(QWebSettings::TiledBackingStoreEnabled));
        }
    }

    void twitterPageSwitchesScriptsOff()
    {
        service->answer("http://twitter.test/share"_s, {TestService::page({})});
        QVector<bool> scripts;
        const auto note = [&] { scripts << isOn(QWebSettings::JavascriptEnabled); };
        connect(page->webView, &QGraphicsWebView::urlChanged, page.get(), note);
        connect(page->webView, &QGraphicsWebView::loadFinished, page.get(), note);
        visit("http://twitter.test/share"_s);
        QCOMPARE(scripts.first(), false);
        QVERIFY(onTwitterPage);
        QVERIFY(!isOn(QWebSettings::TiledBackingStoreEnabled));
        QVERIFY(isOn(QWebSettings::JavascriptEnabled)); // Back on once the page has loaded.

        loadPage("/vantu/games/signal-twitter-send/gid/7"_s);
        QVERIFY(onTwitterPage); // Both ends hold the word.
        loadPage("/vantu/games"_s);
        loadPage("/vantu/friends"_s);
        QVERIFY(!onTwitterPage);
        QVERIFY(isOn(QWebSettings::TiledBackingStoreEnabled));
    }

    void backFromFacebookLoadsTheOldPage()
    {
        loadPage("/vantu/games/show-game/gid/7"_s);
        service->answer("http://facebook.test/share"_s, {TestService::page({})});
        page->oldURL = url("/vantu/games/show-game/gid/8"_s);
        visit("http://facebook.test/share"_s);
        page->goBack();
        // Setting the old page's address reports it at once, so the rule for game pages follows right behind.
        QTRY_COMPARE(shownUrl(), url("/vantu/games"_s));
        QTRY_VERIFY(!isLoading());
    }

private:
    const QGraphicsItem *retryPicture() const { return only<RetryButton>(page->webView->childItems()).value(0); }
};

PORTAL_TEST_MAIN(LifecycleTest)
#include "tst_lifecycle.moc"
