// SPDX-License-Identifier: MIT
#include "vantuwidget.h"

#include "addresswidget.h"
#include "globaldefine.h"
#include "mybutton.h"
#include "myqwebview.h"
#include "resmanager.h"
#include "scriptfacade.h"
#include "servicerequests.h"

#include "mbutton.h"
#include "mbuttongroup.h"
#include "mclosebutton.h"
#include "mlabel.h"
#include "mprogressindicator.h"
#include "mtextedit.h"
#include "qsystemdeviceinfo.h"
#include "qsysteminfo.h"

#include <QNetworkAccessManager>
#include <QWebFrame>
#include <QWebPage>
#include <QWebSettings>

namespace {

template <typename Object> void destroy(Object *&object)
{
    delete object;
    object = nullptr;
}

} // namespace

VantuPage::VantuPage(QGraphicsItem *parent)
    : MApplicationPage(parent)
{
    setPannable(false);
    initUI();
    connectUI();
    readUserLogin();

    StartValues values;
    values.language = localized(TXT_VANTU_LANGUAGES);
    const QSystemInfo system;
    const QSystemDeviceInfo device;
    values.country = system.currentCountryCode();
    values.deviceModel = device.model();
    values.firmware = system.version(QSystemInfo::Firmware);
    values.deviceId = device.imei();
    values.game = g_KVB;
    values.username = _username;
    values.password = _password;
    values.rememberMe = !_rememberMe.isEmpty();
    webView->setUrl(QUrl(startUrl(values)));
    // Deliberately not before the request is on its way: this starts the script engine, and the empty page that is
    // there until the answer comes has no scripts. Each page that follows gets the object before its own scripts run.
    QMetaObject::invokeMethod(this, &VantuPage::attachObjectToJS, Qt::QueuedConnection);

    nwAccessMgr = new QNetworkAccessManager;
    nwAccessMgr->setAutoDeleteReplies(true);
    // Only so many go out at a time: posts that are never answered must not hold up later ones for ever.
    nwAccessMgr->setTransferTimeout(K_POST_TIMEOUT);
}

void VantuPage::connectUI()
{
    connect(selectButtons, QOverload<int>::of(&MButtonGroup::buttonClicked), this, &VantuPage::on_SelectButtonClicked);
    connect(toggleButtons, QOverload<int>::of(&MButtonGroup::buttonClicked), this, &VantuPage::on_ToggleButtonClicked);
    connect(webView, &QGraphicsWebView::loadStarted, this, &VantuPage::on_pageLoadStarted);
    connect(webView, &QGraphicsWebView::loadFinished, this, &VantuPage::on_pageLoadFinished);
    const auto watch = [this](QWebFrame *frame) {
        connect(frame, &QWebFrame::javaScriptWindowObjectCleared, this, [this, frame] { restrain(frame); });
    };
    watch(webView->page()->mainFrame());
    connect(webView->page(), &QWebPage::frameCreated, this, watch);
    connect(webView->page()->mainFrame(), &QWebFrame::javaScriptWindowObjectCleared, this,
            &VantuPage::attachObjectToJS);
    scriptFacade = std::make_unique<ScriptFacade>(this, staticMetaObject);
    connect(addrWidget, &AddressWidget::btnAddressClicked, this, &VantuPage::on_btnAddAddressClicked);
    connect(btnStopPicking, &MButton::clicked, this, &VantuPage::stopPicking);
    wayOutTimer.setSingleShot(true);
    wayOutTimer.setInterval(K_WAY_OUT_DELAY);
    connect(&wayOutTimer, &QTimer::timeout, this, &VantuPage::showWayOut);
    connect(&popupRecommend, &MPopupList::clicked, this, &VantuPage::on_UserRecommend);
    // One slot serves both lists: it tells the rows apart by their texts.
    connect(&popupRate, &MPopupList::clicked, this, &VantuPage::on_UserInteract);
    connect(&popupInteract, &MPopupList::clicked, this, &VantuPage::on_UserInteract);
}

VantuPage::~VantuPage()
{
    // A web page is told that it ends; its script must not call what is about to go.
    webView->settings()->setAttribute(QWebSettings::JavascriptEnabled, false);

    ResManager::deleteInstance();

    // btnEdit is deliberately not among these: it goes with the scene.
    destroy(lblWebTitle);
    destroy(selectButtons);
    destroy(btnBack);
    destroy(btnInfo);
    destroy(btnQuit);
    destroy(btnNewMessage);
    destroy(btnRecommend);
    destroy(btnInteract);
    destroy(btnAdd);
    destroy(btnCancel);
    destroy(btnSend);

    disconnect(webView, &QGraphicsWebView::loadStarted, this, nullptr);
    disconnect(webView, &QGraphicsWebView::loadFinished, this, nullptr);
    disconnect(webView->page()->mainFrame(), &QWebFrame::javaScriptWindowObjectCleared, this, nullptr);
    webView->stop();
    destroy(webView);

    destroy(txtMessage);
    disconnect(addrWidget, &AddressWidget::btnAddressClicked, this, nullptr);
    destroy(addrWidget);
    destroy(lblSubject);
    destroy(btnHome);
    destroy(btnGame);
    destroy(btnInbox);
    destroy(btnFriend);
    destroy(progressIndicator);
    destroy(nwAccessMgr);
}
