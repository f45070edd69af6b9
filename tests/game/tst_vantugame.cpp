// SPDX-License-Identifier: MIT
#include <QProcess>
#include <QProcessEnvironment>
#include <QtTest>

#include <csignal>

namespace {

/// The stand-in game, with a companion that does what its two arguments name.
class Game : public QProcess {
public:
    explicit Game(const QStringList &companionArguments, const QString &companion = QStringLiteral(LINKUSER_PROGRAM))
    {
        start(QStringLiteral(GAME_PROGRAM), QStringList{QStringLiteral("--companion"), companion} + companionArguments);
    }
    ~Game() override
    {
        terminate();
        waitForFinished();
    }

    bool ends() { return waitForFinished(10000); }

    /// Whether a companion that is told to wait does so.
    bool companionWaits()
    {
        while (!canReadLine() && waitForReadyRead(10000)) { }
        return readLine() == "waiting\n";
    }
};

const QStringList waiting{QStringLiteral("wait"), QStringLiteral("0")};

} // namespace

class VantuGameTest : public QObject {
    Q_OBJECT

private slots:
    void passesTheArgumentsOn_data();
    void passesTheArgumentsOn();
    void printsWhatItHears_data();
    void printsWhatItHears();
    void endsAsTheCompanionEnds_data();
    void endsAsTheCompanionEnds();
    void passesSignalsOn_data();
    void passesSignalsOn();
    void refusesToStartTwice();
    void needsABus();
};

void VantuGameTest::passesTheArgumentsOn_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList();
    QTest::newRow("numbers") << QStringList{QStringLiteral("-7"), QStringLiteral("-1"), QStringLiteral("33")};
    QTest::newRow("nonsense") << QStringList{QStringLiteral("--help"), QString(), QStringLiteral("a b"),
                                             QStringLiteral("--companion")};
}

void VantuGameTest::passesTheArgumentsOn()
{
    QFETCH(QStringList, arguments);
    Game game(arguments);
    QVERIFY(game.ends());
    QCOMPARE(game.readAllStandardOutput(), arguments.join(QLatin1Char('|')).toUtf8() + '\n');
}

void VantuGameTest::printsWhatItHears_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("quit") << QStringLiteral("QUIT") << QByteArray("game heard: QUIT\n");
    QTest::newRow("empty") << QString() << QByteArray("game heard: \n");
    QTest::newRow("more than a line") << QStringLiteral("a\nb\"") << QByteArray("game heard: a\\nb\\\"\n");
}

void VantuGameTest::printsWhatItHears()
{
    QFETCH(QString, message);
    Game game({QStringLiteral("send"), message});
    QVERIFY(game.ends());
    QTEST(game.readAllStandardOutput(), "line");
    QVERIFY(game.readAllStandardError().contains("->>>>>>>>> Recive"));
}

void VantuGameTest::endsAsTheCompanionEnds_data()
{
    QTest::addColumn<QString>("companion");
    QTest::addColumn<QString>("exitStatus");
    QTest::addColumn<int>("status");
    QTest::newRow("well") << QStringLiteral(LINKUSER_PROGRAM) << QStringLiteral("0") << 0;
    QTest::newRow("badly") << QStringLiteral(LINKUSER_PROGRAM) << QStringLiteral("201") << 201;
    QTest::newRow("not begun") << QStringLiteral("/nowhere/vantu") << QStringLiteral("0") << 127;
}

void VantuGameTest::endsAsTheCompanionEnds()
{
    QFETCH(QString, companion);
    QFETCH(QString, exitStatus);
    Game game({QStringLiteral("exit"), exitStatus}, companion);
    QVERIFY(game.ends());
    QCOMPARE(game.exitStatus(), QProcess::NormalExit);
    QTEST(game.exitCode(), "status");
}

void VantuGameTest::passesSignalsOn_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void VantuGameTest::passesSignalsOn()
{
    QFETCH(int, signal);
    Game game(waiting);
    QVERIFY(game.companionWaits());
    QCOMPARE(kill(static_cast<pid_t>(game.processId()), signal), 0);
    QVERIFY(game.ends());
    QCOMPARE(game.exitStatus(), QProcess::NormalExit);
    QCOMPARE(game.exitCode(), 128 + signal);
}

void VantuGameTest::refusesToStartTwice()
{
    Game first(waiting);
    QVERIFY(first.companionWaits());
    Game second(waiting);
    QVERIFY(second.ends());
    QCOMPARE(second.exitCode(), 1);
    QVERIFY(second.readAllStandardError().contains("running already"));
    QCOMPARE(second.readAllStandardOutput(), QByteArray());
    QCOMPARE(first.state(), QProcess::Running);
}

void VantuGameTest::needsABus()
{
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    Game game(waiting);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    QVERIFY(game.ends());
    QCOMPARE(game.exitCode(), 1);
    QCOMPARE(game.readAllStandardOutput(), QByteArray());
}

QTEST_GUILESS_MAIN(VantuGameTest)
#include "tst_vantugame.moc"
