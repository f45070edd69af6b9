// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QString>

#include <memory>

class MDisplay;

/// The application object.
///
/// It exists also where there is no display; then it is of no use but to end.
///
/// SIGTERM, SIGINT and SIGHUP quit() it through the event loop, so that aboutToQuit() is emitted however it ends; a
/// signal that comes before the loop runs ends it as soon as it does. The destructor gives the signals back.
class MApplication : public QApplication {
    Q_OBJECT

public:
    MApplication(int &argc, char **argv);
    ~MApplication() override;

    /// Why there is no display, in one English sentence without a full stop; empty if there is one.
    QString displayProblem() const { return m_displayProblem; }

    bool notify(QObject *receiver, QEvent *event) override;

private:
    MApplication(int &argc, char **argv, const MDisplay &display);

    class UnixSignals;
    QString m_displayProblem;
    std::unique_ptr<UnixSignals> m_unixSignals;
};
