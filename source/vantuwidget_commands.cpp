// SPDX-License-Identifier: MIT
#include "vantuwidget.h"

#include "addresswidget.h"
#include "globaldefine.h"
#include "interactrules.h"
#include "mainwindow.h"
#include "mybutton.h"
#include "MyDbusService.h"
#include "myqwebview.h"
#include "scriptfacade.h"
#include "servicerequests.h"

#include "mapplication.h"
#include "mbutton.h"
#include "minputmethodstate.h"
#include "mmessagebox.h"
#include "mtextedit.h"

#include <iterator>
#include <QCoreApplication>
#include <QWebHistory>
#include <QWebPage>

void VantuPage::on_ToggleButtonClicked(int buttonId)
{
    const auto slot = enterSlot();
    static constexpr const char *sectionLinks[] = {K_LINK_VANTU, K_LINK_MESSAGES_INDEX, K_LINK_FRIENDS, K_LINK_GAMES};
    if (buttonId < 0 || buttonId >= static_cast<int>(std::size(sectionLinks)))
        return;
    sectionLoad = SectionLoad::Asked;
    load(QUrl(QLatin1String(sectionLinks[buttonId])));
    webView->history()->clear();
}

void VantuPage::on_SelectButtonClicked(int buttonId)
{
    const auto slot = enterSlot();
    switch (static_cast<Command>(buttonId)) {
    case Command::Back:
        goBack();
        break;
    case Command::Info:
        load(QUrl(QLatin1String(K_LINK_INFO)));
        break;
    case Command::Quit:
        quitToGame();
        break;
    case Command::NewMessage:
        openSendMessagePage();
        break;
    case Command::Recommend:
        popupRecommend.appear(MSceneWindow::KeepWhenDone);
        break;
    case Command::Interact:
        showInteractPopup();
        break;
    case Command::Add:
        load(QUrl(QLatin1String(K_LINK_ADD_FRIENDS)));
        break;
    case Command::Cancel:
        MInputMethodState::closeSoftwareInputPanel();
        if (state == SendMessageState)
            closeSendMessagePage();
        else if (state == SendEmailState)
            closeSendEmailPage();
        break;
    case Command::Send:
        validateAndSend();
        break;
    case Command::Edit:
        load(QUrl(QLatin1String(K_LINK_EDIT_ACCOUNT) + QLatin1String("/edit")));
        break;
    }
}

void VantuPage::backAsked()
{
    if (isPickingFriend)
        stopPicking();
    else if (btnBack->isVisible())
        btnBack->click();
    else if (btnCancel->isVisible())
        btnCancel->click();
}

void VantuPage::quitToGame()
{
    if (is_Send_Resume)
        return; // On the way out already: a second tap arrives before the event loop ends.
    // From here on the game hears this end, however slowly it listens, and no other.
    MApplication::beginEnd();
    webView->stop();
    saveUserLogin();
    sendMessage(QStringLiteral("RESUMEGAME"));
    is_Send_Resume = true;
    webView->stop();
    QCoreApplication::exit(0);
}

void VantuPage::validateAndSend()
{
    MInputMethodState::closeSoftwareInputPanel();
    if (addrWidget->getRecipientsCount() == 0) {
        warn(localized(TXT_NO_RECIEPIENTS));
        return;
    }
    if (state == SendMessageState && txtMessage->text().isEmpty()) {
        warn(localized(TXT_EMPTY_MESSAGE));
        return;
    }
    // Deliberately not for scripts: what is being written is the player's to send.
    if (scriptFacade->isCalling())
        return;
    if (state == SendEmailState) {
        doSendEmail();
        closeSendEmailPage();
    } else if (state == SendMessageState) {
        doSendMessage();
        closeSendMessagePage();
    }
}

void VantuPage::warn(const QString &text)
{
    if (warning && warning->isOnDisplay())
        return;
    warning = new MMessageBox(text, M::OkButton);
    warning->appear(MSceneWindow::DestroyWhenDismissed);
}

void VantuPage::showInteractPopup()
{
    popupInteract.setTitle(localized(TXT_INTERACT));
    mdlInteractModel.setStringList(interactRows(_isFriend, _showRate));
    popupInteract.setItemModel(&mdlInteractModel);
    popupInteract.appear(MSceneWindow::KeepWhenDone);
}

void VantuPage::on_UserInteract(QModelIndex index)
{
    const auto slot = enterSlot();
    switch (interactActionFor(index.data(Qt::DisplayRole).toString())) {
    case InteractAction::SendMessage:
        openSendMessagePage();
        addrWidget->addNewUIDAddress(_currentUserName, _currentUserUid);
        break;
    case InteractAction::DeleteFriend:
        load(QUrl(QLatin1String(K_LINK_DELETE_FRIEND) + _currentUserUid));
        break;
    case InteractAction::AddFriend:
        load(QUrl(QLatin1String(K_LINK_ADD_FRIEND) + _currentUserUid));
        break;
    case InteractAction::Rate:
        popupRate.appear(MSceneWindow::KeepWhenDone);
        break;
    case InteractAction::RateUp:
        load(rateUrl(_currentUserUid, 1));
        break;
    case InteractAction::RateDown:
        load(rateUrl(_currentUserUid, 0));
        break;
    case InteractAction::Compare:
        load(QUrl(QLatin1String(K_LINK_COMPARE) + _currentUserUid));
        break;
    case InteractAction::None:
        break;
    }
    popupRate.clearFocus();
    popupInteract.clearFocus();
}

void VantuPage::on_UserRecommend(QModelIndex index)
{
    const auto slot = enterSlot();
    switch (index.row()) {
    case 0:
        openSendEmailPage();
        break;
    case 1:
        onTwitterPage = true;
        setTiledBackingStore(false);
        setJavaScript(false);
        load(QUrl(QLatin1String(K_LINK_RECOMMEND_TWITTER) + recommendGameId));
        break;
    case 2:
        oldURL = webView->url().toString();
        load(facebookUrl(recommendGameId));
        break;
    default:
        break;
    }
    popupRecommend.clearFocus();
}
