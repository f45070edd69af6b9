// SPDX-License-Identifier: MIT
#include "buspeer.h"
#include "process.h"
#include "testservice.h"

#include <QLocalServer>
#include <QNetworkProxy>

namespace {

/// The companion as the game starts it. Its requests go to whatever is the application-wide proxy here.
class Companion : public Process {
public:
    explicit Companion(const QStringList &arguments, const QStringList &settings = {},
                       const QString &program = QStringLiteral(COMPANION_PROGRAM))
        : Process(program, arguments,
                  QStringList("http_proxy=http://127.0.0.1:%1"_s.arg(QNetworkProxy::applicationProxy().port()))
                      + settings)
    {
    }
};

const QStringList plain{"7"_s, "0"_s};

/// The companion in @p folder, on a system where Qt comes with no plugin for any display.
QString withoutPlatforms(const QTemporaryDir &folder)
{
    const QString plugin = "/platforms/libqminimal.so"_s;
    const QString program = folder.filePath("vantu"_s);
    QFile settings(folder.filePath("qt.conf"_s));
    if (!QDir(folder.path()).mkdir("platforms"_s) || !QFile::copy(QStringLiteral(COMPANION_PROGRAM), program)
        || !QFile::link(QCoreApplication::libraryPaths().constFirst() + plugin, folder.path() + plugin)
        || !settings.open(QFile::WriteOnly))
        return QString();
    settings.write("[Paths]\nPlugins = .\n");
    return program;
}

} // namespace

/// The companion as a program: its arguments, its start URL and its end.
class StartupTest : public QObject {
    Q_OBJECT

private slots:
    void endsAtOnce()
    {
        const QTemporaryDir folder;
        const QStringList noDisplay{"QT_QPA_PLATFORM="_s, "DISPLAY=:nowhere"_s, "WAYLAND_DISPLAY="_s};
        const QStringList neither{"QT_QPA_PLATFORM="_s, "DISPLAY=:nowhere"_s, "WAYLAND_DISPLAY=nowhere"_s};
        const QStringList nothing{"QT_QPA_PLATFORM="_s, "DISPLAY="_s, "WAYLAND_DISPLAY="_s};
        const QString program = QStringLiteral(COMPANION_PROGRAM);
        const QString bare = withoutPlatforms(folder);
        const TestService service;
        const GamePeer game;
        for (const auto &[name, arguments, settings, reason] :
             {std::tuple(program, QStringList("7"_s), QStringList(), ""),
              {program, plain + plain, {}, ""},
              {program, plain + plain, noDisplay, ""},
              {program, plain, noDisplay, "DISPLAY=:nowhere does not answer"},
              {program, plain, nothing, "neither WAYLAND_DISPLAY nor DISPLAY is set"},
              {bare, plain, noDisplay, "DISPLAY=:nowhere does not answer"},
              {bare, plain, neither,
               "Qt's plugin for Wayland (Debian: qtwayland5 or qt6-wayland) is missing, DISPLAY=:nowhere does not "
               "answer"},
              {program, plain + QStringList{"-platform"_s, "nowhere"_s}, {}, "-platform nowhere opens none"}}) {
            Companion companion(arguments, settings, name);
            QVERIFY2(companion.endsWith(*reason ? 1 : 0), qPrintable((arguments + settings).join(QLatin1Char(' '))));
            QCOMPARE(companion.readAllStandardOutput(), QByteArray());
            const QByteArray errors = companion.readAllStandardError();
            QCOMPARE(errors.count("vantu: no display: "), *reason ? 1 : 0);
            QVERIFY2(!*reason || errors.trimmed().endsWith(QByteArray("no display: ") + reason), errors);
        }
        QVERIFY(service.urls().isEmpty());
        QVERIFY(game.calls.isEmpty());
    }

    void argumentsReachTheService()
    {
        TestService service;
        service.answer("/vantu/"_s, {TestService::page("sUserUid = 'u1'"_s)});
        const Companion companion({"-5"_s, " +4th"_s, "9223372041149743105"_s});
        QTRY_COMPARE_WITH_TIMEOUT(service.requests("POST"_s).size(), 1, 20000);
        QCOMPARE(service.requests("POST"_s).first().body, QByteArray("trophy_id[]=0&trophy_id[]=32&trophy_id[]=63"));
        QCOMPARE(service.urls().size(), 1);
        const QString url = service.urls().first();
        const QRegularExpression expected(QRegularExpression::anchoredPattern(
            "http://vantu.test/vantu/[?]lg=SP&country=[A-Z]*&d=[^&]*&f=[^&]*&udid=[^&]*"
            "&KVB=-5&username=&pass=&remember_me=0&type=MEEGO&width=480&height=854&fb=1"_s));
        QVERIFY2(expected.match(url).hasMatch(), qPrintable(url));
    }

