// SPDX-License-Identifier: MIT
#include "mendwatch.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::array<int, 3> endingSignals = {SIGTERM, SIGINT, SIGHUP};

// What is written into the pipe: a signal handler may do little more.
constexpr char endRequested = 'e';
constexpr char watchIsOver = 'o';

std::atomic<MEndWatch *> theWatch{nullptr};

void put(int pipe, char byte)
{
    [[maybe_unused]] const auto written = write(pipe, &byte, 1);
}

constexpr Clock::time_point never = Clock::time_point::max();

/// What poll() waits: -1 without end.
int millisecondsUntil(Clock::time_point deadline)
{
    if (deadline == never)
        return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::max<decltype(left)>(left, 0));
}

} // namespace

MEndWatch::MEndWatch(int displaySocket, std::chrono::milliseconds grace)
    : m_displaySocket(displaySocket)
    , m_grace(grace)
{
    if (pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    // An end inside a nested loop that runs before exec() would be forgotten: it is said until it is heard.
    m_again.setInterval(20);
    QObject::connect(&m_again, &QTimer::timeout, qApp, [] { QCoreApplication::exit(0); });
    m_thread = std::thread([this] { watch(); });

    theWatch = this;
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (size_t i = 0; i < endingSignals.size(); ++i)
        sigaction(endingSignals[i], &action, &m_actionsBefore[i]);
}

MEndWatch::~MEndWatch()
{
    if (!m_thread.joinable())
        return;
    struct sigaction ignore = {};
    ignore.sa_handler = SIG_IGN;
    // A second signal changes nothing about an end that is under way.
    const bool isEnding = m_ending != Ending::NotYet;
    for (size_t i = 0; i < endingSignals.size(); ++i)
        sigaction(endingSignals[i], isEnding ? &ignore : &m_actionsBefore[i], nullptr);
    theWatch = nullptr;
    put(m_pipe[1], watchIsOver);
    m_thread.join();
    for (int &end : m_pipe)
        close(std::exchange(end, -1));
}

void MEndWatch::setLastResort(void (*lastResort)())
{
    // The first one only: Qt leaves a process whose display is gone by exit(), from the middle of the event loop. What
    // the last resort needs must have been made by then, or it would be destroyed first.
    if (!m_lastResort.exchange(lastResort))
        std::atexit(onExit);
}

void MEndWatch::request()
{
    put(m_pipe[1], endRequested);
}

void MEndWatch::standDown()
{
    auto ending = Ending::NotYet;
    if (m_ending.compare_exchange_strong(ending, Ending::ByTheLoop) || ending == Ending::ByTheLoop)
        return;
    for (;;)
        pause(); // The process is about to end under this thread.
}

// Runs in the watch's own thread.
void MEndWatch::watch()
{
    Clock::time_point deadline = never;
    // A connection over the network ends with what poll() calls half a hang-up.
    pollfd sources[] = {{m_pipe[0], POLLIN, 0}, {m_displaySocket, POLLRDHUP, 0}};
    for (;;) {
        const int ready = poll(sources, std::size(sources), millisecondsUntil(deadline));
        if (ready == 0 || (ready > 0 && sources[1].revents != 0)) {
            endWithoutLoop();
            deadline = never;
            sources[1].fd = -1; // The loop has begun the end: nothing is left to watch for.
            continue;
        }
        char byte = 0;
        while (read(m_pipe[0], &byte, 1) == 1) {
            if (byte == watchIsOver)
                return;
            if (deadline == never)
                deadline = Clock::now() + m_grace;
            QMetaObject::invokeMethod(&m_again, QOverload<>::of(&QTimer::start), Qt::QueuedConnection);
        }
    }
}

// Does not return unless the event loop has begun the end.
void MEndWatch::endWithoutLoop()
{
    auto ending = Ending::NotYet;
    if (m_ending.compare_exchange_strong(ending, Ending::ByLastResort)) {
        if (const auto lastResort = m_lastResort.load())
            lastResort();
        _exit(0); // Neither destructors nor what the hanging thread holds may get in the way.
    }
    if (ending == Ending::ByLastResort)
        standDown();
}

void MEndWatch::onSignal(int)
{
    const int savedErrno = errno;
    if (MEndWatch *watch = theWatch)
        watch->request();
    errno = savedErrno;
}

void MEndWatch::onExit()
{
    if (MEndWatch *watch = theWatch)
        watch->endWithoutLoop();
}
