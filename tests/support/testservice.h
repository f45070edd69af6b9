// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMutex>
#include <QString>

#include <atomic>
#include <memory>
#include <thread>

namespace httplib {
class Server;
}

/// A service under a test's control. It answers the companion's requests as the application-wide HTTP proxy on a free
/// port, so it serves pages of any host. Paths without an answer get status 404.
class TestService {
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
    ~TestService();
    Q_DISABLE_COPY(TestService)

    /// Answers @p address, a path under the service's root or a full URL of any host, whatever its query, from now on.
    void answer(const QString &address, const Answer &answer);

    std::atomic<bool> isSilent{false}; ///< connections are dropped without an answer

    /// All requests so far, or those with @p method.
    QList<Request> requests(const QString &method = QString()) const;
    /// The URLs that were asked for with GET.
    QStringList urls() const;
    void forget();

    /// A page that defines @p variables, as in "sTitle = 'Inbox', iGameId = 7", and shows @p body.
    static QByteArray page(const QString &variables, const QString &body = QString());

private:
    mutable QMutex mutex;
    QHash<QString, Answer> answers;
    QList<Request> seen;
    std::unique_ptr<httplib::Server> server;
    std::thread thread;
};
