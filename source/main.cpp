// SPDX-License-Identifier: MIT
#include "commandline.h"
#include "globaldefine.h"
#include "mainwindow.h"
#include "MyDbusService.h"

#include "mapplication.h"

#include <QLocale>

#include <algorithm>
#include <cstdio>

#include <sys/resource.h>

namespace {

constexpr QLocale::Language localeNames[]
    = {QLocale::English, QLocale::French, QLocale::German, QLocale::Italian, QLocale::Spanish};

/// Room for the web engine, which goes down into a page's elements by recursion: with the usual 8 MiB, a script that
/// nests 100,000 of them takes the process with it.
void deepenStack()
{
    constexpr rlim_t depth = 96 << 20;
    rlimit stack = {};
    if (getrlimit(RLIMIT_STACK, &stack) != 0 || stack.rlim_cur >= depth)
        return;
    stack.rlim_cur = std::min(depth, stack.rlim_max);
    setrlimit(RLIMIT_STACK, &stack);
}

} // namespace

int main(int argc, char **argv)
{
    deepenStack();
    avoidSilentBus();
    MApplication application(argc, argv);

    // Deliberately unsigned: one comparison accepts two or three arguments and nothing else.
    if (static_cast<unsigned>(argc) - 3U > 1U)
        return 0;
    if (!application.displayProblem().isEmpty()) {
        std::fprintf(stderr, "vantu: no display: %s\n", qPrintable(application.displayProblem()));
        return 1;
    }
    g_KVB = toInt(argv[1]);
    g_languageIdx = toLanguage(argv[2]);
    // What Qt has words of its own for is said in the same language.
    QLocale::setDefault(QLocale(localeNames[g_languageIdx]));
    g_trophyIdx = argc == 4 ? toMask(argv[3]) : 0;

    MainWindow window(nullptr);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &window, &MainWindow::on_VantuExit);
    window.showExpanded();
    application.setLastResort(&MainWindow::endWithoutLoop);
    return MApplication::exec();
}
