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
constexpr Command ALL_COMMANDS[]
    = {Command::Back,     Command::Info, Command::Quit, Command::NewMessage, Command::Recommend,
       Command::Interact, Command::Add,  Command::Edit, Command::Cancel,     Command::Send};
constexpr Command RULED_COMMANDS[]
    = {Command::Cancel, Command::Send, Command::Info, Command::Quit,     Command::NewMessage,
       Command::Back,   Command::Edit, Command::Add,  Command::Interact, Command::Recommend};
constexpr Tab TABS[] = {Tab::Home, Tab::Games, Tab::Inbox, Tab::Friends};

} // namespace

void VantuPage::setButtonVisible(bool visible)
{
    for (const Command command : ALL_COMMANDS)
        button(command)->setVisible(visible);
}

void VantuPage::updateButtonVisible()
{
    if (!webView->page()->mainFrame())
        return;
    const ChromeVisibility chrome = chromeFor(currentUrl(), state);
    for (const Tab tab : TABS)
        button(tab)->setVisible(chrome.tabs);
    for (const Command command : RULED_COMMANDS)
        button(command)->setVisible(chrome.shows(command));
}
