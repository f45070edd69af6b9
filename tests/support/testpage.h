// SPDX-License-Identifier: MIT
#pragma once

#include "vantuwidget.h"

/// The portal page with its members open to a test.
class TestPage : public VantuPage {
public:
    using VantuPage::_currentUserName;
    using VantuPage::_currentUserUid;
    using VantuPage::_isFriend;
    using VantuPage::_password;
    using VantuPage::_rememberMe;
    using VantuPage::_showAdd;
    using VantuPage::_showRate;
    using VantuPage::_username;
    using VantuPage::addrWidget;
    using VantuPage::btnAdd;
    using VantuPage::btnBack;
    using VantuPage::btnCancel;
    using VantuPage::btnEdit;
    using VantuPage::btnFriend;
    using VantuPage::btnGame;
    using VantuPage::btnHome;
    using VantuPage::btnInbox;
    using VantuPage::btnInfo;
    using VantuPage::btnInteract;
    using VantuPage::btnNewMessage;
    using VantuPage::btnQuit;
    using VantuPage::btnRecommend;
    using VantuPage::btnSend;
    using VantuPage::btnStopPicking;
    using VantuPage::gestureEvent;
    using VantuPage::isInFriendSelectionScreen;
    using VantuPage::isPickingFriend;
    using VantuPage::lblSubject;
    using VantuPage::lblWebTitle;
    using VantuPage::mdlInteractModel;
    using VantuPage::mdlRate;
    using VantuPage::mdlRecommendModel;
    using VantuPage::nwAccessMgr;
    using VantuPage::oldURL;
    using VantuPage::popupInteract;
    using VantuPage::popupRate;
    using VantuPage::popupRecommend;
    using VantuPage::progressIndicator;
    using VantuPage::recommendGameId;
    using VantuPage::recommendSubject;
    using VantuPage::selectButtons;
    using VantuPage::state;
    using VantuPage::strFriendsMessages;
    using VantuPage::strInboxMessages;
    using VantuPage::toggleButtons;
    using VantuPage::txtMessage;
    using VantuPage::userID;
    using VantuPage::webView;
};
