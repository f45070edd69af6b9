// SPDX-License-Identifier: MIT
#include "vantuwidget.h"

#include "chromerules.h"
#include "mybutton.h"
#include "myqwebview.h"

#include "mbutton.h"

#include <QWebFrame>
#include <QWebPage>

namespace {

// The orders in which the buttons appear and go.
constexpr Command allCommands[]
    = {Command::Back,     Command::Info, Command::Quit, Command::NewMessage, Command::Recommend,
       Command::Interact, Command::Add,  Command::Edit, Command::Cancel,     Command::Send};
constexpr Command ruledCommands[]
    = {Command::Cancel, Command::Send, Command::Info, Command::Quit,     Command::NewMessage,
       Command::Back,   Command::Edit, Command::Add,  Command::Interact, Command::Recommend};
constexpr Tab tabs[] = {Tab::Home, Tab::Games, Tab::Inbox, Tab::Friends};

} // namespace

void VantuPage::setButtonVisible(bool visible)
{
    for (const Command command : allCommands)
        button(command)->setVisible(visible);
}

void VantuPage::updateButtonVisible()
{
    if (!webView->page()->mainFrame())
        return;
    const ChromeVisibility chrome = chromeFor(currentUrl(), state);
    for (const Tab tab : tabs)
        button(tab)->setVisible(chrome.tabs);
    for (const Command command : ruledCommands)
        button(command)->setVisible(chrome.shows(command));
}
