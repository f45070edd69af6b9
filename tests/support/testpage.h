// SPDX-License-Identifier: MIT
#pragma once

#include "vantuwidget.h"

/// The portal page with its members open to a test.
class TestPage : public VantuPage {
public:
    using VantuPage::_currentUserName, VantuPage::_currentUserUid, VantuPage::_isFriend, VantuPage::_password,
        VantuPage::_rememberMe, VantuPage::_showAdd, VantuPage::_showRate, VantuPage::_username,
        VantuPage::gestureEvent, VantuPage::isInFriendSelectionScreen, VantuPage::isPickingFriend, VantuPage::oldURL,
        VantuPage::recommendGameId, VantuPage::recommendSubject, VantuPage::state, VantuPage::strFriendsMessages,
        VantuPage::strGamesMessages, VantuPage::strInboxMessages, VantuPage::userID;
    using VantuPage::addrWidget, VantuPage::lblSubject, VantuPage::lblWebTitle, VantuPage::nwAccessMgr,
        VantuPage::progressIndicator, VantuPage::selectButtons, VantuPage::toggleButtons, VantuPage::txtMessage,
        VantuPage::webView;
    using VantuPage::btnAdd, VantuPage::btnBack, VantuPage::btnCancel, VantuPage::btnEdit, VantuPage::btnFriend,
        VantuPage::btnGame, VantuPage::btnHome, VantuPage::btnInbox, VantuPage::btnInfo, VantuPage::btnInteract,
        VantuPage::btnNewMessage, VantuPage::btnQuit, VantuPage::btnRecommend, VantuPage::btnSend,
        VantuPage::btnStopPicking;
    using VantuPage::mdlInteractModel, VantuPage::mdlRate, VantuPage::mdlRecommendModel, VantuPage::popupInteract,
        VantuPage::popupRate, VantuPage::popupRecommend;
};
