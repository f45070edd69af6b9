// SPDX-License-Identifier: MIT
#include "process.h"

namespace {

/// The stand-in game, with a companion that does what its arguments name.
class Game : public Process {
public:
    explicit Game(const QStringList &companionArguments, const QString &companion = QStringLiteral(LINKUSER_PROGRAM),
                  const QStringList &settings = {})
        : Process(QStringLiteral(GAME_PROGRAM), QStringList{"--companion"_s, companion} + companionArguments, settings)
    {
    }
};

const QStringList waiting{"wait"_s, "0"_s};

} // namespace

class VantuGameTest : public QObject {
    Q_OBJECT

private slots:
    void passesTheArgumentsOn()
    {
        for (const QStringList &arguments : {QStringList(), QStringList{"-7"_s, "-1"_s, "33"_s},
                                             QStringList{"--help"_s, {}, "a b"_s, "--companion"_s}}) {
            Game game(arguments);
            QCOMPARE(game.lastWords(0), arguments.join(QLatin1Char('|')).toUtf8() + '\n');
        }
    }

    void helpsWhoAsks()
    {
        Process game(QStringLiteral(GAME_PROGRAM), {"--help"_s});
        QVERIFY(game.lastWords(0).startsWith("usage: vantu-game"));
    }

    void printsWhatItHears()
    {
        for (const auto &[sent, line] : {std::pair("QUIT", "QUIT"), {"", ""}, {"a\nb\"", "a\\nb\\\""}}) {
            Game game({"send"_s, QLatin1String(sent)});
            QCOMPARE(game.lastWords(0), "game heard: " + QByteArray(line) + "\n");
            QVERIFY(game.readAllStandardError().contains("->>>>>>>>> Recive"));
        }
    }

    void endsAsTheCompanionEnds()
    {
        QVERIFY(Game({"exit"_s, "0"_s}).endsWith(0));
        Game failing({"exit"_s, "201"_s});
        QVERIFY(failing.endsWith(201));
        QVERIFY(!failing.readAllStandardError().contains("cannot start"));
        Game missing({}, "/nowhere/vantu"_s);
        QVERIFY(missing.lastWords(127, QProcess::StandardError).contains("cannot start"));
    }

    void runsOnceAndPassesSignalsOn()
    {
        for (const int signal : endSignals) {
            Game game(waiting);
            QCOMPARE(game.nextLine(), QByteArray("waiting\n"));
            Game second(waiting); // refuses to start, and leaves the first alone
            QCOMPARE(second.lastWords(1), QByteArray());
            QVERIFY(second.readAllStandardError().contains("running already"));
            game.sendSignal(signal);
            QVERIFY(game.endsWith(128 + signal));
        }
    }

    void companionEndsWithTheGame()
    {
        Game game(waiting);
        QCOMPARE(game.nextLine(), QByteArray("waiting\n"));
        const auto isRunning = [companion = "/proc/%1/stat"_s.arg(game.childId())] {
            QFile status(companion);
            return status.open(QIODevice::ReadOnly) && !status.readAll().contains(") Z ");
        };
        QVERIFY(isRunning());
        game.sendSignal(SIGKILL);
        QTRY_VERIFY(!isRunning());
    }

    void needsABus()
    {
        Game game(waiting, QStringLiteral(LINKUSER_PROGRAM), {Process::noBus()});
        QCOMPARE(game.lastWords(1), QByteArray());
    }
};

QTEST_GUILESS_MAIN(VantuGameTest)
#include "tst_vantugame.moc"
