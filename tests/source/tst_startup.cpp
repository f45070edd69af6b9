#include "gamepeer.h"
#include "testservice.h"

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
    explicit Companion(const QStringList &arguments)
        : Companion(arguments, QNetworkProxy::applicationProxy().port(),
                    qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"))
    {
    }

    Companion(const QStringList &arguments, quint16 proxyPort, const QString &busAddress)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("http_proxy"), QStringLiteral("http://127.0.0.1:%1").arg(proxyPort));
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress);
        setProcessEnvironment(environment);
        setWorkingDirectory(folder.path());
        start(QStringLiteral(COMPANION_PROGRAM), arguments);
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

class StartupTest : public QObject {
    Q_OBJECT

private slots:
    void wrongCountEndsAtOnce_data();
    void wrongCountEndsAtOnce();
    void startUrl_data();
    void startUrl();
    void trophiesKeepTheirBits_data();
    void trophiesKeepTheirBits();
    void signalsTellTheGame_data();
    void signalsTellTheGame();
    void repeatedSignalsTellTheGameOnce();
    void endsWhilePageLoads();
    void runsWithoutNetwork();
    void endsWithoutGame();
    void endsWithoutBus();
};

void StartupTest::wrongCountEndsAtOnce_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList();
    QTest::newRow("one") << QStringList{QStringLiteral("7")};
    QTest::newRow("four") << plain + plain;
}

void StartupTest::wrongCountEndsAtOnce()
{
    QFETCH(QStringList, arguments);
    const TestService service;
    const GamePeer game;
    Companion companion(arguments);
    QVERIFY(companion.ends());
    QCOMPARE(companion.exitStatus(), QProcess::NormalExit);
    QCOMPARE(companion.exitCode(), 0);
    QCOMPARE(companion.readAllStandardOutput(), QByteArray());
    QVERIFY(service.urls().isEmpty());
    QVERIFY(game.calls.isEmpty());
}

void StartupTest::startUrl_data()
{
    QTest::addColumn<QString>("game");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("sentGame");
    QTest::addColumn<QString>("sentLanguage");
    const auto row = [](const char *game, const char *language, const char *sentGame, const char *sentLanguage) {
        QTest::addRow("%s %s", game, language) << QString::fromLatin1(game) << QString::fromLatin1(language)
                                               << QString::fromLatin1(sentGame) << QString::fromLatin1(sentLanguage);
    };
    row("12", "3", "12", "IT");
    row("-5", "4", "-5", "SP");
    row("7", "5", "7", "EN");
    row("7", "-1", "7", "EN");
    row("7", "4294967298", "7", "EN");
    row("garbage", "?", "0", "EN");
    row("", " +2nd", "0", "DE");
    row("99999999999999999999", "1", "2147483647", "FR");
    row("-99999999999999999999", "0", "-2147483648", "EN");
}

void StartupTest::startUrl()
{
    QFETCH(QString, game);
    QFETCH(QString, language);
    QFETCH(QString, sentGame);
    QFETCH(QString, sentLanguage);
    const TestService service;
    const Companion companion({game, language});
    QVERIFY(requestsStartPage(service));
    const QString expected
        = QStringLiteral(VANTU_SERVICE_ROOT "/vantu/[?]lg=%1&country=[A-Z]*&d=[^&]*&f=[^&]*&udid=[^&]*"
                                            "&KVB=%2&username=&pass=&remember_me=0&type=MEEGO"
                                            "&width=480&height=854&fb=1")
              .arg(sentLanguage, sentGame);
    const QString url = service.urls().first();
    QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(expected)).match(url).hasMatch(), qPrintable(url));
}

void StartupTest::trophiesKeepTheirBits_data()
{
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("above 32 bits") << QStringLiteral("4294967297") << QByteArray("trophy_id[]=0&trophy_id[]=32");
    QTest::newRow("highest bit") << QStringLiteral("9223372036854775808") << QByteArray("trophy_id[]=63");
    QTest::newRow("highest bit, negative") << QStringLiteral("-9223372036854775808") << QByteArray("trophy_id[]=63");
}

