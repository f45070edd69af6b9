// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsWebView>
#include <QNetworkAccessManager>
#include <QWebPage>

/// A player at a phone: one web page set up as the companion's, with cookies of its own.
class Visitor {
public:
    explicit Visitor(const QString &root);

    /// Opens a page of the service; whether it arrived whole.
    bool open(const QString &path);
    /// Opens the start URL, signing in when a password is given.
    bool start(const QString &language, const QString &login = {}, const QString &password = {},
               const QString &remember = QStringLiteral("1"));
    /// Sends an encoded form; whether the page behind it arrived whole.
    bool submit(const QString &path, const QByteArray &form);

    /// A variable of the page as the companion's slots get it; a null string when the page does not define it.
    QString variable(const QString &name) const;
    QVariant evaluate(const QString &script) const;
    QString text() const;
    /// Path and query of the page on display.
    QString path() const;
    bool holds(const QString &text) { return m_view.page()->findText(text, QWebPage::FindWrapsAroundDocument); }

private:
    bool load(const QNetworkRequest &request, QNetworkAccessManager::Operation operation, const QByteArray &body);

    QString m_root;
    QGraphicsWebView m_view;
};
