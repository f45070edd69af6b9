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

        page.webView->page()->mainFrame()->evaluateJavaScript("location = 'http://vantu.test/vantu/'"_s);
        QVERIFY(finished.wait(10000));

        QCOMPARE(service.inClear, QList<QByteArray>());
        QCOMPARE(service.inSecret.contains("GET /vantu/friends HTTP/1.1"), isGood);
        QCOMPARE(service.inSecret.isEmpty(), !isGood);
    }
};

PORTAL_TEST_MAIN(SecureLinkTest)
#include "tst_securelink.moc"
