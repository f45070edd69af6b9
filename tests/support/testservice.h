// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMap>
#include <QMutex>
#include <QObject>
#include <QString>

#include <memory>
#include <thread>

namespace httplib {
class Server;
}

/// A service under a test's control. It answers the companion's requests as the application-wide HTTP proxy on a free
/// port, so it serves pages of any host. Paths without an answer get status 404.
class TestService : public QObject {
    Q_OBJECT

public:
    struct Request {
        QString method;
        QString url; ///< as requested, scheme and host included
        QByteArray contentType;
        QByteArray cookie;
        QByteArray referer;
        QByteArray body;
    };

    struct Answer {
        QByteArray html{};
        int status = 200;
        QByteArray location{}; ///< for redirections
        int delay = 0; ///< milliseconds before the answer begins
        QByteArray type = "text/html; charset=utf-8";
    };

    TestService();
    ~TestService() override;

    /// Answers @p path, under the service's root and whatever its query, from now on.
    void answer(const QString &path, const Answer &answer);
    /// Answers a full URL, of any host.
    void answerUrl(const QString &url, const Answer &answer);
    /// From now on connections are dropped without an answer.
    void goSilent();
    void comeBack();

    QList<Request> requests() const;
    /// The URLs of all requests with @p method so far.
    QStringList urls(const QString &method = QStringLiteral("GET")) const;
    void forget();

    /// A page that defines @p variables (values are script literals) and shows @p body.
    static QByteArray page(const QMap<QString, QString> &variables, const QString &body = QString());

signals:
    /// Emitted in the test's thread.
    void requested(const QString &method, const QString &url);

private:
    void start();

    mutable QMutex mutex;
    QHash<QString, Answer> answers;
    QList<Request> seen;
    bool silent = false;
    std::unique_ptr<httplib::Server> server;
    std::thread thread;
};
