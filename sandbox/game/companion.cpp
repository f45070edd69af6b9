// SPDX-License-Identifier: MIT
#include "companion.h"

#include <QSocketNotifier>

#include <csignal>
#include <cstdio>

#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

sigset_t endingSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&set, signal);
    return set;
}

/// Runs in the child, before the program.
void prepareChild()
{
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    // A script's background job ignores SIGINT and would hand that down: the order would be passed on and not obeyed.
    for (int signal : {SIGTERM, SIGINT, SIGHUP})
        std::signal(signal, SIG_DFL);
    const sigset_t set = endingSignals();
    sigprocmask(SIG_UNBLOCK, &set, nullptr);
}

} // namespace

Companion::Companion()
{
    const sigset_t set = endingSignals();
    sigprocmask(SIG_BLOCK, &set, nullptr);
    m_signals = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    m_process.setChildProcessModifier(prepareChild);
#endif
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.setInputChannelMode(QProcess::ForwardedInputChannel);
    connect(&m_process, &QProcess::errorOccurred, this, &Companion::reportFailure);
    connect(&m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            [this](int code, QProcess::ExitStatus how) { emit ended(how == QProcess::CrashExit ? 128 + code : code); });
}

Companion::~Companion()
{
    close(m_signals);
}

void Companion::start(const QString &program, const QStringList &arguments)
{
    m_process.start(program, arguments, QIODevice::ReadOnly);
    // Only now: a signal that came earlier waits until there is a companion to hear it.
    const auto *notifier = new QSocketNotifier(m_signals, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &Companion::forwardSignal);
}

void Companion::forwardSignal()
{
    signalfd_siginfo caught;
    if (read(m_signals, &caught, sizeof caught) == sizeof caught && m_process.processId() > 0)
        kill(static_cast<pid_t>(m_process.processId()), static_cast<int>(caught.ssi_signo));
}

void Companion::reportFailure(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart)
        return;
    std::fprintf(stderr, "vantu-game: cannot start %s: %s\n", qPrintable(m_process.program()),
                 qPrintable(m_process.errorString()));
    emit ended(127);
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
void Companion::Process::setupChildProcess()
{
    prepareChild();
}
#endif
