// SPDX-License-Identifier: MIT
#include "commandline.h"
#include "globaldefine.h"
#include "mainwindow.h"

#include "mapplication.h"

#include <QLocale>

#include <cstdio>

namespace {

constexpr QLocale::Language LOCALES[]
    = {QLocale::English, QLocale::French, QLocale::German, QLocale::Italian, QLocale::Spanish};

} // namespace

int main(int argc, char **argv)
{
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
    QLocale::setDefault(QLocale(LOCALES[g_languageIdx]));
    g_trophyIdx = argc == 4 ? toMask(argv[3]) : 0;

    MainWindow window(nullptr);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &window, &MainWindow::on_VantuExit);
    window.showExpanded();
    return MApplication::exec();
}
