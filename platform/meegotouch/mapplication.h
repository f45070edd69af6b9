#pragma once

#include <QApplication>

#include <memory>

class MApplicationWindow;

/// The application object.
///
/// SIGTERM, SIGINT and SIGHUP quit() it through the event loop, so that aboutToQuit() is emitted however it ends; a
/// signal that comes before the loop runs ends it as soon as it does. The destructor gives the signals back.
class MApplication : public QApplication {
    Q_OBJECT

public:
    MApplication(int &argc, char **argv);
    ~MApplication() override;

    static MApplication *instance();

    /// The window that the user is in, or else the one that was made last; null when there is none.
    static MApplicationWindow *activeApplicationWindow();

private:
    class UnixSignals;
    std::unique_ptr<UnixSignals> m_unixSignals;
};
