// SPDX-License-Identifier: MIT
#pragma once

/// What the portal page shows in its middle.
enum VantuState {
    Normal = 0, ///< the service's pages
    SendMessageState = 1, ///< the composer for messages to other players
    SendEmailState = 2, ///< the composer for e-mail invitations
};
