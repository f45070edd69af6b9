// SPDX-License-Identifier: MIT

// A stand-in for the game: it owns the game's name on the session bus, starts the companion with the arguments that it
// was given itself, prints what it hears from it, and ends with the companion's exit status.
//
//     vantu-game [--companion PROGRAM] GAME LANGUAGE [TROPHIES]

#include "companion.h"

#include "MyDbusService.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <cstdio>

namespace {

QtMessageHandler writeDebugLine = nullptr;

/// The game's handler does nothing with a message but write a quoted debug line. This turns that line into one that a
/// script can read; what would break it into two (a line end in the message) stays escaped as the debug line has it.
void overhear(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    writeDebugLine(type, context, text);
    const QLatin1String opening("\"->>>>>>>>> Recive");
    if (!text.startsWith(opening))
        return;
    const QString message = text.mid(opening.size()).chopped(1);
    std::printf("game heard: %s\n", qPrintable(message));
    std::fflush(stdout);
}

/// Whether the name is this process's own. registerService() does not say, and between isRunning() and it another
/// game may have been faster.
bool ownsName()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    return bus.interface()->serviceOwner(QStringLiteral("com.quelmora.QtDBus.Torvane")).value() == bus.baseService();
}

} // namespace

int main(int argc, char **argv)
{
    Companion companion;
    QCoreApplication application(argc, argv);
    // It becomes part of the handler's interface name, where D-Bus allows no dash: dbus-send could not call the game.
    application.setApplicationName(QStringLiteral("vantu_game"));
    writeDebugLine = qInstallMessageHandler(overhear);

    QStringList arguments = application.arguments().mid(1);
    QString program = application.applicationDirPath() + QStringLiteral("/vantu");
    // Taken by hand: whatever else is on the line belongs to the companion, negative numbers and nonsense included.
    if (arguments.size() >= 2 && arguments.first() == QLatin1String("--companion")) {
        program = arguments.at(1);
        arguments = arguments.mid(2);
    }

    if (isRunning()) {
        std::fputs("vantu-game: a game is running already\n", stderr);
        return 1;
    }
    registerService();
    if (!ownsName()) {
        std::fputs("vantu-game: without the game's name on the session bus nobody would hear the companion\n", stderr);
        return 1;
    }

    QObject::connect(&companion, &Companion::ended, &application, &QCoreApplication::exit, Qt::QueuedConnection);
    companion.start(program, arguments);
    return application.exec();
}