    void endTellsTheGameOnce_data()
    {
        const Table<QList<int>, QByteArray> row("signalsSent", "html");
        for (const int signal : endSignals)
            row(strsignal(signal), {signal}, "late");
        row("all", {SIGINT, SIGTERM, SIGINT, SIGHUP}, "late");
        row("without a network", {SIGTERM}, {});
        const QByteArray hanging
            = "<script>r = new XMLHttpRequest; r.open('GET', '/hangs', false); r.send(); for (;;);</script>";
        row("while a page computes for ever", {SIGTERM, SIGINT}, hanging);
        row("display gone meanwhile", {}, hanging);
    }
    void endTellsTheGameOnce()
    {
        QFETCH(QList<int>, signalsSent);
        QFETCH(QByteArray, html);
        const bool hangs = html.contains("/hangs");
        TestService service;
        service.isSilent = html.isEmpty();
        // The end does not wait for the page.
        service.answer("/vantu/"_s, {html, 200, {}, hangs ? 0 : 1000});
        // The bus is found behind an address that leads nowhere, too.
        const QString address = "DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere;"_s;
        QStringList settings{address + qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS")};
        Process display("Xvfb"_s, {"-displayfd"_s, "1"_s, "-nolisten"_s, "tcp"_s});
        if (signalsSent.isEmpty())
            settings += {"QT_QPA_PLATFORM=xcb"_s, "DISPLAY=:"_s + QString::fromLatin1(display.nextLine().trimmed())};
        Companion companion(plain, settings);
        // Nor does another signal change anything while the game makes up its mind.
        const GamePeer game([&companion](const QDBusMessage &call) {
            companion.sendSignal(SIGTERM);
            return GamePeer::answerString(call);
        });
        const int requests = hangs ? 2 : 1;
        QTRY_COMPARE_WITH_TIMEOUT(service.urls().size(), requests, 20000);
        for (const int signal : signalsSent)
            companion.sendSignal(signal);
        if (signalsSent.isEmpty())
            display.kill();
        const QByteArray output = companion.lastWords(0);
        QVERIFY(output.startsWith("EnTask\ncall ok"));
        QCOMPARE(output.count("EnTask\n"), 1);
        QCOMPARE(game.calls.size(), 1);
        QCOMPARE(game.calls.first().arguments(), QVariantList{"QUIT"_s});
    }

    void exampleGamesHear_data()
    {
        const Table<QString> row("game");
        for (const QString &game : QStringLiteral(EXAMPLE_GAMES).split(QLatin1Char('|')))
            row(qPrintable(QFileInfo(game).fileName()), game);
    }
    void exampleGamesHear()
    {
        QFETCH(QString, game);
        const TestService service;
        Companion process(QStringList(QStringLiteral(COMPANION_PROGRAM)) + plain, {}, game);
        QTRY_VERIFY_WITH_TIMEOUT(!service.urls().isEmpty(), 20000);
        QVERIFY(process.childId() > 0);
        kill(process.childId(), SIGTERM);
        const QByteArray output = process.lastWords(0);
        QVERIFY2(output.contains("heard QUIT\n") && output.contains("call ok") && output.endsWith("ended 0\n"), output);
    }

    void endsWithoutGame()
    {
        const QTemporaryDir folder;
        QLocalServer silentBus;
        QVERIFY(silentBus.listen(folder.filePath("bus"_s)));
        const QByteArray noBus("Cannot connect to the D-Bus session bus.\n");
        const QString silence = "DBUS_SESSION_BUS_ADDRESS=unix:path="_s + silentBus.fullServerName();
        for (const auto &[settings, complaint] :
             {std::pair(QStringList(), QByteArray("was not provided by any .service files\n")),
              {{Process::noBus()}, noBus},
              {{silence}, noBus}}) {
            const TestService service;
            Companion companion(plain, settings);
            QTRY_VERIFY_WITH_TIMEOUT(!service.urls().isEmpty(), 20000);
            companion.sendSignal(SIGTERM);
            QVERIFY2(companion.lastWords(0).startsWith("EnTask\n"), qPrintable(settings.join(QLatin1Char(' '))));
            QCOMPARE(companion.readAllStandardError().count(complaint), 1);
        }
    }
};

QTEST_GUILESS_MAIN(StartupTest)
#include "tst_startup.moc"
