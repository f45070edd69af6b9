// SPDX-License-Identifier: MIT
#include "gamepeer.h"
#include "process.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QtTest>

using Answer = GamePeer::Answer;
Q_DECLARE_METATYPE(Answer)

/// The link as both sides use it, each in a process of its own, so that its console and its end are seen.
class GameLinkTest : public QObject {
    Q_OBJECT

private slots:
    void strangersAnswer_data()
    {
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<QString>("described");
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<QByteArray>("errors");

        const auto row = [](const char *name, const Answer &answer, const char *output, const char *errors,
                            const char *described = "") {
            QTest::newRow(name) << answer << described << QByteArray(output) << QByteArray(errors);
        };
        const Answer nothing = [](const QDBusMessage &call) { return call.createReply(); };
        const char *const noString
            = "Call failed: Unexpected reply signature: got \"<empty signature>\", expected \"s\" (QString)\n";
        row("with a string", GamePeer::answerString, "call ok", "");
        row("with nothing", nothing, "", noString);
        row("though none need wait", nothing, "", noString,
            "<interface name='game.Link'><method name='recive'><arg type='s' direction='in'/>"
            "<annotation name='org.freedesktop.DBus.Method.NoReply' value='true'/></method></interface>");
        row(
            "with an error",
            [](const QDBusMessage &call) {
                return call.createErrorReply(QStringLiteral("game.Error.Busy"), QStringLiteral("100 % busy: %s%n"));
            },
            "", "Call failed: 100 % busy: %s%n\n");
        row(
            "by leaving", [](const QDBusMessage &) { return QDBusMessage(); }, "",
            "Call failed: Message recipient disconnected from message bus without replying\n");
    }
    void strangersAnswer()
    {
        QFETCH(Answer, answer);
        QFETCH(QString, described);
        GamePeer game(answer, described);
        Process companion(LINKUSER_PROGRAM, {L1("send"), L1("RESUMEGAME")});
        QVERIFY(companion.ends());
        QCOMPARE(companion.exitCode(), 0);
        QTEST(companion.readAllStandardOutput(), "output");
        QTEST(companion.readAllStandardError(), "errors");
        QCOMPARE(game.calls.size(), 1);
        QCOMPARE(game.calls.first().member(), L1("recive"));
        QCOMPARE(game.calls.first().interface(), QString());
        QCOMPARE(game.calls.first().arguments(), QVariantList{L1("RESUMEGAME")});
    }

    void nobodyHears()
    {
        Process early(LINKUSER_PROGRAM, {L1("send"), L1("QUIT")});
        QVERIFY(early.ends());
        QCOMPARE(early.readAllStandardOutput(), QByteArray());
        QCOMPARE(early.readAllStandardError(),
                 QByteArray("The name com.quelmora.QtDBus.Torvane was not provided by any .service files\n"));
        QDBusConnection bus = QDBusConnection::sessionBus();
        QVERIFY(bus.registerService(GamePeer::name()));
        Process lost(LINKUSER_PROGRAM, {L1("send"), L1("QUIT")});
        QVERIFY(lost.ends());
        QVERIFY(bus.unregisterService(GamePeer::name()));
        QCOMPARE(lost.readAllStandardError(), QByteArray("Call failed: No such object path '/'\n"));
    }

    void noBus_data()
    {
        QTest::addColumn<QString>("use");
        for (const char *use : {"send", "register", "running"})
            QTest::newRow(use) << use;
    }
    void noBus()
    {
        QFETCH(QString, use);
        Process process(LINKUSER_PROGRAM, {use, L1("QUIT")}, false);
        QVERIFY(process.ends());
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(process.readAllStandardError(),
                 QByteArray("Cannot connect to the D-Bus session bus.\n"
                            "To start it, run:\n"
                            "\teval `dbus-launch --auto-syntax`\n"));
    }

    void ownersAreSeen()
    {
        Process before(LINKUSER_PROGRAM, {L1("running")});
        QVERIFY(before.ends());
        QCOMPARE(before.exitCode(), 0);
        QCOMPARE(before.readAllStandardError(), QByteArray("-------------------IsRunning FAIL\n"));

        GamePeer game;
        Process then(LINKUSER_PROGRAM, {L1("running")});
        QVERIFY(then.ends());
        QCOMPARE(then.exitCode(), 1);
        QCOMPARE(then.readAllStandardError(), QByteArray("-------------------IsRunning OK\n"));
        Process second(LINKUSER_PROGRAM, {L1("register")});
        QVERIFY(second.ends());
        QCOMPARE(second.readAllStandardOutput(), QByteArray("0\n"));
        QVERIFY(!second.readAllStandardError().contains("Register OK"));
    }

    void registeredGameHearsAndOutlivesNonsense()
    {
        Process game(LINKUSER_PROGRAM, {L1("register"), L1("stay")});
        QCOMPARE(game.nextLine(), QByteArray("0\n"));
        QCOMPARE(game.nextLine(QProcess::StandardError), QByteArray("-------------------Register OK\n"));

        const auto ask = [](const char *method, const QVariantList &arguments) {
            QDBusMessage call
                = QDBusMessage::createMethodCall(GamePeer::name(), QStringLiteral("/"), QString(), L1(method));
            call.setArguments(arguments);
            return QDBusConnection::sessionBus().call(call);
        };
        QCOMPARE(ask("recive", {7}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(ask("recive", {}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(ask("deleteLater", {}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(ask("received", {L1("a signal")}).type(), QDBusMessage::ErrorMessage);
        const QDBusMessage reply = ask("recive", {QString(10000, QLatin1Char('x'))});
        QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
        QCOMPARE(reply.signature(), QString());
        QCOMPARE(game.nextLine(QProcess::StandardError), "\"->>>>>>>>> Recive" + QByteArray(10000, 'x') + "\"\n");
    }
};

QTEST_GUILESS_MAIN(GameLinkTest)
#include "tst_gamelink.moc"
