// SPDX-License-Identifier: MIT
#include "gamepeer.h"
#include "testservice.h"

#include <QLocalServer>
#include <QNetworkProxy>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace {

/// The companion as the game starts it. It keeps its login in an empty folder of its own.
class Companion : public QProcess {
public:
    /// Its requests go to whatever is the application-wide proxy here.
    explicit Companion(const QStringList &arguments, quint16 proxyPort = QNetworkProxy::applicationProxy().port(),
                       const QString &busAddress = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                       bool hasDisplay = true, const QString &program = QStringLiteral(COMPANION_PROGRAM))
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("http_proxy"), QStringLiteral("http://127.0.0.1:%1").arg(proxyPort));
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress);
        if (!hasDisplay) {
            environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
            environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":nowhere"));
            environment.insert(QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("nowhere"));
        }
        setProcessEnvironment(environment);
        setWorkingDirectory(folder.path());
        start(program, arguments);
    }
    ~Companion() override
    {
        kill();
        waitForFinished();
    }

    void sendSignal(int signal) { ::kill(static_cast<pid_t>(processId()), signal); }

    /// Keeps this process's own event loop going, where the game answers.
    bool ends()
    {
        return QTest::qWaitFor([this] { return state() == NotRunning; }, 20000);
    }

private:
    QTemporaryDir folder;
};

bool requestsStartPage(const TestService &service)
{
    return QTest::qWaitFor([&service] { return !service.urls().isEmpty(); }, 20000);
}

const QStringList plain{QStringLiteral("7"), QStringLiteral("0")};

} // namespace

