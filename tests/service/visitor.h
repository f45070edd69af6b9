// SPDX-License-Identifier: MIT
#pragma once

#include "testing.h"

#include <QGraphicsWebView>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QWebFrame>
#include <QWebPage>

/// A player at a phone: one web page set up as the companion's, with cookies of its own.
class Visitor {
public:
    explicit Visitor(const QString &root)
        : m_root(root)
    {
        m_view.setGeometry(QRectF(0, 0, 480, 664));
        m_view.page()->setPreferredContentsSize(QSize(320, 400));
        m_view.setZoomFactor(1.5);
        m_view.page()->mainFrame()->setScrollBarPolicy(Qt::Horizontal, Qt::ScrollBarAlwaysOff);
        m_view.page()->mainFrame()->setScrollBarPolicy(Qt::Vertical, Qt::ScrollBarAlwaysOff);
    }

    /// Opens a page of the service; whether it arrived whole.
    bool open(const QString &path)
    {
        return load(QNetworkRequest(QUrl(m_root + path)), QNetworkAccessManager::GetOperation, {});
    }

    /// Opens the start URL, signing in when a password is given.
    bool start(const QString &language, const QString &login = {}, const QString &password = {},
               const QString &remember = "1"_s)
    {
        return open("/vantu/?lg=%1&country=SE&d=N9&f=1.0&udid=1&KVB=7&username=%2&pass=%3&remember_me=%4"
                    "&type=MEEGO&width=480&height=854&fb=1"_s.arg(language, login, password, remember));
    }

    /// Opens a page of the service; where that led, empty unless the page arrived whole.
    QString ledBy(const QString &path) { return open(path) ? this->path() : QString(); }

    /// Sends an encoded form; where that led, empty unless the page behind it arrived whole.
    QString submit(const QString &path, const QByteArray &form)
    {
        QNetworkRequest request(QUrl(m_root + path));
        request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/x-www-form-urlencoded"));
        request.setRawHeader("Origin", m_root.toLatin1());
        return load(request, QNetworkAccessManager::PostOperation, form) ? this->path() : QString();
    }

    /// A variable of the page, opened at @p path first where one is given, as the companion's slots get it; a null
    /// string when the page does not define it.
    QString variable(const QString &name, const QString &path = {})
    {
        if (!path.isEmpty() && !open(path))
            return {};
        const QVariant defined = evaluate("typeof %1 == 'string' || typeof %1 == 'number'"_s.arg(name));
        return defined.toBool() ? evaluate("'' + %1"_s.arg(name)).toString() : QString();
    }

    /// Those variables, whose names are parted by blanks, of the page on display, joined by commas.
    QString variables(const char *names)
    {
        QStringList values;
        for (const QString &name : QString::fromLatin1(names).split(QLatin1Char(' ')))
            values << variable(name);
        return values.join(QLatin1Char(','));
    }

    QVariant evaluate(const QString &script) const { return m_view.page()->mainFrame()->evaluateJavaScript(script); }

    QString text() const { return m_view.page()->mainFrame()->toPlainText(); }

    /// Path and query of the page on display.
    QString path() const
    {
        return m_view.page()->mainFrame()->url().toString(QUrl::RemoveScheme | QUrl::RemoveAuthority);
    }

    bool holds(const QString &text) { return m_view.page()->findText(text, QWebPage::FindWrapsAroundDocument); }

private:
    bool load(const QNetworkRequest &request, QNetworkAccessManager::Operation operation, const QByteArray &body)
    {
        QSignalSpy finished(m_view.page(), &QWebPage::loadFinished);
        m_view.page()->mainFrame()->load(request, operation, body);
        return finished.wait(10000) && finished.first().first().toBool();
    }

    QString m_root;
    QGraphicsWebView m_view;
};
