// SPDX-License-Identifier: MIT
#include "visitor.h"

#include <QNetworkRequest>
#include <QSignalSpy>
#include <QWebFrame>

Visitor::Visitor(const QString &root)
    : m_root(root)
{
    m_view.setGeometry(QRectF(0, 0, 480, 664));
    m_view.page()->setPreferredContentsSize(QSize(320, 400));
    m_view.setZoomFactor(1.5);
    m_view.page()->mainFrame()->setScrollBarPolicy(Qt::Horizontal, Qt::ScrollBarAlwaysOff);
    m_view.page()->mainFrame()->setScrollBarPolicy(Qt::Vertical, Qt::ScrollBarAlwaysOff);
}

bool Visitor::load(const QNetworkRequest &request, QNetworkAccessManager::Operation operation, const QByteArray &body)
{
    QSignalSpy finished(m_view.page(), &QWebPage::loadFinished);
    m_view.page()->mainFrame()->load(request, operation, body);
    return finished.wait(10000) && finished.first().first().toBool();
}

bool Visitor::open(const QString &path)
{
    return load(QNetworkRequest(QUrl(m_root + path)), QNetworkAccessManager::GetOperation, {});
}

bool Visitor::start(const QString &language, const QString &login, const QString &password, const QString &remember)
{
    return open(QStringLiteral("/vantu/?lg=%1&country=SE&d=N9&f=1.0&udid=1&KVB=7&username=%2&pass=%3&remember_me=%4"
                               "&type=MEEGO&width=480&height=854&fb=1")
                    .arg(language, login, password, remember));
}

bool Visitor::submit(const QString &path, const QByteArray &form)
{
    QNetworkRequest request(QUrl(m_root + path));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/x-www-form-urlencoded"));
    request.setRawHeader("Origin", m_root.toLatin1());
    return load(request, QNetworkAccessManager::PostOperation, form);
}

QString Visitor::variable(const QString &name) const
{
    const QVariant defined = evaluate(QStringLiteral("typeof %1 == 'string' || typeof %1 == 'number'").arg(name));
    return defined.toBool() ? evaluate(QStringLiteral("'' + %1").arg(name)).toString() : QString();
}

QVariant Visitor::evaluate(const QString &script) const
{
    return m_view.page()->mainFrame()->evaluateJavaScript(script);
}

QString Visitor::text() const
{
    return m_view.page()->mainFrame()->toPlainText();
}

QString Visitor::path() const
{
    return m_view.page()->mainFrame()->url().toString(QUrl::RemoveScheme | QUrl::RemoveAuthority);
}