/// The companion as a program: its arguments, its start URL and its end.
class StartupTest : public QObject {
    Q_OBJECT

private slots:
    void endsAtOnce_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<bool>("hasDisplay");
        QTest::addColumn<int>("status");
        QTest::newRow("one") << QStringList{QStringLiteral("7")} << true << 0;
        QTest::newRow("four") << plain + plain << true << 0;
        QTest::newRow("four, no display") << plain + plain << false << 0;
        QTest::newRow("no display") << plain << false << 1;
    }
    void endsAtOnce()
    {
        QFETCH(QStringList, arguments);
        QFETCH(bool, hasDisplay);
        const TestService service;
        const GamePeer game;
        Companion companion(arguments, QNetworkProxy::applicationProxy().port(),
                            qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), hasDisplay);
        QVERIFY(companion.ends());
        QCOMPARE(companion.exitStatus(), QProcess::NormalExit);
        QTEST(companion.exitCode(), "status");
        QCOMPARE(companion.readAllStandardOutput(), QByteArray());
        QCOMPARE(companion.readAllStandardError().count("vantu: no display: "), companion.exitCode());
        QVERIFY(service.urls().isEmpty());
        QVERIFY(game.calls.isEmpty());
    }

    void startUrl_data()
    {
        QTest::addColumn<QString>("game");
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("sentGame");
        QTest::addColumn<QString>("sentLanguage");
        const auto row = [](const char *game, const char *language, const char *sentGame, const char *sentLanguage) {
            QTest::addRow("%s %s", game, language) << game << language << sentGame << sentLanguage;
        };
        row("-5", "4", "-5", "SP");
        row("12", "5", "12", "EN");
        row("garbage", " +2nd", "0", "DE");
        row("99999999999999999999", "4294967298", "2147483647", "EN");
    }
    void startUrl()
    {
        QFETCH(QString, game);
        QFETCH(QString, language);
        QFETCH(QString, sentGame);
        QFETCH(QString, sentLanguage);
        const TestService service;
        const Companion companion({game, language});
        QVERIFY(requestsStartPage(service));
        const QString expected
            = QStringLiteral("http://vantu.test/vantu/[?]lg=%1&country=[A-Z]*&d=[^&]*&f=[^&]*&udid=[^&]*"
                             "&KVB=%2&username=&pass=&remember_me=0&type=MEEGO&width=480&height=854&fb=1")
                  .arg(sentLanguage, sentGame);
        const QString url = service.urls().first();
        const QRegularExpression whole(QRegularExpression::anchoredPattern(expected));
        QVERIFY2(whole.match(url).hasMatch(), qPrintable(url));
    }

    void trophiesKeepTheirBits()
    {
        TestService service;
        service.answer(QStringLiteral("/vantu/"),
                       {TestService::page({{QStringLiteral("sUserUid"), QStringLiteral("'u1'")}}), 200, {}, 0});
        const Companion companion(plain + QStringList(QStringLiteral("9223372041149743105")));
        QTRY_COMPARE_WITH_TIMEOUT(service.urls(QStringLiteral("POST")).size(), 1, 20000);
        for (const TestService::Request &request : service.requests()) {
            if (request.method == QLatin1String("POST"))
                QCOMPARE(request.body, QByteArray("trophy_id[]=0&trophy_id[]=32&trophy_id[]=63"));
        }
    }

    void signalsTellTheGameOnce_data()
    {
        QTest::addColumn<QList<int>>("signalsSent");
        QTest::addColumn<QByteArray>("html");
        for (const int signal : {SIGTERM, SIGINT, SIGHUP})
            QTest::newRow(strsignal(signal)) << QList<int>{signal} << QByteArray("late");
        QTest::newRow("all") << QList<int>{SIGINT, SIGTERM, SIGINT, SIGHUP} << QByteArray("late");
        QTest::newRow("while a page computes for ever")
            << QList<int>{SIGTERM, SIGINT}
            << QByteArray(
                   "<script>r = new XMLHttpRequest; r.open('GET', '/hangs', false); r.send(); for (;;);</script>");
    }
    void signalsTellTheGameOnce()
    {
        QFETCH(QList<int>, signalsSent);
        QFETCH(QByteArray, html);
        const bool hangs = html.contains("/hangs");
        TestService service;
        // The end does not wait for the page.
        service.answer(QStringLiteral("/vantu/"), {html, 200, {}, hangs ? 0 : 1000});
        Companion companion(plain);
        // Nor does another signal change anything while the game makes up its mind.
        const GamePeer game([&companion](const QDBusMessage &call) {
            companion.sendSignal(SIGTERM);
            return GamePeer::answerString(call);
        });
        const int requests = hangs ? 2 : 1;
        QTRY_COMPARE_WITH_TIMEOUT(service.urls().size(), requests, 20000);
        for (const int signal : signalsSent)
            companion.sendSignal(signal);
        QVERIFY(companion.ends());
        QCOMPARE(companion.exitStatus(), QProcess::NormalExit);
        QCOMPARE(companion.exitCode(), 0);
        const QByteArray output = companion.readAllStandardOutput();
        QVERIFY(output.startsWith("EnTask\ncall ok"));
        QCOMPARE(output.count("EnTask\n"), 1);
        QCOMPARE(game.calls.size(), 1);
        QCOMPARE(game.calls.first().arguments(), QVariantList{QStringLiteral("QUIT")});
    }

    void exampleGamesHear_data()
    {
        QTest::addColumn<QString>("game");
        for (const QString &game : QStringLiteral(EXAMPLE_GAMES).split(QLatin1Char('|')))
            QTest::newRow(qPrintable(QFileInfo(game).fileName())) << game;
    }
    void exampleGamesHear()
    {
        QFETCH(QString, game);
        const TestService service;
        Companion process(QStringList(QStringLiteral(COMPANION_PROGRAM)) + plain,
                          QNetworkProxy::applicationProxy().port(), qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                          true, game);
        QVERIFY(requestsStartPage(service));
        QFile children(QStringLiteral("/proc/%1/task/%1/children").arg(process.processId()));
        QVERIFY(children.open(QIODevice::ReadOnly));
        const auto companion = static_cast<pid_t>(children.readAll().trimmed().toLongLong());
        QVERIFY(companion > 0);
        kill(companion, SIGTERM);
        QVERIFY(process.ends());
        QCOMPARE(process.exitCode(), 0);
        const QByteArray output = process.readAllStandardOutput();
        QVERIFY2(output.contains("heard QUIT\n") && output.contains("call ok") && output.endsWith("ended 0\n"), output);
    }

    void runsWithoutNetwork()
    {
        const GamePeer game;
        QTcpServer refusing;
        QVERIFY(refusing.listen(QHostAddress::LocalHost));
        QSignalSpy asked(&refusing, &QTcpServer::newConnection);
        connect(&refusing, &QTcpServer::newConnection, [&refusing] { delete refusing.nextPendingConnection(); });
        Companion companion(plain, refusing.serverPort());
        QVERIFY(asked.wait(20000));
        companion.sendSignal(SIGTERM);
        QVERIFY(companion.ends());
        QCOMPARE(companion.exitCode(), 0);
        QCOMPARE(game.calls.size(), 1);
    }

    void endsWithoutGame_data()
    {
        QVERIFY(silentBus.isListening() || silentBus.listen(silentBusFolder.filePath(QStringLiteral("bus"))));
        QTest::addColumn<QString>("bus");
        QTest::addColumn<QByteArray>("complaint");
        QTest::newRow("no game") << qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS")
                                 << QByteArray("was not provided by any .service files\n");
        const QByteArray hint("Cannot connect to the D-Bus session bus.\n");
        QTest::newRow("no bus") << "unix:path=/nowhere" << hint;
        QTest::newRow("a bus that never speaks") << QLatin1String("unix:path=") + silentBus.fullServerName() << hint;
    }
    void endsWithoutGame()
    {
        QFETCH(QString, bus);
        QFETCH(QByteArray, complaint);
        const TestService service;
        Companion companion(plain, QNetworkProxy::applicationProxy().port(), bus);
        QVERIFY(requestsStartPage(service));
        companion.sendSignal(SIGTERM);
        QVERIFY(companion.ends());
        QCOMPARE(companion.exitCode(), 0);
        QVERIFY(companion.readAllStandardOutput().startsWith("EnTask\n"));
        QCOMPARE(companion.readAllStandardError().count(complaint), 1);
    }

private:
    QTemporaryDir silentBusFolder;
    QLocalServer silentBus;
};

QTEST_GUILESS_MAIN(StartupTest)
#include "tst_startup.moc"
