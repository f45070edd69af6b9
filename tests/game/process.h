// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QtTest>

using L1 = QLatin1String;

/// A process with a console that is read, ended with the object. While it runs, this process's own event loop goes on,
/// where strangers may answer it.
class Process : public QProcess {
public:
    Process(const char *program, const QStringList &arguments, bool withBus = true)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        if (!withBus)
            environment.insert(L1("DBUS_SESSION_BUS_ADDRESS"), L1("unix:path=/nowhere"));
        setProcessEnvironment(environment);
        start(L1(program), arguments);
    }
    ~Process() override
    {
        terminate();
        waitForFinished();
    }

    bool ends()
    {
        return QTest::qWaitFor([this] { return state() == NotRunning; }, 10000);
    }
    QByteArray nextLine(ProcessChannel channel = StandardOutput)
    {
        setReadChannel(channel);
        return QTest::qWaitFor([this] { return canReadLine(); }, 10000) ? readLine() : QByteArray();
    }
};
