// SPDX-License-Identifier: MIT
#pragma once

#include "mapplicationwindow.h"

class VantuPage;

/// The one page of the companion; null until MainWindow::showExpanded() has made it.
extern VantuPage *vantuWidget;
/// True once the game was told to resume, so that it is not told of the end as well.
extern bool is_Send_Resume;

/// The companion's only window, locked in portrait. It owns the page.
class MainWindow : public MApplicationWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent);
    ~MainWindow() override;

    /// Shows the window, then makes the page, which begins to load the service, and puts it in the window.
    void showExpanded();

    /// Does what on_VantuExit() does for a companion whose event loop hangs: it runs in a thread of its own, beside
    /// whatever holds the page. It touches nothing but the console and the bus.
    static void endWithoutLoop();

public slots:
    /// Tells the game that the player has left, unless it was told to resume. Runs when the application is about to
    /// quit, however it ends.
    void on_VantuExit();
};
