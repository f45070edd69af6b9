// SPDX-License-Identifier: MIT
#pragma once

#include "vantustate.h"

#include <QString>

#include <bitset>
#include <optional>

/// The header's commands, in the order of their button ids.
enum class Command { Back, Info, Quit, NewMessage, Recommend, Interact, Add, Cancel, Send, Edit };
inline constexpr std::size_t commandCount = 10;

/// The footer's tabs, in the order of their button ids.
enum class Tab { Home, Inbox, Friends, Games };

/// Which parts of the native chrome one page of the service allows.
struct ChromeVisibility {
    bool tabs = false; ///< all four or none
    std::bitset<commandCount> commands; ///< a bit for each command's id

    bool shows(Command command) const { return commands[static_cast<std::size_t>(command)]; }
};

/// Decides the chrome from the page's state and the full URL on display. A URL that no rule knows, one of another
/// host included, shows the back command only.
ChromeVisibility chromeFor(const QString &url, VantuState state);

/// The section of the service that @p url belongs to; none for an address outside the four sections.
std::optional<Tab> sectionOf(const QString &url);