void StartupTest::trophiesKeepTheirBits()
{
    QFETCH(QString, mask);
    TestService service;
    service.answer(QStringLiteral("/vantu/"),
                   {TestService::page({{QStringLiteral("sUserUid"), QStringLiteral("'u1'")}}), 200, {}, 0});
    const Companion companion(plain + QStringList(mask));
    QTRY_COMPARE_WITH_TIMEOUT(service.urls(QStringLiteral("POST")).size(), 1, 20000);
    for (const TestService::Request &request : service.requests()) {
        if (request.method == QLatin1String("POST"))
            QTEST(request.body, "body");
    }
}

void StartupTest::signalsTellTheGame_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void StartupTest::signalsTellTheGame()
{
    QFETCH(int, signal);
    const TestService service;
    const GamePeer game;
    Companion companion(plain);
    QVERIFY(requestsStartPage(service));
    companion.sendSignal(signal);
    QVERIFY(companion.ends());
    QCOMPARE(companion.exitStatus(), QProcess::NormalExit);
    QCOMPARE(companion.exitCode(), 0);
    QVERIFY(companion.readAllStandardOutput().startsWith("EnTask\ncall ok"));
    QCOMPARE(game.calls.size(), 1);
    QCOMPARE(game.calls.first().arguments(), QVariantList{QStringLiteral("QUIT")});
}

void StartupTest::repeatedSignalsTellTheGameOnce()
{
    const TestService service;
    const GamePeer game;
    Companion companion(plain);
    QVERIFY(requestsStartPage(service));
    for (int signal : {SIGINT, SIGTERM, SIGINT, SIGHUP})
        companion.sendSignal(signal);
    QVERIFY(companion.ends());
    QCOMPARE(companion.exitStatus(), QProcess::NormalExit);
    QCOMPARE(companion.readAllStandardOutput().count("EnTask\n"), 1);
    QCOMPARE(game.calls.size(), 1);
}

void StartupTest::endsWhilePageLoads()
{
    TestService service;
    service.answer(QStringLiteral("/vantu/"), {"late", 200, {}, 1000});
    Companion companion(plain);
    QVERIFY(requestsStartPage(service));
    companion.sendSignal(SIGTERM);
    QVERIFY(companion.ends());
    QCOMPARE(companion.exitStatus(), QProcess::NormalExit);
    QCOMPARE(companion.exitCode(), 0);
}

void StartupTest::runsWithoutNetwork()
{
    const GamePeer game;
    QTcpServer refusing;
    QVERIFY(refusing.listen(QHostAddress::LocalHost));
    QSignalSpy asked(&refusing, &QTcpServer::newConnection);
    connect(&refusing, &QTcpServer::newConnection, [&refusing] { delete refusing.nextPendingConnection(); });
    Companion companion(plain, refusing.serverPort(), qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
    QVERIFY(asked.wait(20000));
    companion.sendSignal(SIGTERM);
    QVERIFY(companion.ends());
    QCOMPARE(companion.exitCode(), 0);
    QCOMPARE(game.calls.size(), 1);
}

void StartupTest::endsWithoutGame()
{
    const TestService service;
    Companion companion(plain);
    QVERIFY(requestsStartPage(service));
    companion.sendSignal(SIGTERM);
    QVERIFY(companion.ends());
    QCOMPARE(companion.exitCode(), 0);
    QVERIFY(companion.readAllStandardOutput().startsWith("EnTask\n"));
    QCOMPARE(companion.readAllStandardError().count("was not provided by any .service files\n"), 1);
}

void StartupTest::endsWithoutBus()
{
    const TestService service;
    Companion companion(plain, QNetworkProxy::applicationProxy().port(), QStringLiteral("unix:path=/nowhere"));
    QVERIFY(requestsStartPage(service));
    companion.sendSignal(SIGTERM);
    QVERIFY(companion.ends());
    QCOMPARE(companion.exitCode(), 0);
    QVERIFY(companion.readAllStandardOutput().startsWith("EnTask\n"));
    QCOMPARE(companion.readAllStandardError().count("Cannot connect to the D-Bus session bus.\n"), 1);
}

QTEST_GUILESS_MAIN(StartupTest)
#include "tst_startup.moc"
