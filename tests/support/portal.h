// SPDX-License-Identifier: MIT
#pragma once

#include "addresswidget.h"
#include "finger.h"
#include "globaldefine.h"
#include "mybutton.h"
#include "myqwebview.h"
#include "testing.h"
#include "testpage.h"
#include "testservice.h"

#include "mapplication.h"
#include "mapplicationwindow.h"
#include "mbuttongroup.h"
#include "mclosebutton.h"
#include "mlabel.h"
#include "mprogressindicator.h"
#include "mtextedit.h"

#include <QWebFrame>
#include <QWebHistory>
#include <QWebSettings>

/// Runs a test class in the application the companion runs in, without what that says of itself.
#define PORTAL_TEST_MAIN(TestClass)                                                                                    \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        MApplication application(argc, argv);                                                                          \
        QLoggingCategory::setFilterRules("default.debug=false"_s);                                                     \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }

/// What tests of the portal page share: a service under test control, a window, and in it the page with its start page
/// loaded. Each test function, and each of its rows, has its own.
class PortalTest : public QObject {
    Q_OBJECT

protected slots:
    void init()
    {
        g_KVB = 0;
        g_languageIdx = 0;
        g_trophyIdx = 0;
        onTwitterPage = false;
        service = std::make_unique<TestService>();
        service->answer("/vantu/"_s, {TestService::page({}, "start"_s)});
        for (const char *path : {"/vantu/friends", "/vantu/games"})
            service->answer(QLatin1String(path), {TestService::page({})});
        window = std::make_unique<MApplicationWindow>();
        window->show();
        page = std::make_unique<TestPage>();
        page->appear(window.get(), MSceneWindow::KeepWhenDone);
        waitForLoad([] {});
        service->forget();
    }
    void cleanup()
    {
        page.reset();
        window.reset();
        service.reset();
    }

protected:
    /// Does @p action and waits for the end of the load that it begins; whether that went well.
    template <typename Action> bool waitForLoad(Action action)
    {
        QSignalSpy finished(page->webView, &QGraphicsWebView::loadFinished);
        action();
        if (finished.isEmpty() && !finished.wait(10000))
            qFatal("No load has come to its end");
        return finished.first().first().toBool();
    }

    /// Asks for any address and waits for the end of its load; whether that went well.
    bool visit(const QString &address)
    {
        return waitForLoad([&] { page->webView->setUrl(QUrl(address)); });
    }

    /// Lets the service answer @p path with @p html and loads it.
    void load(const QString &path, const QByteArray &html)
    {
        service->answer(path.section(QLatin1Char('?'), 0, 0), {html});
        visit(url(path));
    }

    /// Loads a page with the given page variables, as in "sTitle = 'Inbox', iGameId = 7".
    void loadPage(const QString &path, const QString &variables = {}, const QString &body = {})
    {
        load(path, TestService::page(variables, body));
    }

    /// Opens the list of friends as the add button of the message composer's panel does, and waits until it is there.
    void openList()
    {
        emit page->addrWidget->btnAddressClicked();
        QTRY_VERIFY(!isLoading());
    }

    /// An engine may hear no taps before it has drawn something of the page.
    void waitUntilDrawn()
    {
        evaluate("var drawn = false; requestAnimationFrame(() => requestAnimationFrame(() => drawn = true))"_s);
        QTRY_VERIFY(evaluate("drawn"_s).toBool());
    }

    void click(const QGraphicsItem *item) { Finger(window.get()).tap(item); }

    QVariant evaluate(const QString &script) { return page->webView->page()->mainFrame()->evaluateJavaScript(script); }

    bool isLoading() const { return page->progressIndicator->isVisible(); }

    bool isOn(QWebSettings::WebAttribute attribute) const
    {
        return page->webView->settings()->testAttribute(attribute);
    }

    /// What is on display besides the title and the progress indicator, by name.
    QString shown() const
    {
        const std::pair<const QGraphicsItem *, const char *> all[] = {{page->btnQuit, "quit"},
                                                                      {page->btnBack, "back"},
                                                                      {page->btnInfo, "info"},
                                                                      {page->btnNewMessage, "new"},
                                                                      {page->btnAdd, "add"},
                                                                      {page->btnInteract, "interact"},
                                                                      {page->btnRecommend, "recommend"},
                                                                      {page->btnEdit, "edit"},
                                                                      {page->btnCancel, "cancel"},
                                                                      {page->btnSend, "send"},
                                                                      {page->btnStopPicking, "stop"},
                                                                      {page->webView, "web"},
                                                                      {page->addrWidget, "recipients"},
                                                                      {page->lblSubject, "subject"},
                                                                      {page->txtMessage, "text"},
                                                                      {page->btnHome, "tabs"}};
        QStringList names;
        for (const auto &[item, name] : all) {
            if (item->isVisible())
                names << QLatin1String(name);
        }
        return names.join(QLatin1Char(' '));
    }

    QList<TestService::Request> posts() const { return service->requests("POST"_s); }

    QString shownUrl() const { return page->webView->url().toString(); }

    static QString url(const QString &path) { return QLatin1String(K_SERVICE_ROOT) + path; }

    std::unique_ptr<TestService> service;
    std::unique_ptr<MApplicationWindow> window;
    std::unique_ptr<TestPage> page;
};
