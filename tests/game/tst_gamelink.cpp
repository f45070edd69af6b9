// SPDX-License-Identifier: MIT
#include "gamepeer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QtTest>

#include <cstring>

Q_DECLARE_METATYPE(GamePeer::Answer)

namespace {

using Answer = GamePeer::Answer;

const QByteArray hint = "Cannot connect to the D-Bus session bus.\n"
                        "To start it, run:\n"
                        "\teval `dbus-launch --auto-syntax`\n";

/// A process that uses the link, with a console that is read.
class LinkUser : public QProcess {
public:
    explicit LinkUser(const QStringList &arguments, bool withBus = true)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        if (!withBus)
            environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("unix:path=/nowhere"));
        setProcessEnvironment(environment);
        start(QStringLiteral(LINKUSER_PROGRAM), arguments);
    }
    ~LinkUser() override
    {
        kill();
        waitForFinished();
    }

    /// Keeps this process's own event loop going, where the strangers answer.
    bool ends()
    {
        return QTest::qWaitFor([this] { return state() == NotRunning; }, 10000);
    }

    QByteArray nextLine(ProcessChannel channel)
    {
        setReadChannel(channel);
        return QTest::qWaitFor([this] { return canReadLine(); }, 10000) ? readLine() : QByteArray();
    }
};

} // namespace

class GameLinkTest : public QObject {
    Q_OBJECT

private slots:
    void strangersAnswer_data();
    void strangersAnswer();
    void messageArrivesAsItIs();
    void nobodyOwnsTheName();
    void nobodyIsAtThePath();
    void noBus_data();
    void noBus();
    void ownersAreSeen();
    void registeredGameHears();
    void registeredGameOutlivesNonsense();
    void nameIsTaken();
};

void GameLinkTest::strangersAnswer_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QString>("described");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArray>("errors");

    const Answer nothing = [](const QDBusMessage &call) { return call.createReply(); };
    const QByteArray noString
        = "Call failed: Unexpected reply signature: got \"<empty signature>\", expected \"s\" (QString)\n";

    QTest::newRow("with a string") << Answer(GamePeer::answerString) << QString() << QByteArray("call ok")
                                   << QByteArray();
    QTest::newRow("with an empty string")
        << Answer([](const QDBusMessage &call) { return call.createReply(QString()); }) << QString()
        << QByteArray("call ok") << QByteArray();
    QTest::newRow("with nothing") << nothing << QString() << QByteArray() << noString;
    QTest::newRow("though none need wait")
        << nothing
        << QStringLiteral("<interface name='game.Link'><method name='recive'><arg type='s' direction='in'/>"
                          "<annotation name='org.freedesktop.DBus.Method.NoReply' value='true'/></method></interface>")
        << QByteArray() << noString;
    QTest::newRow("with a number")
        << Answer([](const QDBusMessage &call) { return call.createReply(7); }) << QString() << QByteArray()
        << QByteArray("Call failed: Unexpected reply signature: got \"i\" (int), expected \"s\" (QString)\n");
    QTest::newRow("with an error") << Answer([](const QDBusMessage &call) {
        return call.createErrorReply(QStringLiteral("game.Error.Busy"), QStringLiteral("100 % busy: %s%n"));
    }) << QString() << QByteArray() << QByteArray("Call failed: 100 % busy: %s%n\n");
    QTest::newRow("by leaving")
        << Answer([](const QDBusMessage &) { return QDBusMessage(); }) << QString() << QByteArray()
        << QByteArray("Call failed: Message recipient disconnected from message bus without replying\n");
}

void GameLinkTest::strangersAnswer()
{
    QFETCH(Answer, answer);
    QFETCH(QString, described);
    GamePeer game(answer, described);
    LinkUser companion({QStringLiteral("send"), QStringLiteral("QUIT")});
    QVERIFY(companion.ends());
    QCOMPARE(companion.exitCode(), 0);
    QTEST(companion.readAllStandardOutput(), "output");
    QTEST(companion.readAllStandardError(), "errors");
}

void GameLinkTest::messageArrivesAsItIs()
{
    GamePeer game;
    LinkUser companion({QStringLiteral("send"), QStringLiteral("RESUMEGAME")});
    QVERIFY(companion.ends());
    QCOMPARE(game.calls.size(), 1);
    const QDBusMessage call = game.calls.first();
    QCOMPARE(call.member(), QStringLiteral("recive"));
    QCOMPARE(call.interface(), QString());
    QCOMPARE(call.arguments(), QVariantList{QStringLiteral("RESUMEGAME")});
}

