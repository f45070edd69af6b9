// SPDX-License-Identifier: MIT
#pragma once

#include "qwebpage.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QPointer>
#include <QTimer>
#include <QWebEngineHttpRequest>
#include <QWebEngineLoadingInfo>
#include <QWebEnginePage>
#include <QWebEngineProfile>

/// What makes a page of Qt WebEngine behave as QtWebKit's: the moments of a load, the objects that are given to
/// scripts, and scripts that the caller waits for.
class EnginePage : public QWebEnginePage {
    Q_OBJECT

public:
    EnginePage(QWebPage &page, QWebEngineProfile *profile);
    ~EnginePage() override;

    QUrl address() const { return m_address; }
    void open(const QWebEngineHttpRequest &request);
    void openHtml(const QString &html, const QUrl &baseUrl);
    /// Ends the load, if one runs, and reports it as failed.
    void stop();
    void back();
    /// An address that is only said to be on display.
    void setAddress(const QUrl &url) { m_address = url; }

    /// The result of @p script, among the page's own scripts or, for @p world, apart from them. Nothing where it fails,
    /// the page is busy for longer than a moment, or the caller is called by a script.
    QVariant evaluate(const QString &script, quint32 world);
    /// The same for scripts of this library, which no page can disturb.
    QVariant ask(const QString &script);
    /// Without waiting.
    void tell(const QString &script);

    void addObject(const QString &name, QObject *object);
    /// Pixels of the view for one of the page's, and of the screen for one of the view's.
    void setScales(qreal zoomFactor, qreal sharpness);
    qreal viewZoom() const { return m_viewZoom; }

    QWebFrame frame;
    QWebSettings webSettings;
    QWebHistory webHistory;

signals:
    void loadBegins();
    void loadEnds(bool ok);
    void addressChanged(const QUrl &url);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage *createWindow(WebWindowType type) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList &oldFiles, const QStringList &types) override;
    void javaScriptAlert(const QUrl &origin, const QString &message) override;
    bool javaScriptConfirm(const QUrl &origin, const QString &message) override;
    bool javaScriptPrompt(const QUrl &origin, const QString &message, const QString &suggested,
                          QString *result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &, int, const QString &) override { }

private:
    void injectScripts();
    bool begin();
    void end(bool ok);
    void fail(QWebPage::ErrorDomain domain, int error, const QString &text);
    void onLoading(const QWebEngineLoadingInfo &info);
    void onEngineUrl(const QUrl &url);
    void onRendererGone();
    void commit(const QUrl &url);
    QString commitAnswer();
    void call(const QJsonObject &fields);
    void makeSureOfAnAnswer();

    QWebPage &m_page;
    const QString m_secret;
    QUrl m_address;
    QUrl m_documentUrl; ///< of the document on display
    int m_loadNumber = 0;
    bool m_isLoading = false;
    bool m_isCommitted = false; ///< the load's document has begun
    bool m_isAsked = false; ///< not by the page itself
    bool m_isPageInTheWay = false; ///< the process of the page before may have to go first
    bool m_isOwnStart = false; ///< the engine has not told yet of the start of the load that was asked for
    bool m_isScriptless = false; ///< the document's scripts are switched off
    bool m_isLeft = false; ///< what should have taken the document's place did not come
    bool m_isAnyPageThere = false;
    int m_callDepth = 0; ///< of calls from scripts, which the engine waits for
    int m_unanswered = 0; ///< scripts that were waited for in vain
    QTimer m_patience; ///< with an engine process that is to load the next page
    qreal m_viewZoom = 1;
    QJsonArray m_firstScripts; ///< that the document which begins now is to run before its own
    bool m_isBeginning = false; ///< a document is
    QHash<QString, QPointer<QObject>> m_objects; ///< of the document on display
};
