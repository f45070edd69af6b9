// SPDX-License-Identifier: MIT
// game_qt PROGRAM GAME LANGUAGE [TROPHIES]: a game in C++ with Qt. Starts the companion and prints what it hears.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>

#include <cstdio>

/// Hears every call at a path, with and without an interface name.
class Game : public QDBusVirtualObject {
public:
    QString introspect(const QString &) const override { return QString(); }

    bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override
    {
        if (call.member() != QLatin1String("recive"))
            return false;
        std::printf("heard %s\n", qPrintable(call.arguments().value(0).toString()));
        std::fflush(stdout);
        return bus.send(call.createReply(QStringLiteral("heard")));
    }
};

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    Game game;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerVirtualObject(QStringLiteral("/"), &game)
        || !bus.registerService(QStringLiteral("com.quelmora.QtDBus.Torvane")))
        return 1;

    const QStringList arguments = application.arguments();
    QProcess companion;
    companion.setProcessChannelMode(QProcess::ForwardedChannels);
    QObject::connect(&companion, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &application,
                     [](int status) {
                         std::printf("ended %d\n", status);
                         QCoreApplication::quit();
                     });
    companion.start(arguments.value(1), arguments.mid(2));
    return companion.waitForStarted() ? application.exec() : 1;
}
