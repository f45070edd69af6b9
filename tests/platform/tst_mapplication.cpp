// SPDX-License-Identifier: MIT
#include "mapplication.h"
#include "mendwatch.h"
#include "mstyle.h"
#include "process.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

/// The application object, and how the signals of the system end it.
class ApplicationTest : public QObject {
    Q_OBJECT

private slots:
    void signalEndsTheLoop()
    {
        for (const int signal : endSignals) {
            QSignalSpy quitting(qApp, &QCoreApplication::aboutToQuit);
            QTimer::singleShot(0, [signal] { raise(signal); });
            QCOMPARE(run(), 0);
            QCOMPARE(quitting.count(), 1);
        }
    }

    void signalInAnEarlierLoopIsNotForgotten()
    {
        raise(SIGTERM);
        QEventLoop earlier;
        QTimer::singleShot(0, &earlier, &QEventLoop::quit);
        earlier.exec();
        QCOMPARE(run(), 0);
    }

    // Though the loop hangs, but as that wants it where the end has begun there.
    void processEnds()
    {
        for (const auto &[how, output, status] : {std::tuple("request", "last resort", 0),
                                                  {"displayGone", "last resort", 0},
                                                  {"exit", "last resort", 0},
                                                  {"inTime", "", 3},
                                                  {"standDown", "", 3},
                                                  {"over", "", 3}}) {
            Process process(QCoreApplication::applicationFilePath(), {"--end"_s, QLatin1String(how)});
            QVERIFY2(process.endsWith(status), how);
            QCOMPARE(process.readAllStandardOutput(), QByteArray(output));
        }
    }

    void leavesToOthersWhatIsTheirs()
    {
        QFont font;
        font.setFamily("DejaVu Sans Mono"_s);
        QCOMPARE(QFontInfo(font).family(), "DejaVu Sans Mono"_s);
        QCOMPARE(QFont().family(), MStyle::fontFamilies().first());
        // Another program that is started from here chooses its display itself.
        QCOMPARE(qgetenv("QT_QPA_PLATFORM"), QByteArray("offscreen"));
    }

private:
    // 1 if nothing has ended the loop in time.
    static int run()
    {
        QTimer deadline;
        deadline.setSingleShot(true);
        connect(&deadline, &QTimer::timeout, qApp, [] { QCoreApplication::exit(1); });
        deadline.start(5000);
        return QCoreApplication::exec();
    }
};

static auto handledSignals()
{
    return std::count_if(std::begin(endSignals), std::end(endSignals), [](int signal) {
        struct sigaction action = {};
        return sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_DFL;
    });
}

// The process of processEnds(), hanging but for what @p how names.
static int end(int argc, char **argv, const QByteArray &how)
{
    const QCoreApplication application(argc, argv);
    if (how == "over") {
        const auto before = handledSignals();
        MEndWatch(-1, std::chrono::milliseconds(100));
        return handledSignals() == before ? 3 : 1;
    }
    int display[2];
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, display) != 0)
        return 1;
    MEndWatch watch(display[0], std::chrono::milliseconds(how == "inTime" ? 60000 : 100));
    watch.setLastResort([] {
        std::fputs("last resort", stdout);
        std::fflush(stdout);
    });
    if (how != "displayGone" && how != "exit")
        watch.request();
    if (how == "displayGone")
        close(display[1]);
    if (how == "exit")
        std::exit(1);
    if (how == "standDown")
        watch.standDown();
    if (how == "standDown" || how == "inTime") {
        std::this_thread::sleep_for(std::chrono::milliseconds(300)); // Longer than the loop would be given.
        return 3;
    }
    for (;;)
        pause();
}

int main(int argc, char **argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--end") == 0)
        return end(argc, argv, argv[2]);
    MApplication application(argc, argv);
    ApplicationTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mapplication.moc"
