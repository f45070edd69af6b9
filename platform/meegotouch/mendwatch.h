// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <array>
#include <atomic>
#include <chrono>
#include <thread>

#include <signal.h>

/// Hears that the application is to end, and sees to it that it does. There is one at a time.
///
/// SIGTERM, SIGINT, SIGHUP and request() go to a thread of its own, which hands them to the event loop. Where that has
/// not begun the end in time, the thread makes it. A display that is gone cannot be waited for: then the end is made at
/// once. Whatever makes it, the last resort runs once, and never beside an end that standDown() was told of.
class MEndWatch {
public:
    /// Watches @p displaySocket unless it is -1, and gives the event loop @p grace from the first request on.
    MEndWatch(int displaySocket, std::chrono::milliseconds grace);
    ~MEndWatch();
    Q_DISABLE_COPY(MEndWatch)

    /// See MApplication::setLastResort().
    void setLastResort(void (*lastResort)());

    /// Asks for the end. Safe in a signal handler.
    void request();

    /// Leaves the end to the event loop from now on. Does not return if the last resort is under way.
    void standDown();

private:
    enum class Ending { NotYet, ByTheLoop, ByLastResort };

    void watch();
    void endWithoutLoop();
    static void onSignal(int);
    static void onExit();

    const int m_displaySocket;
    const std::chrono::milliseconds m_grace;
    std::atomic<Ending> m_ending{Ending::NotYet};
    std::atomic<void (*)()> m_lastResort{nullptr};
    int m_pipe[2] = {-1, -1};
    std::array<struct sigaction, 3> m_actionsBefore = {};
    QTimer m_again;
    std::thread m_thread;
};
