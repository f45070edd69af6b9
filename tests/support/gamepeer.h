// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QList>
#include <QString>
#include <QTimer>

#include <functional>
#include <utility>

/// A game by somebody else: answers any call on "/" as it is told, on a bus connection of its own, and leaves the bus
/// in the middle of the call when it is told no answer.
class GamePeer : public QDBusVirtualObject {
public:
    using Answer = std::function<QDBusMessage(const QDBusMessage &)>;

    static QString name() { return QStringLiteral("com.quelmora.QtDBus.Torvane"); }

    static QDBusMessage answerString(const QDBusMessage &call) { return call.createReply(QStringLiteral("heard")); }

    explicit GamePeer(Answer answer = answerString, const QString &described = QString())
        : m_answer(std::move(answer))
        , m_described(described)
    {
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
        bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SingleNode);
        bus.registerService(name());
    }
    ~GamePeer() override { leave(); }

    QString introspect(const QString &) const override { return m_described; }

    bool handleMessage(const QDBusMessage &call, const QDBusConnection &connection) override
    {
        if (call.member() == QLatin1String("Introspect"))
            return false;
        calls << call;
        const QDBusMessage reply = m_answer(call);
        if (reply.type() == QDBusMessage::InvalidMessage)
            QTimer::singleShot(0, this, &GamePeer::leave);
        else
            connection.send(reply);
        return true;
    }

    QList<QDBusMessage> calls; ///< each call so far, the describing ones left out

private:
    void leave() { QDBusConnection::disconnectFromBus(connectionName); }

    const QString connectionName = QStringLiteral("stranger");
    Answer m_answer;
    QString m_described;
};
