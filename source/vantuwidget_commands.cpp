#include "vantuwidget.h"

#include "addresswidget.h"
#include "globaldefine.h"
#include "mainwindow.h"
#include "MyDbusService.h"
#include "myqwebview.h"
#include "servicerequests.h"

#include "mbutton.h"
#include "minputmethodstate.h"
#include "mmessagebox.h"
#include "mtextedit.h"

#include <iterator>
#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QWebHistory>
#include <QWebPage>

void VantuPage::on_ToggleButtonClicked(int buttonId)
{
    const QScopedValueRollback<int> depth(slotDepth, slotDepth + 1);
    static constexpr const char *SECTIONS[] = {K_LINK_VANTU, K_LINK_MESSAGES_INDEX, K_LINK_FRIENDS, K_LINK_GAMES};
    if (buttonId < 0 || buttonId >= static_cast<int>(std::size(SECTIONS)))
        return;
    load(QUrl(QLatin1String(SECTIONS[buttonId])));
    webView->history()->clear();
}

void VantuPage::on_SelectButtonClicked(int buttonId)
{
    const QScopedValueRollback<int> depth(slotDepth, slotDepth + 1);
    switch (buttonId) {
    case 0:
        goBack();
        break;
    case 1:
        load(QUrl(QLatin1String(K_LINK_INFO)));
        break;
    case 2:
        quitToGame();
        break;
    case 3:
        openSendMessagePage();
        break;
    case 4:
        popupRecommend.appear(MSceneWindow::KeepWhenDone);
        break;
    case 5:
        showInteractPopup();
        break;
    case 6:
        load(QUrl(QLatin1String(K_LINK_ADD_FRIENDS)));
        break;
    case 7:
        MInputMethodState::closeSoftwareInputPanel();
        if (state == SendMessageState)
            closeSendMessagePage();
        else if (state == SendEmailState)
            closeSendEmailPage();
        break;
    case 8:
        validateAndSend();
        break;
    case 9:
        load(QUrl(QLatin1String(K_LINK_EDIT_ACCOUNT) + QLatin1String("/edit")));
        break;
    default:
        break;
    }
}

void VantuPage::quitToGame()
{
    if (is_Send_Resume)
        return; // On the way out already: a second tap arrives before the event loop ends.
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
    QStringList rows{localized(TXT_SEND_MESSAGE), _isFriend ? localized(TXT_DELETE_FRIEND) : localized(TXT_ADD_FRIEND)};
    if (_showRate)
        rows << localized(TXT_RATE);
    rows << localized(TXT_COMPARE_GAMES);
    mdlInteractModel.setStringList(rows);
    popupInteract.setItemModel(&mdlInteractModel);
    popupInteract.appear(MSceneWindow::KeepWhenDone);
}

void VantuPage::on_UserInteract(QModelIndex index)
{
    const QScopedValueRollback<int> depth(slotDepth, slotDepth + 1);
    const QString row = index.data(Qt::DisplayRole).toString();
    const auto names = [&row](const auto &table) { return row.contains(localized(table)); };
    // The order decides where one text holds another: the German thumbs down holds the thumbs up, and deliberately
    // sends its value.
    if (names(TXT_SEND_MESSAGE)) {
        openSendMessagePage();
        addrWidget->addNewUIDAddress(_currentUserName, _currentUserUid);
    } else if (names(TXT_DELETE_FRIEND)) {
        load(QUrl(QLatin1String(K_LINK_DELETE_FRIEND) + _currentUserUid));
    } else if (names(TXT_ADD_FRIEND)) {
        load(QUrl(QLatin1String(K_LINK_ADD_FRIEND) + _currentUserUid));
    } else if (names(TXT_RATE)) {
        popupRate.appear(MSceneWindow::KeepWhenDone);
    } else if (names(TXT_RATE_UP)) {
        load(rateUrl(_currentUserUid, 1));
    } else if (names(TXT_RATE_DOWN)) {
        load(rateUrl(_currentUserUid, 0));
    } else if (names(TXT_COMPARE_GAMES)) {
        load(QUrl(QLatin1String(K_LINK_COMPARE) + _currentUserUid));
    }
    popupRate.clearFocus();
    popupInteract.clearFocus();
}

void VantuPage::on_UserRecommend(QModelIndex index)
{
    const QScopedValueRollback<int> depth(slotDepth, slotDepth + 1);
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
