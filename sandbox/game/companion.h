// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QProcess>
#include <QStringList>

/// The companion as the game sees it: a process that it starts, passes its own orders to end on to, and waits for.
///
/// Make it first thing in main, before any thread: from then on SIGTERM, SIGINT and SIGHUP no longer end this process
/// but are handed to the companion, also those that arrive before the companion runs. One object a process.
class Companion : public QObject {
    Q_OBJECT

public:
    Companion();
    ~Companion() override;

    /// Starts @p program, which shares this process's console, with @p arguments as they stand. The companion is told
    /// to end when this process dies before it.
    void start(const QString &program, const QStringList &arguments);

signals:
    /// The companion has ended. @p status is its exit status as a shell gives it: 128 + n when signal n ended it,
    /// 127 when it could not be started (the console then says why).
    void ended(int status);

private:
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    class Process : public QProcess {
    protected:
        void setupChildProcess() override;
    };
#else
    using Process = QProcess;
#endif

    void forwardSignal();
    void reportFailure(QProcess::ProcessError error);

    Process m_process;
    int m_signals = -1;
};
