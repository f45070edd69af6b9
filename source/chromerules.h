#pragma once

#include "vantustate.h"

#include <QString>

/// Which parts of the native chrome one page of the service allows.
struct ChromeVisibility {
    bool tabs = false; ///< the four footer tabs
    bool cancelAndSend = false;
    bool info = false;
    bool quit = false;
    bool newMessage = false;
    bool back = false;
    bool edit = false;
    bool add = false;
    bool interact = false;
    bool recommend = false;
};

/// Decides the chrome from the page's state and the full URL on display. A URL that no rule knows, one of another
/// host included, shows the back command only.
ChromeVisibility chromeFor(const QString &url, VantuState state);
