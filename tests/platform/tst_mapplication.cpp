// SPDX-License-Identifier: MIT
#include "mapplication.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <signal.h>

/// The application object, and how the signals of the system end it.
class ApplicationTest : public QObject {
    Q_OBJECT

private slots:
    void signalEndsTheLoop_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }

    void signalEndsTheLoop()
    {
        QFETCH(int, number);
        QSignalSpy quitting(qApp, &QCoreApplication::aboutToQuit);
        QTimer::singleShot(0, [number] { raise(number); });
        QCOMPARE(run(), 0);
        QCOMPARE(quitting.count(), 1);
    }

    void signalInAnEarlierLoopIsNotForgotten()
    {
        raise(SIGTERM);
        QEventLoop earlier;
        QTimer::singleShot(0, &earlier, &QEventLoop::quit);
        earlier.exec();
        QCOMPARE(run(), 0);
    }

    void webPagesChooseTheirFonts()
    {
        QFont font;
        font.setFamily(QStringLiteral("DejaVu Sans Mono"));
        QCOMPARE(QFontInfo(font).family(), QStringLiteral("DejaVu Sans Mono"));
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

int main(int argc, char **argv)
{
    MApplication application(argc, argv);
    ApplicationTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mapplication.moc"
