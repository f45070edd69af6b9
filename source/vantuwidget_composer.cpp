// SPDX-License-Identifier: MIT
#include "vantuwidget.h"

#include "addresswidget.h"
#include "globaldefine.h"
#include "mybutton.h"
#include "myqwebview.h"
#include "scriptfacade.h"
#include "servicerequests.h"

#include "mbutton.h"
#include "mlabel.h"
#include "mtextedit.h"

void VantuPage::enterState(VantuState newState)
{
    lastState = state;
    state = newState;
    endPicking();
    update(); // Each state has a background of its own.
}

void VantuPage::setTitle(const QString &text, const QColor &color)
{
    lblWebTitle->setText(text);
    lblWebTitle->setColor(color);
}

// Undoes what picking a friend, or a script that opened one composer over the other, has left.
void VantuPage::restoreWebView()
{
    webView->setGeometry(webViewRect());
    webView->setEditable(true);
}

void VantuPage::openSendMessagePage()
{
    enterState(SendMessageState);
    addrWidget->show(AddressWidget::MESSAGE);
    webView->hide();
    txtMessage->clear();
    txtMessage->show();
    updateButtonVisible();
    btnCancel->show();
    setTitle(localized(TXT_SEND_MESSAGE), Qt::black);
    oldURL = webView->url().toString();
    txtMessage->setFocus();
}

void VantuPage::closeSendMessagePage()
{
    enterState(Normal);
    webView->show();
    restoreWebView();
    lblSubject->hide();
    txtMessage->hide();
    addrWidget->hide();
    setTitle(webView->title(), Qt::white);
    goBack();
    updateButtonVisible();
}

void VantuPage::on_btnAddAddressClicked()
{
    const auto slot = enterSlot();
    // Deliberately deaf to scripts: nobody but the player opens the list.
    if (state != SendMessageState || scriptFacade->isCalling())
        return;
    webView->stop(); // A load that ended later would end the picking.
    isPickingFriend = true;
    wayOutTimer.start();
    addrWidget->hide();
    txtMessage->hide();
    btnSend->hide();
    btnCancel->hide();
    webView->show();
    webView->setGeometry(QRectF(0, 0, g_nScreenWidth, g_nScreenHeight));
    webView->setArrowsWalk(true);
    webView->setFocus();
    load(QUrl(QLatin1String(K_LINK_FRIENDS)));
}

void VantuPage::doSendMessage()
{
    post(messageUrl(recommendGameId, userID), messageBody(addrWidget->getAllAddress(), txtMessage->text()));
}

void VantuPage::openSendEmailPage()
{
    enterState(SendEmailState);
    setTiledBackingStore(false);
    webView->setPalette(QPalette(Qt::white)); // Deliberately not undone when the composer closes.
    webView->setGeometry(QRectF(0, 310, g_nScreenWidth, 530));
    updateButtonVisible();
    lblSubject->show();
    setTitle(localized(TXT_SEND_MESSAGE), Qt::black);
    addrWidget->show(AddressWidget::EMAIL);
    btnCancel->show();
    oldURL = QLatin1String(K_LINK_GAMES);
    load(QUrl(QLatin1String(K_LINK_RECOMMEND_EMAIL) + recommendGameId));
    webView->setEditable(false);
}

void VantuPage::closeSendEmailPage()
{
    // Deliberately another order than the message composer's: the title waits for the next page's.
    enterState(Normal);
    updateButtonVisible();
    webView->show();
    txtMessage->hide();
    lblSubject->hide();
    lblSubject->setText(QString());
    lblWebTitle->setColor(Qt::white);
    addrWidget->hide();
    setTiledBackingStore(true);
    webView->setEditable(true);
    goBack();
    webView->setGeometry(webViewRect());
}

void VantuPage::doSendEmail()
{
    post(invitationUrl(recommendGameId, userID), invitationBody(addrWidget->getAllAddress()));
}
