// SPDX-License-Identifier: MIT
#pragma once

#include "process.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTcpSocket>

/// The service as a process of its own on a free port, ended with the object.
class RunningService : public Process {
public:
    /// Starts it with @p arguments besides "--log" and, unless they name a port, "--port 0". A service that does not
    /// come up has no port.
    explicit RunningService(const QStringList &arguments = {})
        : Process(QStringLiteral(VANTU_SERVICE_PROGRAM),
                  (arguments.contains("--port"_s) ? QStringList() : QStringList{"--port"_s, "0"_s}) + arguments
                      + QStringList("--log"_s))
    {
        const QByteArray line = nextLine();
        if (line.startsWith("listening on http://"))
            m_port = line.mid(line.lastIndexOf(':') + 1).trimmed().toInt();
    }

    int port() const { return m_port; }
    QString root() const { return "http://127.0.0.1:%1"_s.arg(m_port); }

    QString errors() { return QString::fromUtf8(readAllStandardError()); }

    /// What it has logged so far, a line each.
    QStringList log()
    {
        waitForReadyRead(0);
        m_log += readAllStandardOutput();
        return QString::fromUtf8(m_log).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    /// Posts @p body as the companion does, without a cookie; the HTTP status. No type is sent when it is empty.
    int post(const QString &path, const QByteArray &body,
             const QByteArray &type = QByteArrayLiteral("application/x-www-form-urlencoded"))
    {
        QNetworkRequest request(QUrl(root() + path));
        if (!type.isEmpty())
            request.setHeader(QNetworkRequest::ContentTypeHeader, type);
        const QScopedPointer<QNetworkReply> reply(m_network.post(request, body));
        if (!QTest::qWaitFor([&reply] { return reply->isFinished(); }, 10000))
            return 0;
        return reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    }

    /// Sends @p bytes as they are and waits until the service has closed the connection; what it answered.
    QByteArray exchange(const QByteArray &bytes) const
    {
        QTcpSocket socket;
        socket.connectToHost("127.0.0.1"_s, static_cast<quint16>(m_port));
        socket.write(bytes);
        socket.waitForDisconnected(10000);
        return socket.readAll();
    }

private:
    QNetworkAccessManager m_network;
    QByteArray m_log;
    int m_port = 0;
};
