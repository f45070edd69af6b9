// SPDX-License-Identifier: MIT
#pragma once

#include "globaldefine.h"
#include "myqwebview.h"
#include "testpage.h"
#include "testservice.h"

#include "mapplication.h"
#include "mapplicationwindow.h"

#include <QSignalSpy>
#include <QtTest>

/// Runs a test class in the application the companion runs in.
#define PORTAL_TEST_MAIN(TestClass)                                                                                    \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        MApplication application(argc, argv);                                                                          \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }

/// A service under test control, a window, and the portal page in it with its start page loaded.
struct Portal {
    Portal()
    {
        service.answer(QStringLiteral("/vantu/"), {TestService::page({}, QStringLiteral("start"))});
        window.show();
        page = std::make_unique<TestPage>();
        page->appear(&window, MSceneWindow::KeepWhenDone);
        QSignalSpy finished(page->webView, &QGraphicsWebView::loadFinished);
        if (!finished.wait(10000))
            qFatal("The start page did not load");
        service.forget();
    }

    /// Does @p action and waits for the end of the load that it begins.
    template <typename Action> void waitForLoad(Action action)
    {
        QSignalSpy finished(page->webView, &QGraphicsWebView::loadFinished);
        action();
        QVERIFY(!finished.isEmpty() || finished.wait(10000));
    }

    /// Lets the service answer @p path with @p html and loads it.
    void load(const QString &path, const QByteArray &html)
    {
        service.answer(path.section(QLatin1Char('?'), 0, 0), {html});
        waitForLoad([&] { page->webView->setUrl(QUrl(url(path))); });
    }

    /// Loads a page with the given page variables.
    void loadPage(const QString &path, const QMap<QString, QString> &variables = {}, const QString &body = {})
    {
        load(path, TestService::page(variables, body));
    }

    QString shownUrl() const { return page->webView->url().toString(); }

    static QString url(const QString &path) { return QLatin1String(K_SERVICE_ROOT) + path; }

    TestService service;
    MApplicationWindow window;
    std::unique_ptr<TestPage> page;
};
