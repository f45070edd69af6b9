// SPDX-License-Identifier: MIT
#include "runningservice.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTcpSocket>
#include <QtTest>
#include <QUrl>
#include <signal.h>

RunningService::RunningService(const QStringList &arguments)
{
    QStringList all = {QStringLiteral("--log")};
    if (!arguments.contains(QStringLiteral("--port")))
        all << QStringLiteral("--port") << QStringLiteral("0");
    m_process.start(QStringLiteral(VANTU_SERVICE_PROGRAM), all + arguments);
    while (!m_output.contains('\n') && m_process.waitForReadyRead(10000))
        m_output += m_process.readAllStandardOutput();
    const QByteArray line = m_output.left(m_output.indexOf('\n'));
    if (line.startsWith("listening on http://"))
        m_port = line.mid(line.lastIndexOf(':') + 1).toInt();
}

RunningService::~RunningService()
{
    if (m_process.state() != QProcess::NotRunning)
        stop(SIGTERM);
}

QString RunningService::root() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(m_port);
}

int RunningService::stop(int signal)
{
    kill(static_cast<pid_t>(m_process.processId()), signal);
    return exitStatus();
}

int RunningService::exitStatus()
{
    const bool ended = m_process.state() == QProcess::NotRunning || m_process.waitForFinished(10000);
    return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QString RunningService::errors()
{
    return QString::fromUtf8(m_process.readAllStandardError());
}

QStringList RunningService::log()
{
    m_process.waitForReadyRead(0);
    m_output += m_process.readAllStandardOutput();
    return QString::fromUtf8(m_output).split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(1);
}

int RunningService::post(const QString &path, const QByteArray &body, const QByteArray &type)
{
    QNetworkRequest request(QUrl(root() + path));
    if (!type.isEmpty())
        request.setHeader(QNetworkRequest::ContentTypeHeader, type);
    const QScopedPointer<QNetworkReply> reply(m_network.post(request, body));
    if (!QTest::qWaitFor([&reply] { return reply->isFinished(); }, 10000))
        return 0;
    return reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

QByteArray RunningService::exchange(const QByteArray &bytes) const
{
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), static_cast<quint16>(m_port));
    socket.write(bytes);
    socket.waitForDisconnected(10000);
    return socket.readAll();
}
