// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// What a row of the interact menu, or of the rate menu behind it, does.
enum class InteractAction {
    None,
    SendMessage,
    DeleteFriend,
    AddFriend,
    Rate,
    RateUp,
    RateDown,
    Compare,
};

/// The rows of the interact menu for the player on display, in the language of the interface.
QStringList interactRows(bool isFriend, bool showRate);

/// What @p row does: a row is known by a text that it holds.
InteractAction interactActionFor(const QString &row);
