// SPDX-License-Identifier: MIT
#pragma once

#include <QNetworkAccessManager>
#include <QProcess>
#include <QStringList>

/// The service as a process of its own on a free port, ended with the object.
class RunningService {
public:
    /// Starts it with @p arguments besides "--log" and, unless they name a port, "--port 0". A service that does not
    /// come up has no port.
    explicit RunningService(const QStringList &arguments = {});
    ~RunningService();

    int port() const { return m_port; }
    QString root() const;
    qint64 processId() const { return m_process.processId(); }
    /// Sends @p signal and waits for the end; the exit status, -1 when it crashed or did not end.
    int stop(int signal);
    int exitStatus();
    QString errors();
    /// What it has logged so far, a line each.
    QStringList log();

    /// Posts @p body as the companion does, without a cookie; the HTTP status. No type is sent when it is empty.
    int post(const QString &path, const QByteArray &body,
             const QByteArray &type = QByteArrayLiteral("application/x-www-form-urlencoded"));
    /// Sends @p bytes as they are and waits until the service has closed the connection; what it answered.
    QByteArray exchange(const QByteArray &bytes) const;

private:
    QProcess m_process;
    QNetworkAccessManager m_network;
    QByteArray m_output;
    int m_port = 0;
};
