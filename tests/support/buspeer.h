// SPDX-License-Identifier: MIT
#pragma once

#include "testing.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <functional>
#include <utility>

/// Somebody else on the session bus, on a connection of its own: answers any call as it is told, and leaves the bus in
/// the middle of the call when it is told no answer.
class BusPeer : public QDBusVirtualObject {
public:
    using Answer = std::function<QDBusMessage(const QDBusMessage &)>;

    static QDBusMessage answerNothing(const QDBusMessage &call) { return call.createReply(); }

    BusPeer(const QString &name, const QString &path, Answer answer = answerNothing, const QString &described = {})
        : m_answer(std::move(answer))
        , m_described(described)
    {
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
        bus.registerVirtualObject(path, this, QDBusConnection::SingleNode);
        bus.registerService(name);
    }
    ~BusPeer() override { leave(); }

    QString introspect(const QString &) const override { return m_described; }

    bool handleMessage(const QDBusMessage &call, const QDBusConnection &connection) override
    {
        if (call.member() == "Introspect"_s)
            return false;
        calls << call;
        const QDBusMessage reply = m_answer(call);
        if (reply.type() == QDBusMessage::InvalidMessage)
            QTimer::singleShot(0, this, &BusPeer::leave);
        else
            connection.send(reply);
        return true;
    }

    QList<QDBusMessage> calls; ///< each call so far, the describing ones left out

private:
    void leave() { QDBusConnection::disconnectFromBus(connectionName); }

    const QString connectionName = "stranger"_s;
    Answer m_answer;
    QString m_described;
};

/// A game by somebody else.
class GamePeer : public BusPeer {
public:
    static QString name() { return "com.quelmora.QtDBus.Torvane"_s; }

    static QDBusMessage answerString(const QDBusMessage &call) { return call.createReply("heard"_s); }

    explicit GamePeer(const Answer &answer = answerString, const QString &described = {})
        : BusPeer(name(), "/"_s, answer, described)
    {
    }
};
