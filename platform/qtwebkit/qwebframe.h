// SPDX-License-Identifier: MIT
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QObject>
#include <QPoint>
#include <QSize>
#include <QUrl>
#include <QVariant>

class EnginePage;

/// The main frame of a web page. Positions and sizes are pixels of the view, whatever the zoom factor.
class QWebFrame : public QObject {
    Q_OBJECT

public:
    explicit QWebFrame(EnginePage &engine);

    /// The address on display, or the one that was asked for last.
    QUrl url() const;
    void setUrl(const QUrl &url);
    void load(const QUrl &url);
    /// Posts @p body, or gets the page where @p operation is no post.
    void load(const QNetworkRequest &request,
              QNetworkAccessManager::Operation operation = QNetworkAccessManager::GetOperation,
              const QByteArray &body = QByteArray());
    QString title() const;
    /// The text on display; waits for the page.
    QString toPlainText() const;

    /// Scroll bars never show; @p policy can only say so.
    void setScrollBarPolicy(Qt::Orientation orientation, Qt::ScrollBarPolicy policy);
    QPoint scrollPosition() const;
    void setScrollPosition(const QPoint &position);
    void scroll(int x, int y);
    QSize contentsSize() const;

    /// Runs @p script among the page's own ones and returns what it returns, or nothing where it fails. Called by a
    /// script of the page's, it runs behind that script and returns nothing.
    QVariant evaluateJavaScript(const QString &script);
    /// Gives the page @p object under @p name: its public slots can be called from scripts, which wait for them. Lasts
    /// as long as the document; to be called from javaScriptWindowObjectCleared(), otherwise it does nothing. The
    /// object stays the caller's.
    void addToJavaScriptWindowObject(const QString &name, QObject *object);

signals:
    /// A new document begins; none of its scripts has run.
    void javaScriptWindowObjectCleared();

private:
    EnginePage &m_engine;
};
