// SPDX-License-Identifier: MIT
#include "companion.h"

#include "MyDbusService.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDebug>

#include <cstdio>

namespace {

constexpr char usage[] = R"(usage: vantu-game [--companion PROGRAM] GAME LANGUAGE [TROPHIES]

A stand-in for the game: owns the game's name on the session bus, starts the companion with these arguments, prints
what it hears from it ("game heard: RESUMEGAME" or QUIT), and ends with the companion's exit status.

  GAME                 number of the game, for example 7
  LANGUAGE             0 English, 1 French, 2 German, 3 Italian, 4 Spanish
  TROPHIES             bits of the trophies won, for example 33 for trophies 0 and 5
  --companion PROGRAM  start this one instead of the vantu that lies beside vantu-game
)";

/// One line that a script can read: whatever would make it two stays escaped.
void print(const QString &message)
{
    QString line;
    QDebug(&line).nospace() << message;
    std::printf("game heard: %s\n", qPrintable(line.mid(1).chopped(1)));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    Companion companion;
    QCoreApplication application(argc, argv);
    // It becomes part of the handler's interface name, where D-Bus allows no dash: dbus-send could not call the game.
    application.setApplicationName(QStringLiteral("vantu_game"));

    QStringList arguments = application.arguments().mid(1);
    if (arguments.value(0) == QLatin1String("--help")) {
        std::fputs(usage, stdout);
        return 0;
    }
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
    // It is there only if the name is this process's own: between the two calls above another game may have been
    // faster.
    const auto *handler
        = qobject_cast<ServiceHandler *>(QDBusConnection::sessionBus().objectRegisteredAt(QStringLiteral("/")));
    if (!handler) {
        std::fputs("vantu-game: without the game's name on the session bus nobody would hear the companion\n", stderr);
        return 1;
    }

    QObject::connect(handler, &ServiceHandler::received, print);
    QObject::connect(&companion, &Companion::ended, &application, &QCoreApplication::exit, Qt::QueuedConnection);
    companion.start(program, arguments);
    return application.exec();
}
