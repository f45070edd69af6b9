// SPDX-License-Identifier: MIT
#include "runningservice.h"
#include "visitor.h"

#include <memory>
#include <QNetworkReply>
#include <QTcpSocket>
#include <signal.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>
#include <vector>

using L1 = QLatin1String;

/// The service as a program: its options, its end, its log, what lasts, and what strangers may do to it.
class ServiceProcess : public QObject {
    Q_OBJECT

private slots:
    void refusesBadOptions()
    {
        const RunningService other;
        const QByteArray usedPort = "--port " + QByteArray::number(other.port());
        for (const auto &[options, complaint] : {std::pair("--host 0.0.0.0", "--public"),
                                                 {"--host 128.0.0.1", "--public"},
                                                 {"--port 65536", "not in range"},
                                                 {usedPort.constData(), "in use"},
                                                 {"--time-limit 0", "not in range"},
                                                 {"--frobnicate", "--help"},
                                                 {"--database ", "file name"},
                                                 {"--database /nowhere/vantu.db", "unable to open"}}) {
            RunningService service(QString::fromLatin1(options).split(QLatin1Char(' ')));
            const QByteArray errors = service.lastWords(1, QProcess::StandardError);
            QVERIFY2(errors.contains(complaint), options + errors);
        }
    }

    void endsCleanly()
    {
        int inherited[2];
        QCOMPARE(socketpair(AF_UNIX, SOCK_STREAM, 0, inherited), 0);
        for (const int signal : endSignals) {
            RunningService service;
            QVERIFY(service.port() > 0);
            // A visitor who is being kept waiting, or who never comes to an end, does not hold it up.
            QElapsedTimer time;
            time.start();
            QNetworkAccessManager network;
            QScopedPointer<QNetworkReply> waiting(
                network.get(QNetworkRequest(QUrl(service.root() + L1("/vantu/slow?ms=10000")))));
            QTcpSocket talking;
            talking.connectToHost(L1("127.0.0.1"), static_cast<quint16>(service.port()));
            QVERIFY(talking.waitForConnected());
            QTimer talk;
            connect(&talk, &QTimer::timeout, &talking, [&talking] { talking.write("x"); });
            talk.start(100);
            service.exchange("GET /vantu/info/ HTTP/1.0\r\n\r\n");
            service.sendSignal(signal);
            QCOMPARE(service.lastWords(0, QProcess::StandardError), QByteArray());
            QVERIFY(time.elapsed() < 9000);
            // Nor does it end what is another program's.
            QCOMPARE(send(inherited[0], "x", 1, MSG_NOSIGNAL), 1);
        }
        QCOMPARE(close(inherited[0]) + close(inherited[1]), 0);
    }

    void keepsWhatIsInItsFile()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(L1("vantu.db"));
        const auto database = [&file] { return SQLite::Database(file.toStdString(), SQLite::OPEN_READWRITE); };
        auto service = std::make_unique<RunningService>(QStringList{L1("--database"), file});
        const QStringList again{L1("--database"), file, L1("--port"), QString::number(service->port())};
        Visitor emma(service->root());
        QVERIFY(emma.start(L1("FR"), L1("emma"), L1("emma123")));
        const QString token = emma.variable(L1("strPassword"));
        QCOMPARE(service->post(L1("/vantu/messages/send-message/android_uid/7u102"), "user_id[]=u101&message=kept"),
                 200);
        QCOMPARE(QFile::permissions(file) & ~(QFile::ReadUser | QFile::WriteUser),
                 QFile::ReadOwner | QFile::WriteOwner);

        // A session goes on, with all that belongs to it.
        service.reset();
        service = std::make_unique<RunningService>(again);
        QCOMPARE(emma.ledBy(L1("/vantu/messages/index")), L1("/vantu/messages/index"));
        QVERIFY(emma.holds(L1("kept")));
        QCOMPARE(emma.variables("sTitle iGameId strPassword"), L1("Messagerie,7,") + token);
        // Neither a session nor a login can be taken from the file.
        QCOMPARE(database()
                     .execAndGet("SELECT count(*) FROM session WHERE sealed_token = '" + token.toStdString() + "'")
                     .getInt(),
                 0);

