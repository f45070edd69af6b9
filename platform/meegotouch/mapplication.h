// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QString>

#include <memory>

class MDisplay;
class MEndWatch;

/// The application object.
///
/// It exists also where there is no display; then it is of no use but to end.
///
/// SIGTERM, SIGINT, SIGHUP and the close of the window end it through the event loop, so that aboutToQuit() is emitted
/// however it ends; what comes before the loop runs ends it as soon as it does. If the loop has not begun the end
/// within five seconds (a page's script that computes for ever), or when the display is gone, the process ends without
/// it: see setLastResort(). The destructor gives the signals back, or lets them be ignored where the end has begun.
class MApplication : public QApplication {
    Q_OBJECT

public:
    MApplication(int &argc, char **argv);
    ~MApplication() override;

    /// Why there is no display, in one English sentence without a full stop; empty if there is one.
    QString displayProblem() const { return m_displayProblem; }

    /// What is left to be done when the process has to end without the event loop: @p lastResort runs in a thread of
    /// its own while the loop hangs, or else in whichever thread has lost the display, and the process ends with
    /// status 0 behind it. To be called when the window is up and before exec().
    void setLastResort(void (*lastResort)());

    /// Asks for the end as a signal does. Any thread may call it, any number of times.
    static void requestEnd();

    /// Says that the end has begun, so that it is not also made without the event loop however long it takes.
    /// aboutToQuit() says so by itself; whoever has something slow to do before that calls it first. Does not return if
    /// the last resort is under way already.
    static void beginEnd();

    bool notify(QObject *receiver, QEvent *event) override;

private:
    MApplication(int &argc, char **argv, const MDisplay &display);

    QString m_displayProblem;
    std::unique_ptr<MEndWatch> m_endWatch;
};