void GameLinkTest::nobodyOwnsTheName()
{
    LinkUser companion({QStringLiteral("send"), QStringLiteral("QUIT")});
    QVERIFY(companion.ends());
    QCOMPARE(companion.readAllStandardOutput(), QByteArray());
    QCOMPARE(companion.readAllStandardError(),
             QByteArray("The name com.quelmora.QtDBus.Torvane was not provided by any .service files\n"));
}

void GameLinkTest::nobodyIsAtThePath()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    QVERIFY(bus.registerService(GamePeer::name()));
    LinkUser companion({QStringLiteral("send"), QStringLiteral("QUIT")});
    QVERIFY(companion.ends());
    QVERIFY(bus.unregisterService(GamePeer::name()));
    QCOMPARE(companion.readAllStandardError(), QByteArray("Call failed: No such object path '/'\n"));
}

void GameLinkTest::noBus_data()
{
    QTest::addColumn<QStringList>("use");
    QTest::newRow("message") << QStringList{QStringLiteral("send"), QStringLiteral("QUIT")};
    QTest::newRow("registration") << QStringList{QStringLiteral("register")};
    QTest::newRow("question") << QStringList{QStringLiteral("running")};
}

void GameLinkTest::noBus()
{
    QFETCH(QStringList, use);
    LinkUser process(use, false);
    QVERIFY(process.ends());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardError(), hint);
}

void GameLinkTest::ownersAreSeen()
{
    LinkUser before({QStringLiteral("running")});
    QVERIFY(before.ends());
    QCOMPARE(before.exitCode(), 0);
    QCOMPARE(before.readAllStandardError(), QByteArray("-------------------IsRunning FAIL\n"));

    GamePeer game;
    LinkUser then({QStringLiteral("running")});
    QVERIFY(then.ends());
    QCOMPARE(then.exitCode(), 1);
    QCOMPARE(then.readAllStandardError(), QByteArray("-------------------IsRunning OK\n"));
}

void GameLinkTest::registeredGameHears()
{
    LinkUser game({QStringLiteral("register"), QStringLiteral("stay")});
    QCOMPARE(game.nextLine(QProcess::StandardOutput), QByteArray("0\n"));
    QCOMPARE(game.nextLine(QProcess::StandardError), QByteArray("-------------------Register OK\n"));

    LinkUser companion({QStringLiteral("send"), QStringLiteral("QUIT")});
    QVERIFY(companion.ends());
    QVERIFY(companion.readAllStandardError().startsWith("Call failed: Unexpected reply signature"));
    QCOMPARE(game.nextLine(QProcess::StandardError), QByteArray("\"->>>>>>>>> ReciveQUIT\"\n"));
}

void GameLinkTest::registeredGameOutlivesNonsense()
{
    LinkUser game({QStringLiteral("register"), QStringLiteral("stay")});
    QCOMPARE(game.nextLine(QProcess::StandardError), QByteArray("-------------------Register OK\n"));

    const auto ask = [](const QString &method, const QVariantList &arguments) {
        QDBusMessage call = QDBusMessage::createMethodCall(GamePeer::name(), QStringLiteral("/"), QString(), method);
        call.setArguments(arguments);
        return QDBusConnection::sessionBus().call(call);
    };
    QCOMPARE(ask(QStringLiteral("recive"), {7}).type(), QDBusMessage::ErrorMessage);
    QCOMPARE(ask(QStringLiteral("recive"), {}).type(), QDBusMessage::ErrorMessage);
    QCOMPARE(ask(QStringLiteral("deleteLater"), {}).type(), QDBusMessage::ErrorMessage);
    const QDBusMessage reply = ask(QStringLiteral("recive"), {QString(10000, QLatin1Char('x'))});
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    QCOMPARE(reply.signature(), QString());
    QCOMPARE(game.nextLine(QProcess::StandardError).size(), int(std::strlen("\"->>>>>>>>> Recive\"\n")) + 10000);
}

void GameLinkTest::nameIsTaken()
{
    GamePeer game;
    LinkUser second({QStringLiteral("register")});
    QVERIFY(second.ends());
    QCOMPARE(second.readAllStandardOutput(), QByteArray("0\n"));
    QVERIFY(!second.readAllStandardError().contains("Register OK"));
}

QTEST_GUILESS_MAIN(GameLinkTest)
#include "tst_gamelink.moc"
