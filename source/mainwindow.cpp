// SPDX-License-Identifier: MIT
#include "mainwindow.h"

#include "MyDbusService.h"
#include "vantuwidget.h"

#include <QGuiApplication>
#include <QIcon>
#include <QTimer>

#include <cstdio>

VantuPage *vantuWidget = nullptr;
bool is_Send_Resume = false;

namespace {

void printEnd()
{
    std::puts("EnTask");
    std::fflush(stdout);
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : MApplicationWindow(parent)
{
    setPortraitOrientation();
    setOrientationLocked(true);
    setWindowTitle(QStringLiteral("Vantu"));
    // By this name the desktop finds the entry with the icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("vantu"));
}

MainWindow::~MainWindow()
{
    delete vantuWidget;
}

void MainWindow::showExpanded()
{
    show();
    vantuWidget = new VantuPage;
    vantuWidget->appear(this, MSceneWindow::KeepWhenDone);
    // On X11 the window brings its own icon. That can wait until the first page is there.
    constexpr int delay = 500; // milliseconds
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        QTimer::singleShot(delay, this, [this] { setWindowIcon(QIcon(QStringLiteral(":/window/icon.png"))); });
}

// Deliberately without a look at is_Send_Resume: whoever sends that has said before that the end has begun.
void MainWindow::endWithoutLoop()
{
    printEnd();
    sendMessageApart(QStringLiteral("QUIT"));
}

void MainWindow::on_VantuExit()
{
    printEnd();
    if (!is_Send_Resume)
        sendMessage(QStringLiteral("QUIT"));
}
