// SPDX-License-Identifier: MIT
#include "runningservice.h"
#include "visitor.h"

#include <memory>
#include <QElapsedTimer>
#include <QNetworkReply>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>
#include <signal.h>

using L1 = QLatin1String;

namespace {

QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '));
}

} // namespace

/// The service as a program: its options, its end, its log, what lasts.
class ServiceProcess : public QObject {
    Q_OBJECT

private slots:
    void refusesBadOptions_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("complaint");

        QTest::newRow("an address that others reach") << words("--host 0.0.0.0") << "--public";
        QTest::newRow("a port beyond all ports") << words("--port 65536") << "port";
        QTest::newRow("an unknown option") << words("--frobnicate") << "usage";
        QTest::newRow("a database in no folder") << words("--database /nowhere/vantu.db") << "unable to open";
    }
    void refusesBadOptions()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, complaint);
        RunningService service(arguments);
        QCOMPARE(service.exitStatus(), 1);
        const QString errors = service.errors();
        QVERIFY2(errors.contains(complaint), qPrintable(errors));
    }

    void portInUse()
    {
        RunningService first;
        RunningService second({L1("--port"), QString::number(first.port())});
        QCOMPARE(second.exitStatus(), 1);
        QVERIFY(second.errors().contains(L1("in use")));
    }

    void endsCleanly_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }
    void endsCleanly()
    {
        QFETCH(int, signal);
        RunningService service;
        QVERIFY(service.port() > 0);
        // A visitor who is being kept waiting does not hold it up.
        QNetworkAccessManager network;
        QScopedPointer<QNetworkReply> waiting(
            network.get(QNetworkRequest(QUrl(service.root() + L1("/vantu/slow?ms=9000")))));
        service.get(L1("/vantu/info/"));
        QElapsedTimer time;
        time.start();
        QCOMPARE(service.stop(signal), 0);
        QVERIFY(time.elapsed() < 5000);
        QCOMPARE(service.errors(), QString());
    }

    void keepsWhatIsInItsFile()
    {
        const QTemporaryDir folder;
        const QStringList database = {L1("--database"), folder.filePath(L1("vantu.db"))};
        QString token;
        {
            RunningService service(database);
            Visitor emma(service.root());
            QVERIFY(emma.start(L1("EN"), L1("emma"), L1("emma123")));
            token = emma.variable(L1("strPassword"));
            QCOMPARE(service.post(L1("/vantu/messages/send-message/android_uid/7u102"), "user_id[]=u101&message=kept"),
                     200);
        }
        RunningService service(database);
        Visitor emma(service.root());
        QVERIFY(emma.start(L1("EN"), L1("emma"), token));
        QCOMPARE(emma.variable(L1("sUserUid")), L1("u101"));
        QVERIFY(emma.open(L1("/vantu/messages/index")));
        QVERIFY(emma.holds(L1("kept")));
    }

    void logsRequestsWithoutPasswords()
    {
        RunningService service;
        Visitor emma(service.root());
        emma.start(L1("FR"), L1("emma"), L1("guess&more=secret"));
        emma.submit(L1("/vantu/login"), "password=emma123&username=emma");
        emma.submit(L1("/vantu/account/edit"), "name=Em&current_password=emma123&new_password=hidden!");
        service.get(L1("/vantu/?p%61ss=tucked&x=away"));
        service.post(L1("/vantu/messages/send-message/android_uid/7u102"),
                     "user_id%5B%5D=u101&message=a%0Ab%22%1B%C3%A9");
        QTRY_VERIFY(service.log().join(L1(" ")).contains(L1("message=")));
        const QString log = service.log().join(QLatin1Char('\n'));
        for (const char *secret : {"guess", "more", "secret", "emma123", "hidden", "tucked", "away"})
            QVERIFY2(!log.contains(L1(secret)), qPrintable(log));
        QVERIFY(log.startsWith(L1("GET /vantu/?lg=FR&country=SE&d=N9&f=1.0&udid=1&KVB=7&username=emma&pass=***"
                                  "&remember_me=1&type=MEEGO&width=480&height=854&fb=1 200\n")));
        QVERIFY(log.contains(L1("POST /vantu/login 303 password=\"***\" username=\"emma\"")));
        QVERIFY(
            log.endsWith(QStringLiteral("POST /vantu/messages/send-message/android_uid/7u102 200 user_id[]=\"u101\" "
                                        "message=\"a\\nb\\\"\\x1bé\"")));
    }

    void survivesWhatIsNotHttp_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("noise") << QByteArray("\x16\x03\x01\r\n\r\n\xff\xfe", 9);
        QTest::newRow("half a request") << QByteArray("POST /vantu/login HTTP/1.1\r\nContent-Length: 50\r\n\r\nuser");
        QTest::newRow("a multipart body without a boundary") << QByteArray(
            "POST /vantu/login HTTP/1.1\r\nContent-Type: multipart/form-data\r\nContent-Length: 2\r\n\r\nab");
        QTest::newRow("a path of control characters") << QByteArray("GET /vantu/%00%0a%ff%zz% HTTP/1.1\r\n\r\n");
    }
    void survivesWhatIsNotHttp()
    {
        QFETCH(QByteArray, bytes);
        RunningService service;
        QTcpSocket socket;
        socket.connectToHost(L1("127.0.0.1"), static_cast<quint16>(service.port()));
        QVERIFY(socket.waitForConnected());
        socket.write(bytes);
        socket.flush();
        socket.disconnectFromHost();
        int status = 0;
        service.get(L1("/vantu/info/"), &status);
        QCOMPARE(status, 200);
        QCOMPARE(service.stop(SIGTERM), 0);
    }
};

QTEST_MAIN(ServiceProcess)
#include "tst_serviceprocess.moc"
