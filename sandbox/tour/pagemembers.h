#pragma once

#include "vantuwidget.h"

/// Opens the page's members to the tour: `page.*(&PageMembers::webView)`. Nobody ever makes one.
class PageMembers : public VantuPage {
public:
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
    using VantuPage::lblWebTitle;
    using VantuPage::nwAccessMgr;
    using VantuPage::progressIndicator;
    using VantuPage::state;
    using VantuPage::txtMessage;
    using VantuPage::webView;
};
