// SPDX-License-Identifier: MIT
#include "bareview.h"

#include <QApplication>

// bench_bare URL: the program that the companion's start and memory are compared with.
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    BareWindow window;
    window.show();
    window.setUrl(QUrl(QString::fromLocal8Bit(argv[1])));
    return QApplication::exec();
}
