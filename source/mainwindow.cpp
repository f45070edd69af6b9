// SPDX-License-Identifier: MIT
#include "mainwindow.h"

#include "MyDbusService.h"
#include "vantuwidget.h"

#include <cstdio>

VantuPage *vantuWidget = nullptr;
bool is_Send_Resume = false;

MainWindow::MainWindow(QWidget *parent)
    : MApplicationWindow(parent)
{
    setPortraitOrientation();
    setOrientationLocked(true);
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
}

void MainWindow::on_VantuExit()
{
    std::puts("EnTask");
    std::fflush(stdout);
    if (!is_Send_Resume)
        sendMessage(QStringLiteral("QUIT"));
}
