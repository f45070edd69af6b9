// SPDX-License-Identifier: MIT
#include "MyDbusService.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDebug>

#include <algorithm>
#include <cstdio>

#include <errno.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

const QString objectPath = QStringLiteral("/");

/// A bus that has not said a word for so long will not.
constexpr int silenceMilliseconds = 1000;

/// @p bus, connected or not; when it is not, the player's console has been told how to start one.
QDBusConnection orHint(const QDBusConnection &bus)
{
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

/// Calls the game over @p bus and prints how that went.
void deliver(const QString &message, const QDBusConnection &bus)
{
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

/// The socket of the session bus where its address is a plain one, as on a desktop; -1 for any other.
int connectToBusSocket()
{
    const QByteArray directory = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray address = qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") && !directory.isEmpty()
        ? "unix:path=" + directory + "/bus"
        : qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const QByteArray scheme = "unix:path=";
    if (!address.startsWith(scheme) || address.contains(';'))
        return -1;
    const QByteArray path = QByteArray::fromPercentEncoding(address.mid(scheme.size()).split(',').first());
    sockaddr_un name = {};
    if (path.size() >= int(sizeof name.sun_path))
        return -1;
    name.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), name.sun_path);
    // Non-blocking: a bus that does not even accept any more lets connect() wait for ever once its queue is full.
    const int bus = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (bus != -1 && connect(bus, reinterpret_cast<const sockaddr *>(&name), sizeof name) != 0 && errno != EAGAIN) {
        close(bus);
        return -1;
    }
    return bus;
}

} // namespace

void avoidSilentBus()
{
    const int bus = connectToBusSocket();
    if (bus == -1)
        return;
    // Asked for the ways to sign in, every bus answers in one line, and at once.
    constexpr char question[] = "\0AUTH\r\n";
    pollfd answer = {bus, POLLIN, 0};
    const bool isAsked = send(bus, question, sizeof question - 1, MSG_NOSIGNAL) == sizeof question - 1;
    if (!isAsked || poll(&answer, 1, silenceMilliseconds) == 0)
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null");
    close(bus);
}

void sendMessage(QString message)
{
    const QDBusConnection bus = orHint(QDBusConnection::sessionBus());
    if (bus.isConnected())
        deliver(message, bus);
}

void sendMessageApart(const QString &message)
{
    const auto name = QStringLiteral("apart");
    const QDBusConnection bus = orHint(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name));
    if (bus.isConnected())
        deliver(message, bus);
}

int registerService()
{
    QDBusConnection bus = orHint(QDBusConnection::sessionBus());
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
    const QDBusConnection bus = orHint(QDBusConnection::sessionBus());
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
