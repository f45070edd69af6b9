// SPDX-License-Identifier: MIT
#include "interactrules.h"

#include "globaldefine.h"

#include <utility>

QStringList interactRows(bool isFriend, bool showRate)
{
    QStringList rows{localized(TXT_SEND_MESSAGE), isFriend ? localized(TXT_DELETE_FRIEND) : localized(TXT_ADD_FRIEND)};
    if (showRate)
        rows << localized(TXT_RATE);
    rows << localized(TXT_COMPARE_GAMES);
    return rows;
}

InteractAction interactActionFor(const QString &row)
{
    // The order decides where one text holds another: the German thumbs down holds the thumbs up, and deliberately
    // sends its value.
    const std::pair<QString, InteractAction> actions[] = {
        {localized(TXT_SEND_MESSAGE), InteractAction::SendMessage},
        {localized(TXT_DELETE_FRIEND), InteractAction::DeleteFriend},
        {localized(TXT_ADD_FRIEND), InteractAction::AddFriend},
        {localized(TXT_RATE), InteractAction::Rate},
        {localized(TXT_RATE_UP), InteractAction::RateUp},
        {localized(TXT_RATE_DOWN), InteractAction::RateDown},
        {localized(TXT_COMPARE_GAMES), InteractAction::Compare},
    };
    for (const auto &[text, action] : actions) {
        if (row.contains(text))
            return action;
    }
    return InteractAction::None;
}
