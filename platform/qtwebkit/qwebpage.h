// SPDX-License-Identifier: MIT
#pragma once

#include "qwebframe.h"
#include "qwebhistory.h"
#include "qwebsettings.h"

#include <QObject>
#include <QSize>
#include <QUrl>

#include <memory>

class EnginePage;
class QNetworkAccessManager;
class QWebEngineProfile;

/// A web page: QtWebKit's class of this name, as far as it is used here, over Qt WebEngine. It keeps the order of that
/// engine's moments: the load's start, the change of the address, javaScriptWindowObjectCleared(), the page's scripts,
/// the load's end; a load that another one takes over ends before that starts.
///
/// It opens nothing of the engine's or the desktop's own: no windows, downloads, menus, error pages, notifications.
class QWebPage : public QObject {
    Q_OBJECT

public:
    enum WebAction { Back, Stop };
    enum FindFlag { FindWrapsAroundDocument = 4 };
    Q_DECLARE_FLAGS(FindFlags, FindFlag)
    enum Extension { ChooseMultipleFilesExtension, ErrorPageExtension };
    enum ErrorDomain { QtNetwork, Http, WebKit };

    class ExtensionOption { };
    class ExtensionReturn { };
    class ErrorPageExtensionOption : public ExtensionOption {
    public:
        QUrl url;
        QWebFrame *frame = nullptr;
        ErrorDomain domain = QtNetwork;
        int error = 0;
        QString errorString;
    };
    class ErrorPageExtensionReturn : public ExtensionReturn { };

    explicit QWebPage(QObject *parent = nullptr);
    ~QWebPage() override;

    QWebFrame *mainFrame() const;
    QWebSettings *settings() const;
    QWebHistory *history() const;
    /// Takes no part in the loading of pages, which the engine does by itself.
    QNetworkAccessManager *networkAccessManager() const;
    void setNetworkAccessManager(QNetworkAccessManager *manager);

    /// Kept; the layout is as wide as the view and the zoom factor make it.
    QSize preferredContentsSize() const { return m_preferredContentsSize; }
    void setPreferredContentsSize(const QSize &size) { m_preferredContentsSize = size; }

    QString selectedText() const;
    /// Whether @p text is in the page, whatever its case; it is selected then. An empty text ends the selection.
    bool findText(const QString &text, FindFlags flags = {});
    void triggerAction(WebAction action);

    virtual bool supportsExtension(Extension extension) const;
    /// Is told of a failed load (ErrorPageExtension). An error page that it returns is not shown.
    virtual bool extension(Extension extension, const ExtensionOption *option, ExtensionReturn *output);

    /// Of wheel events only, in the view's coordinates: scrolls what scrolls inside the page, else ignores the event.
    bool event(QEvent *event) override;

    /// The implementation, for the other classes of this library.
    EnginePage &engine() const { return *m_engine; }

signals:
    void loadStarted();
    void loadFinished(bool ok);
    /// Never: of frames inside the page the engine tells nothing. None of them gets an object, and none sends a
    /// referrer.
    void frameCreated(QWebFrame *frame);

protected:
    virtual void javaScriptAlert(QWebFrame *frame, const QString &message);
    virtual bool javaScriptConfirm(QWebFrame *frame, const QString &message);
    virtual bool javaScriptPrompt(QWebFrame *frame, const QString &message, const QString &suggested, QString *result);
    /// The file that the page is to get; empty for none.
    virtual QString chooseFile(QWebFrame *frame, const QString &suggested);

private:
    friend class EnginePage;

    std::unique_ptr<QWebEngineProfile> m_profile; ///< in memory: cookies end with it
    std::unique_ptr<EnginePage> m_engine;
    mutable QNetworkAccessManager *m_networkAccessManager = nullptr;
    QSize m_preferredContentsSize;
};
