// SPDX-License-Identifier: MIT
#include "buspeer.h"
#include "process.h"

#include <QDBusConnection>
#include <QDBusMessage>

using Answer = GamePeer::Answer;
Q_DECLARE_METATYPE(Answer)

/// One use of the link in a process of its own.
class LinkUser : public Process {
public:
    explicit LinkUser(const QStringList &use, const QStringList &settings = {})
        : Process(QStringLiteral(LINKUSER_PROGRAM), use, settings)
    {
    }
};

/// The link as both sides use it, each in a process of its own, so that its console and its end are seen.
class GameLinkTest : public QObject {
    Q_OBJECT

private slots:
    void strangersAnswer_data()
    {
        const Table<Answer, QByteArray, QByteArray, QString> row("answer", "output", "errors", "described");
        const Answer error
            = [](const QDBusMessage &call) { return call.createErrorReply("game.Error.Busy"_s, "100 % busy: %s%n"_s); };
        const Answer leave = [](const QDBusMessage &) { return QDBusMessage(); };
        const QByteArray noString
            = "Call failed: Unexpected reply signature: got \"<empty signature>\", expected \"s\" (QString)\n";
        row("with a string", GamePeer::answerString, "call ok", "", {});
        row("with nothing", BusPeer::answerNothing, "", noString, {});
        row("though none need wait", BusPeer::answerNothing, "", noString,
            "<interface name='game.Link'><method name='recive'><arg type='s' direction='in'/>"
            "<annotation name='org.freedesktop.DBus.Method.NoReply' value='true'/></method></interface>"_s);
        row("with an error", error, "", "Call failed: 100 % busy: %s%n\n", {});
        row("by leaving", leave, "", "Call failed: Message recipient disconnected from message bus without replying\n",
            {});
    }
    void strangersAnswer()
    {
        QFETCH(Answer, answer);
        QFETCH(QString, described);
        GamePeer game(answer, described);
        LinkUser companion({"send"_s, "RESUMEGAME"_s});
        QTEST(companion.lastWords(0), "output");
        QTEST(companion.readAllStandardError(), "errors");
        QCOMPARE(game.calls.size(), 1);
        QCOMPARE(game.calls.first().member(), "recive"_s);
        QCOMPARE(game.calls.first().interface(), QString());
        QCOMPARE(game.calls.first().arguments(), QVariantList{"RESUMEGAME"_s});
    }

    void nobodyHears()
    {
        LinkUser early({"send"_s, "QUIT"_s});
        QCOMPARE(early.lastWords(0), QByteArray());
        QCOMPARE(early.readAllStandardError(),
                 QByteArray("The name com.quelmora.QtDBus.Torvane was not provided by any .service files\n"));
        QDBusConnection bus = QDBusConnection::sessionBus();
        QVERIFY(bus.registerService(GamePeer::name()));
        LinkUser lost({"send"_s, "QUIT"_s});
        QVERIFY(lost.endsWith(0));
        QVERIFY(bus.unregisterService(GamePeer::name()));
        QCOMPARE(lost.readAllStandardError(), QByteArray("Call failed: No such object path '/'\n"));
    }

    void noBus()
    {
        for (const QString &use : {"send"_s, "register"_s, "running"_s}) {
            LinkUser process({use, "QUIT"_s}, {Process::noBus()});
            QCOMPARE(process.lastWords(0, QProcess::StandardError),
                     QByteArray("Cannot connect to the D-Bus session bus.\n"
                                "To start it, run:\n"
                                "\teval `dbus-launch --auto-syntax`\n"));
        }
    }

    void ownersAreSeen()
    {
        LinkUser before({"running"_s});
        QCOMPARE(before.lastWords(0, QProcess::StandardError), QByteArray("-------------------IsRunning FAIL\n"));

        GamePeer game;
        LinkUser then({"running"_s});
        QCOMPARE(then.lastWords(1, QProcess::StandardError), QByteArray("-------------------IsRunning OK\n"));
        LinkUser second({"register"_s});
        QCOMPARE(second.lastWords(0), QByteArray("0\n"));
        QVERIFY(!second.readAllStandardError().contains("Register OK"));
    }

    void registeredGameHearsAndOutlivesNonsense()
    {
        // Newer releases of Qt tell of each call that fits no slot.
        qputenv("QT_LOGGING_RULES", "qt.dbus.integration.warning=false");
        LinkUser game({"register"_s, "stay"_s});
        QCOMPARE(game.nextLine(), QByteArray("0\n"));
        QCOMPARE(game.nextLine(QProcess::StandardError), QByteArray("-------------------Register OK\n"));

        const auto ask = [](const char *method, const QVariantList &arguments) {
            QDBusMessage call
                = QDBusMessage::createMethodCall(GamePeer::name(), "/"_s, QString(), QLatin1String(method));
            call.setArguments(arguments);
            return QDBusConnection::sessionBus().call(call);
        };
        QCOMPARE(ask("recive", {7}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(ask("recive", {}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(ask("deleteLater", {}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(ask("received", {"a signal"_s}).type(), QDBusMessage::ErrorMessage);
        const QDBusMessage reply = ask("recive", {QString(10000, QLatin1Char('x'))});
        QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
        QCOMPARE(reply.signature(), QString());
        QCOMPARE(game.nextLine(QProcess::StandardError), "\"->>>>>>>>> Recive" + QByteArray(10000, 'x') + "\"\n");
    }
};

QTEST_GUILESS_MAIN(GameLinkTest)
#include "tst_gamelink.moc"
