// SPDX-License-Identifier: MIT

// One use of the game link in a process of its own, so that a test sees its console and its end. Named by the first
// two arguments, as a companion's are, so that it also stands in for the companion.

#include "MyDbusService.h"

#include <QCoreApplication>
#include <QStringList>

#include <csignal>
#include <cstdio>

#include <unistd.h>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QString use = application.arguments().value(1);
    const QString value = application.arguments().value(2);

    if (use == QLatin1String("send")) {
        sendMessage(value);
    } else if (use == QLatin1String("running")) {
        return isRunning() ? 1 : 0;
    } else if (use == QLatin1String("register")) {
        std::printf("%d\n", registerService());
        std::fflush(stdout);
        return value == QLatin1String("stay") ? application.exec() : 0;
    } else if (use == QLatin1String("exit")) {
        return value.toInt();
    } else if (use == QLatin1String("wait")) {
        std::puts("waiting");
        std::fflush(stdout);
        pause();
    } else {
        std::puts(qPrintable(application.arguments().mid(1).join(QLatin1Char('|'))));
    }
    return 0;
}
