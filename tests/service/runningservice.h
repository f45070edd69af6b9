// SPDX-License-Identifier: MIT
#pragma once

#include "testing.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTcpSocket>

/// The service as a process of its own on a free port, ended with the object.
class RunningService {
public:
    /// Starts it with @p arguments besides "--log" and, unless they name a port, "--port 0". A service that does not
    /// come up has no port.
    explicit RunningService(const QStringList &arguments = {})
    {
        QStringList all = {"--log"_s};
        if (!arguments.contains("--port"_s))
            all += {"--port"_s, "0"_s};
        m_process.start(QStringLiteral(VANTU_SERVICE_PROGRAM), all + arguments);
        while (!m_output.contains('\n') && m_process.waitForReadyRead(10000))
            m_output += m_process.readAllStandardOutput();
        const QByteArray line = m_output.left(m_output.indexOf('\n'));
        if (line.startsWith("listening on http://"))
            m_port = line.mid(line.lastIndexOf(':') + 1).toInt();
    }

    ~RunningService()
    {
        if (m_process.state() != QProcess::NotRunning)
            stop(SIGTERM);
    }

    int port() const { return m_port; }
    QString root() const { return "http://127.0.0.1:%1"_s.arg(m_port); }

    qint64 processId() const { return m_process.processId(); }
    /// Sends @p signal and waits for the end; the exit status, -1 when it crashed or did not end.
    int stop(int signal)
    {
        kill(static_cast<pid_t>(m_process.processId()), signal);
        return exitStatus();
    }

    int exitStatus()
    {
        const bool ended = m_process.state() == QProcess::NotRunning || m_process.waitForFinished(10000);
        return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    QString errors() { return QString::fromUtf8(m_process.readAllStandardError()); }

    /// What it has logged so far, a line each.
    QStringList log()
    {
        m_process.waitForReadyRead(0);
        m_output += m_process.readAllStandardOutput();
        return QString::fromUtf8(m_output).split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(1);
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
    QProcess m_process;
    QNetworkAccessManager m_network;
    QByteArray m_output;
    int m_port = 0;
};
