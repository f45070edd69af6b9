// SPDX-License-Identifier: MIT
#pragma once

#include "vantuwidget.h"

/// Opens the page's members to the tour: `page.*(&PageMembers::webView)`. Nobody ever makes one.
class PageMembers : public VantuPage {
public:
    using VantuPage::addrWidget;
    using VantuPage::lblWebTitle;
    using VantuPage::nwAccessMgr;
    using VantuPage::progressIndicator;
    using VantuPage::state;
    using VantuPage::txtMessage;
    using VantuPage::webView;
};
