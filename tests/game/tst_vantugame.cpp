// SPDX-License-Identifier: MIT
#include "process.h"

#include <csignal>

namespace {

/// The stand-in game, with a companion that does what its arguments name.
class Game : public Process {
public:
    explicit Game(const QStringList &companionArguments, const char *companion = LINKUSER_PROGRAM, bool withBus = true)
        : Process(GAME_PROGRAM, QStringList{L1("--companion"), L1(companion)} + companionArguments, withBus)
    {
    }
};

const QStringList waiting{L1("wait"), L1("0")};

} // namespace

class VantuGameTest : public QObject {
    Q_OBJECT

private slots:
    void passesTheArgumentsOn_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("none") << QStringList();
        QTest::newRow("numbers") << QStringList{L1("-7"), L1("-1"), L1("33")};
        QTest::newRow("nonsense") << QStringList{L1("--help"), QString(), L1("a b"), L1("--companion")};
    }
    void passesTheArgumentsOn()
    {
        QFETCH(QStringList, arguments);
        Game game(arguments);
        QVERIFY(game.ends());
        QCOMPARE(game.readAllStandardOutput(), arguments.join(QLatin1Char('|')).toUtf8() + '\n');
    }

    void helpsWhoAsks()
    {
        Process game(GAME_PROGRAM, {L1("--help")});
        QVERIFY(game.ends());
        QCOMPARE(game.exitCode(), 0);
        QVERIFY(game.readAllStandardOutput().startsWith("usage: vantu-game"));
    }

    void printsWhatItHears_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("QUIT") << QByteArray("game heard: QUIT\n");
        QTest::newRow("") << QByteArray("game heard: \n");
        QTest::newRow("a\nb\"") << QByteArray("game heard: a\\nb\\\"\n");
    }
    void printsWhatItHears()
    {
        Game game({L1("send"), L1(QTest::currentDataTag())});
        QVERIFY(game.ends());
        QTEST(game.readAllStandardOutput(), "line");
        QVERIFY(game.readAllStandardError().contains("->>>>>>>>> Recive"));
    }

    void endsAsTheCompanionEnds_data()
    {
        QTest::addColumn<QByteArray>("companion");
        QTest::addColumn<int>("status");
        QTest::newRow("0") << QByteArray(LINKUSER_PROGRAM) << 0;
        QTest::newRow("201") << QByteArray(LINKUSER_PROGRAM) << 201;
        QTest::newRow("not begun") << QByteArray("/nowhere/vantu") << 127;
    }
    void endsAsTheCompanionEnds()
    {
        QFETCH(QByteArray, companion);
        Game game({L1("exit"), L1(QTest::currentDataTag())}, companion.constData());
        QVERIFY(game.ends());
        QCOMPARE(game.exitStatus(), QProcess::NormalExit);
        QTEST(game.exitCode(), "status");
        QCOMPARE(game.readAllStandardError().contains("cannot start"), game.exitCode() == 127);
    }

    void passesSignalsOn_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }
    void passesSignalsOn()
    {
        QFETCH(int, signal);
        Game game(waiting);
        QCOMPARE(game.nextLine(), QByteArray("waiting\n"));
        QCOMPARE(kill(static_cast<pid_t>(game.processId()), signal), 0);
        QVERIFY(game.ends());
        QCOMPARE(game.exitStatus(), QProcess::NormalExit);
        QCOMPARE(game.exitCode(), 128 + signal);
    }

    void refusesToStartTwice()
    {
        Game first(waiting);
        QCOMPARE(first.nextLine(), QByteArray("waiting\n"));
        Game second(waiting);
        QVERIFY(second.ends());
        QCOMPARE(second.exitCode(), 1);
        QVERIFY(second.readAllStandardError().contains("running already"));
        QCOMPARE(second.readAllStandardOutput(), QByteArray());
        QCOMPARE(first.state(), QProcess::Running);
    }

    void needsABus()
    {
        Game game(waiting, LINKUSER_PROGRAM, false);
        QVERIFY(game.ends());
        QCOMPARE(game.exitCode(), 1);
        QCOMPARE(game.readAllStandardOutput(), QByteArray());
    }
};

QTEST_GUILESS_MAIN(VantuGameTest)
#include "tst_vantugame.moc"
