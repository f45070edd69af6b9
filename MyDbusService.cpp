// SPDX-License-Identifier: MIT
#include "MyDbusService.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDebug>

#include <cstdio>

namespace {

const QString objectPath = QStringLiteral("/");

/// The session bus, connected or not; when it is not, the player's console has been told how to start one.
QDBusConnection sessionBusOrHint()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        std::fputs("Cannot connect to the D-Bus session bus.\n"
                   "To start it, run:\n"
                   "\teval `dbus-launch --auto-syntax`\n",
                   stderr);
    }
    return bus;
}

void printLastError(const QDBusConnection &bus)
{
    std::fprintf(stderr, "%s\n", qPrintable(bus.lastError().message()));
}

} // namespace

void sendMessage(QString message)
{
    const QDBusConnection bus = sessionBusOrHint();
    if (!bus.isConnected())
        return;

    QDBusInterface game(gameServiceName, objectPath, QString(), bus);
    if (!game.isValid()) {
        printLastError(bus);
        return;
    }
    // Blocking is named: left to itself the proxy would not wait for a game that declares the method as needing no
    // reply, and the companion could be gone before its message.
    const QDBusReply<QString> reply = game.call(QDBus::Block, QStringLiteral("recive"), message);
    if (reply.isValid()) {
        std::fputs("call ok", stdout);
        std::fflush(stdout);
    } else {
        std::fprintf(stderr, "Call failed: %s\n", qPrintable(reply.error().message()));
    }
}

int registerService()
{
    QDBusConnection bus = sessionBusOrHint();
    if (!bus.isConnected())
        return 0;
    if (!bus.registerService(gameServiceName)) {
        printLastError(bus);
        return 0;
    }
    // Never deleted: the game can be called as long as its process lives.
    static auto *const handler = new ServiceHandler;
    bus.registerObject(objectPath, handler, QDBusConnection::ExportAllSlots);
    qDebug("-------------------Register OK");
    return 0;
}

bool isRunning()
{
    const QDBusConnection bus = sessionBusOrHint();
    if (!bus.isConnected())
        return false;
    const QDBusInterface game(gameServiceName, objectPath, QString(), bus);
    if (!game.isValid()) {
        qDebug("-------------------IsRunning FAIL");
        return false;
    }
    qDebug("-------------------IsRunning OK");
    return true;
}

void ServiceHandler::recive(const QString &message)
{
    qDebug() << QStringLiteral("->>>>>>>>> Recive") + message;
    emit received(message);
}
