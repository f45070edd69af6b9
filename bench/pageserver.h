// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QTcpServer>

/// An HTTP proxy on a free loopback port that answers every request, whatever its host and path, with one page.
class PageServer : public QObject {
    Q_OBJECT

public:
    explicit PageServer(const QByteArray &html);

    /// From now on requests are answered with @p html.
    void setPage(const QByteArray &html);
    quint16 port() const { return m_server.serverPort(); }

signals:
    /// A request has arrived; it is answered afterwards.
    void requested(const QString &path);

private:
    void serve(QTcpSocket *socket);

    QTcpServer m_server;
    QByteArray m_answer;
};
