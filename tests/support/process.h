// SPDX-License-Identifier: MIT
#pragma once

#include "testing.h"

/// A process with a console that is read, ended with the object. While it runs, this process's own event loop goes on,
/// where strangers may answer it.
class Process : public QProcess {
public:
    /// Each of @p settings is a "NAME=value" of its environment; it works in a folder of its own.
    Process(const QString &program, const QStringList &arguments, const QStringList &settings = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString &setting : settings)
            environment.insert(setting.section(QLatin1Char('='), 0, 0), setting.section(QLatin1Char('='), 1));
        setProcessEnvironment(environment);
        setWorkingDirectory(folder.path());
        start(program, arguments);
    }
    ~Process() override
    {
        terminate(); // What it has started ends with it.
        waitForFinished(10000);
    }

    void sendSignal(int signal) { ::kill(static_cast<pid_t>(processId()), signal); }

    /// The process that it has started.
    pid_t childId() const
    {
        QFile children("/proc/%1/task/%1/children"_s.arg(processId()));
        return children.open(QIODevice::ReadOnly) ? static_cast<pid_t>(children.readAll().trimmed().toLongLong()) : 0;
    }

    /// Whether it ends by itself, with @p status.
    bool endsWith(int status)
    {
        const bool hasEnded = QTest::qWaitFor([this] { return state() == NotRunning; }, 20000);
        return hasEnded && exitStatus() == NormalExit && exitCode() == status;
    }

    /// All that it says there until it ends by itself with @p status.
    QByteArray lastWords(int status, ProcessChannel channel = StandardOutput)
    {
        if (!endsWith(status))
            return "(another end)";
        setReadChannel(channel);
        return readAll();
    }

    /// What is left where it ends without one.
    QByteArray nextLine(ProcessChannel channel = StandardOutput)
    {
        setReadChannel(channel);
        const auto isThere = [this] { return canReadLine() || state() == NotRunning; };
        return QTest::qWaitFor(isThere, 10000) ? readLine() : QByteArray();
    }

    static QString noBus() { return "DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere"_s; }

private:
    QTemporaryDir folder;
};