        // It ends a day after the last request; the companion keeps the login that it has.
        database().exec("UPDATE session SET used = used - 86390");
        QCOMPARE(emma.ledBy(L1("/vantu/friends")), L1("/vantu/friends"));
        database().exec("UPDATE session SET used = used - 86400");
        for (const char *path : {"/vantu/friends", "/vantu/", "/vantu/login"}) {
            QVERIFY(emma.open(L1(path)));
            QCOMPARE(emma.variable(L1("sUserUid")), L1(""));
            QVERIFY(emma.variable(L1("strPassword")).isNull() && emma.variable(L1("blnRememberMe")).isNull());
        }
        QVERIFY(emma.start(L1("EN"), L1("emma"), token));
        QCOMPARE(emma.variable(L1("strPassword")), token);
        QVERIFY(emma.open(L1("/vantu/logout")));
        QCOMPARE(emma.variable(L1("strPassword")), L1(""));

        service.reset();
        database().exec("PRAGMA user_version = 1");
        RunningService old({L1("--database"), file});
        QVERIFY(old.lastWords(1, QProcess::StandardError).contains("another version"));
    }

    void answersByTheRequest_data()
    {
        const Table<QByteArray, QByteArray> row("request", "status");
        const QByteArray message = "POST /vantu/messages/send-message/android_uid/7u102 HTTP/1.1\r\nHost: here:1\r\n";
        const QByteArray body = "Content-Length: 25\r\n\r\nuser_id[]=u101&message=Hi";
        row("no origin", message + body, "200");
        row("own origin", message + "Origin: http://here:1\r\n" + body, "200");
        row("own origin behind a TLS proxy", message + "Origin: https://here:1\r\n" + body, "200");
        row("foreign origin", message + "Origin: http://elsewhere\r\n" + body, "403");
        row("another port", message + "Origin: http://here:2\r\n" + body, "403");
        row("a page without an origin", message + "Origin: null\r\n" + body, "403");
        row("a foreign GET", "GET /vantu/info/ HTTP/1.1\r\nHost: here\r\nOrigin: http://elsewhere\r\n\r\n", "403");
        row("files", message + "Content-Type: multipart/form-data; boundary=b\r\n" + body, "415");
        row("a multipart body without a boundary", message + "Content-Type: multipart/form-data\r\n" + body, "415");
        row("a long address", "GET /vantu/" + QByteArray(5000, 'x') + " HTTP/1.1\r\n\r\n", "414");
        row("as a proxy gets it", "GET http://vantu.test/vantu/info/ HTTP/1.1\r\n\r\n", "200");
        row("a page that takes its time", "GET /vantu/slow?ms=1200 HTTP/1.1\r\n\r\n", "200");
        row("a path of control characters", "GET /vantu/%00%0a%ff%zz% HTTP/1.1\r\n\r\n", "404");
        row("noise", QByteArray("\x16\x03\x01\r\n\r\n\xff\xfe", 9), "400");
    }
    void answersByTheRequest()
    {
        QFETCH(QByteArray, request);
        QFETCH(QByteArray, status);
        RunningService service;
        QCOMPARE(service.exchange(request).left(12), "HTTP/1.1 " + status);
        service.terminate();
        QCOMPARE(service.lastWords(0, QProcess::StandardError), QByteArray());
    }

    // A thousand visitors who say nothing and a hundred who say little at a time keep nobody waiting, and go.
    void slowVisitorsHoldUpNobody()
    {
        rlimit files{};
        getrlimit(RLIMIT_NOFILE, &files);
        files.rlim_cur = std::min<rlim_t>(files.rlim_max, 4096);
        setrlimit(RLIMIT_NOFILE, &files);
        RunningService service({L1("--time-limit"), L1("6")});
        std::vector<std::unique_ptr<QTcpSocket>> slow;
        for (int i = 0; i < 1100; ++i) {
            slow.push_back(std::make_unique<QTcpSocket>());
            slow.back()->connectToHost(L1("127.0.0.1"), static_cast<quint16>(service.port()));
            QVERIFY(slow.back()->waitForConnected());
            if (i % 11 == 0)
                slow.back()->write("GET / HTTP/1.1\r\nX-Slow: ");
        }
        QVERIFY(service.exchange("GET /vantu/info/ HTTP/1.0\r\n\r\n").startsWith("HTTP/1.1 200"));
        // However busy the machine, sooner than the last of them goes: that one has five seconds.
        slow.back()->waitForDisconnected(0);
        QCOMPARE(slow.back()->state(), QTcpSocket::ConnectedState);
        // One that goes on speaking is ended too, and not only for its silence.
        QTcpSocket &dripping = *slow.front();
        QTRY_VERIFY_WITH_TIMEOUT(dripping.write("x") != 1 || dripping.state() != QTcpSocket::ConnectedState, 15000);
    }

    // Whether a name is known cannot be told from the time that a wrong password takes: the processor's, which other
    // programs cannot stretch.
    void unknownNamesTakeAsLong()
    {
        RunningService service;
        const auto spent = [&service](const QByteArray &name) {
            clockid_t clock{};
            timespec before{};
            timespec after{};
            clock_getcpuclockid(static_cast<pid_t>(service.processId()), &clock);
            clock_gettime(clock, &before);
            for (int i = 0; i < 5; ++i)
                service.exchange("GET /vantu/?remember_me=1&pass=wrong&username=" + name + " HTTP/1.0\r\n\r\n");
            clock_gettime(clock, &after);
            return double(after.tv_sec - before.tv_sec) + double(after.tv_nsec - before.tv_nsec) / 1e9;
        };
        const double known = spent("emma");
        const double unknown = spent("nobody");
        QVERIFY2(unknown > known / 2 && known > unknown / 2, qPrintable("%1 %2"_s.arg(known).arg(unknown)));
    }

    void logsRequestsWithoutPasswords()
    {
        RunningService service;
        Visitor emma(service.root());
        emma.start(L1("FR"), L1("emma"), L1("guess&more=secret"));
        emma.submit(L1("/vantu/login"), "password=emma123&username=emma");
        service.exchange("GET /vantu/?p%61ss=tucked&x=away HTTP/1.0\r\n\r\n");
        service.exchange("GET /vantu/?lg=pass&x=shown HTTP/1.0\r\n\r\n");
        service.exchange("GET /vantu/\x1b[1m\xff HTTP/1.0\r\n\r\n");
        service.post(L1("/vantu/messages/send-message/android_uid/7u102"),
                     "user_id%5B%5D=u101&message=a%0Ab%22%1B%C3%A9%C2%9B%E2%80%AE");
        QTRY_VERIFY(service.log().join(L1(" ")).contains(L1("message=")));
        const QString log = service.log().join(QLatin1Char('\n'));
        for (const char *secret : {"guess", "more", "secret", "emma123", "tucked", "away"})
            QVERIFY2(!log.contains(L1(secret)), qPrintable(log));
        QVERIFY(log.startsWith(L1("GET /vantu/?lg=FR&country=SE&d=N9&f=1.0&udid=1&KVB=7&username=emma&pass=***"
                                  "&remember_me=1&type=MEEGO&width=480&height=854&fb=1 200\n")));
        QVERIFY(log.contains(L1("POST /vantu/login 303 password=\"***\" username=\"emma\"")));
        QVERIFY(log.contains(L1("GET /vantu/?lg=pass&x=shown 200\n")));
        QVERIFY2(log.contains(L1("GET /vantu/\\x1b[1m\\xff 404\n")), qPrintable(log));
        QVERIFY(log.endsWith("POST /vantu/messages/send-message/android_uid/7u102 200 user_id[]=\"u101\" "
                             "message=\"a\\nb\\\"\\x1bé\\xc2\\x9b\\xe2\\x80\\xae\""_s));
    }
};

QTEST_MAIN(ServiceProcess)
#include "tst_serviceprocess.moc"
