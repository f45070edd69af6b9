// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QGraphicsView>
#include <QGraphicsWebView>
#include <QTimer>
#include <QWebInspector>
#include <QWebPage>

// Linked into a program, and WEB_INSPECTOR set in its environment, this opens the engine's inspector on its web view.
// (Qt WebEngine brings the like itself: QTWEBENGINE_REMOTE_DEBUGGING.)

namespace {

QGraphicsWebView *firstWebView()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        const auto *view = qobject_cast<QGraphicsView *>(window);
        const QList<QGraphicsItem *> items = view ? view->items() : QList<QGraphicsItem *>();
        for (QGraphicsItem *item : items) {
            if (auto *webView = qobject_cast<QGraphicsWebView *>(item->toGraphicsObject()))
                return webView;
        }
    }
    return nullptr;
}

void inspect()
{
    if (!qEnvironmentVariableIsSet("WEB_INSPECTOR"))
        return;
    // By then the program has its window.
    QTimer::singleShot(0, qApp, [] {
        QGraphicsWebView *webView = firstWebView();
        if (!webView)
            return;
        webView->page()->settings()->setAttribute(QWebSettings::DeveloperExtrasEnabled, true);
        auto *inspector = new QWebInspector;
        inspector->setPage(webView->page());
        inspector->resize(1000, 600);
        inspector->setAttribute(Qt::WA_QuitOnClose, false);
        QObject::connect(webView, &QObject::destroyed, inspector, &QObject::deleteLater);
        inspector->show();
    });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(inspect)
