// SPDX-License-Identifier: MIT
#include "portal.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>

/// A service that speaks TLS, reached as the companion's HTTP proxy. It keeps apart what it is asked in secret and in
/// clear.
class SecureService : public QTcpServer {
public:
    explicit SecureService(const QString &certificate)
        : certificate(QSslCertificate::fromPath(certificate).value(0))
    {
        QFile file(QFINDTESTDATA("certificates/server.key"));
        if (!file.open(QIODevice::ReadOnly) || !listen(QHostAddress::LocalHost))
            qFatal("No secure service");
        key = QSslKey(&file, QSsl::Ec);
        QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::HttpProxy, "127.0.0.1"_s, serverPort()));
    }
    ~SecureService() override { QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::NoProxy)); }

    QList<QByteArray> inSecret;
    QList<QByteArray> inClear;

protected:
    void incomingConnection(qintptr descriptor) override
    {
        auto *socket = new QSslSocket(this);
        socket->setSocketDescriptor(descriptor);
        socket->setLocalCertificate(certificate);
        socket->setPrivateKey(key);
        connect(socket, &QSslSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QSslSocket::readyRead, this, [this, socket] { answer(socket); });
    }

private:
    void answer(QSslSocket *socket)
    {
        if (!socket->peek(10000).contains("\r\n\r\n"))
            return;
        const QByteArray request = socket->readLine().trimmed();
        socket->readAll();
        if (request.startsWith("CONNECT ") && request.contains(":443 ")) {
            socket->write("HTTP/1.1 200 OK\r\n\r\n");
            socket->startServerEncryption();
            return;
        }
        (socket->isEncrypted() ? inSecret : inClear).append(request);
        socket->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n"
                      "<script>var sUserUid = 'p12'; new WebSocket('ws://vantu.test/')</script>"
                      "<iframe src='data:text/html,<script>new WebSocket(\"ws://vantu.test/\")</script>'></iframe>"
                      "<img src='http://vantu.test/picture'>");
        socket->disconnectFromHost();
    }

    QSslCertificate certificate;
    QSslKey key;
};

/// The companion of a service whose root begins with https://.
class SecureLinkTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setCaCertificates(QSslCertificate::fromPath(QFINDTESTDATA("certificates/authority.pem")));
        QVERIFY(!configuration.caCertificates().isEmpty());
        QSslConfiguration::setDefaultConfiguration(configuration);
        if (QT_VERSION >= QT_VERSION_CHECK(6, 0, 0))
            makeTrustedByQtWebEngine(QFINDTESTDATA("certificates/authority.pem"));
    }

    void onlyAVerifiedServiceIsTold_data()
    {
        const Table<QString, bool> row("certificate", "isGood");
        row("good", QFINDTESTDATA("certificates/good.pem"), true);
        row("expired", QFINDTESTDATA("certificates/expired.pem"), false);
        row("signed by itself", QFINDTESTDATA("certificates/selfsigned.pem"), false);
        row("of another host", QFINDTESTDATA("certificates/wronghost.pem"), false);
    }

    void onlyAVerifiedServiceIsTold()
    {
        QFETCH(QString, certificate);
        QFETCH(bool, isGood);
        SecureService service(certificate);
        MApplicationWindow window;
        window.show();
        TestPage page;
        page.appear(&window, MSceneWindow::KeepWhenDone);
        QSignalSpy finished(page.webView, &QGraphicsWebView::loadFinished);
        QVERIFY(finished.wait(10000));
        QCOMPARE(finished.takeFirst().first().toBool(), isGood);
        QCOMPARE(page.userID, isGood ? "p12"_s : QString());

        emit page.toggleButtons->buttonClicked(2);
        QVERIFY(finished.wait(10000));
        QCOMPARE(page.btnQuit->isVisible(), !isGood);
        QCOMPARE(page.webView->url(), QUrl(QLatin1String(K_LINK_FRIENDS)));
        page.doSendMessage();
        QTRY_VERIFY(page.nwAccessMgr->findChildren<QNetworkReply *>().isEmpty());

        const auto address = "http://vantu.test/vantu/"_s;
        if (isGood)
            page.webView->page()->mainFrame()->evaluateJavaScript("location = '%1'"_s.arg(address));
        else
            page.webView->setUrl(QUrl(address)); // There is no page that could.
        QVERIFY(finished.wait(10000));

        QCOMPARE(service.inClear, QList<QByteArray>());
        QCOMPARE(service.inSecret.contains("GET /vantu/friends HTTP/1.1"), isGood);
        QCOMPARE(service.inSecret.isEmpty(), !isGood);
    }

private:
    /// Qt WebEngine asks the system's authorities and those in a database in the home folder, which is this test's own.
    static void makeTrustedByQtWebEngine(const QString &authority)
    {
        const QString home = QDir::currentPath() + "/home"_s;
        const QString database = home + "/.pki/nssdb"_s;
        QDir(home).removeRecursively();
        QVERIFY(QDir().mkpath(database));
        qputenv("HOME", home.toLocal8Bit());
        const QStringList certutil = {"-d"_s, "sql:"_s + database};
        QCOMPARE(QProcess::execute("certutil"_s, certutil + QStringList{"-N"_s, "--empty-password"_s}), 0);
        const QStringList asAuthority = {"-A"_s, "-n"_s, "authority"_s, "-t"_s, "C,,"_s, "-i"_s, authority};
        QCOMPARE(QProcess::execute("certutil"_s, certutil + asAuthority), 0);
    }
};

PORTAL_TEST_MAIN(SecureLinkTest)
#include "tst_securelink.moc"
