// SPDX-License-Identifier: MIT
#include "vantuwidget.h"

#include "addresswidget.h"
#include "chromerules.h"
#include "globaldefine.h"
#include "mybutton.h"
#include "myqwebview.h"
#include "navigationrules.h"

#include "mbutton.h"
#include "mclosebutton.h"
#include "minputmethodstate.h"
#include "mlabel.h"
#include "mprogressindicator.h"
#include "mtextedit.h"

#include <QScopedValueRollback>
#include <QWebFrame>
#include <QWebHistory>
#include <QWebPage>
#include <QWebSettings>

#include <utility>

bool onErrorPage = false;
bool onTwitterPage = false;

void VantuPage::navigate(std::function<void()> navigation)
{
    // A script's call comes through a slot, from no sender or from inside another slot.
    if (slotDepth == 0 || (slotDepth == 1 && sender())) {
        navigation();
        return;
    }
    const bool isWaiting = static_cast<bool>(scriptNavigation);
    scriptNavigation = std::move(navigation);
    if (!isWaiting)
        QMetaObject::invokeMethod(
            webView, [this] { std::exchange(scriptNavigation, nullptr)(); }, Qt::QueuedConnection);
}

void VantuPage::load(const QUrl &url)
{
    navigate([this, url] { webView->setUrl(url); });
}

void VantuPage::setTiledBackingStore(bool on)
{
    webView->settings()->setAttribute(QWebSettings::TiledBackingStoreEnabled, on);
}

void VantuPage::setJavaScript(bool on)
{
    webView->settings()->setAttribute(QWebSettings::JavascriptEnabled, on);
}

void VantuPage::on_pageLoadStarted()
{
    const auto slot = enterSlot();
    const QString url = currentUrl();
    closePopups();
    namedUserUid.clear();
    namedUserName.clear();
    sectionLoad = sectionLoad == SectionLoad::Asked ? SectionLoad::Started : SectionLoad::None;
    progressIndicator->show();
    MInputMethodState::closeSoftwareInputPanel();
    setButtonVisible(false);
    if (state == Normal) {
        btnQuit->show();
    } else if (state == SendMessageState) {
        isInFriendSelectionScreen = !isInFriendSelectionScreen;
        if (!isInFriendSelectionScreen)
            webView->setEnabled(false); // A friend was tapped: no second tap until that friend has arrived.
    }
    if (state != Normal && !wayOutTimer.isActive())
        wayOutTimer.start();
    if (onErrorPage) {
        onErrorPage = false;
        setTiledBackingStore(true);
    }
    if (onTwitterPage && !isTwitterUrl(url)) {
        setTiledBackingStore(true);
        onTwitterPage = false;
    }
    webView->setZoomFactor(g_ZoomFactor);
    webView->setTiledBackingStoreFrozen(true);
}

void VantuPage::on_url_change(QUrl url)
{
    if (!isTwitterUrl(url.toString()))
        return;
    setTiledBackingStore(false);
    setJavaScript(false);
    onTwitterPage = true;
}

void VantuPage::on_pageLoadFinished(bool ok)
{
    // A page's value may call this slot while its conversion to text runs below: once is enough.
    if (isFinishingLoad)
        return;
    const QScopedValueRollback<bool> guard(isFinishingLoad, true);
    const auto slot = enterSlot();

    const QString url = currentUrl();
    lastState = state;
    detectErrorPage();
    webView->setTiledBackingStoreFrozen(false);
    webView->page()->mainFrame()->scroll(0, 1);
    webView->setPalette(QPalette(Qt::white));
    if (ok)
        finishLoad(url);
    else
        finishFailedLoad();
    progressIndicator->hide();
}

void VantuPage::detectErrorPage()
{
    const QVariant text = webView->page()->mainFrame()->evaluateJavaScript(QLatin1String(searchedTextScript));
    if (text.userType() == QMetaType::QString && !mayHoldErrorSentence(text.toString()))
        return;
    for (const char *sentence : errorSentences) {
        if (!webView->page()->findText(QString::fromUtf8(sentence)))
            continue;
        onErrorPage = true;
        webView->page()->findText(QString()); // Takes the selection off the sentence.
        setTiledBackingStore(false);
        return;
    }
}

void VantuPage::finishFailedLoad()
{
    if (state == Normal && webView->keepsPage()) {
        updateButtonVisible();
        return;
    }
    if (state == Normal) {
        setButtonVisible(false);
        btnQuit->show();
        return;
    }
    btnCancel->show();
    btnSend->show();
    if (state == SendMessageState)
        bringComposerBack();
}

void VantuPage::finishLoad(const QString &url)
{
    disconnect(webView, &QGraphicsWebView::loadFinished, this, &VantuPage::on_pageLoadFinished);
    disconnect(webView, &QGraphicsWebView::urlChanged, this, &VantuPage::on_url_change);
    if (isServiceUrl(QUrl(url)))
        runBridgeScripts(); // Deliberately for the service's pages only: nobody else says who the player is.
    if (!webView->settings()->testAttribute(QWebSettings::JavascriptEnabled))
        setJavaScript(true);
    connect(webView, &QGraphicsWebView::loadFinished, this, &VantuPage::on_pageLoadFinished);
    connect(webView, &QGraphicsWebView::urlChanged, this, &VantuPage::on_url_change);
    webView->setZoomFactor(g_ZoomFactor);

    if (sectionLoad == SectionLoad::Started) {
        // Deliberately once more: where the service has sent the tab on to another page, that one is the first.
        sectionLoad = SectionLoad::None;
        webView->history()->clear();
    }
    if (state == SendMessageState) {
        finishLoadUnderMessage(url);
        return;
    }
    if (const std::optional<Tab> section = sectionOf(url))
        button(*section)->setChecked(true);
    updateButtonVisible();
}

/// Deliberately narrow about who becomes a recipient: only the player that the page itself has named, and only while
/// the player picks. Whatever else loads under a message adds nobody.
void VantuPage::finishLoadUnderMessage(const QString &url)
{
    const bool isList = url == QLatin1String(K_LINK_FRIENDS) || (isFriendsListUrl(url) && namedUserUid.isEmpty());
    if (isPickingFriend && isList) {
        // Ready for a tap, also when the list has been loaded once more.
        isInFriendSelectionScreen = true;
        webView->setEnabled(true);
        return;
    }
    if (isPickingFriend)
        addrWidget->addNewUIDAddress(namedUserName, namedUserUid);
    bringComposerBack();
}

/// The web view is left usable: however it comes back from here, it must not stay deaf.
void VantuPage::endPicking()
{
    isPickingFriend = false;
    isInFriendSelectionScreen = false;
    wayOutTimer.stop();
    btnStopPicking->hide();
    webView->setEnabled(true);
    webView->setArrowsWalk(false);
}

void VantuPage::bringComposerBack()
{
    endPicking();
    addrWidget->setVisible(true);
    txtMessage->show();
    btnSend->show();
    btnCancel->show();
    if (!focusItem() || focusItem() == webView)
        txtMessage->setFocus();
    webView->hide();
    webView->setGeometry(webViewRect()); // However it comes back, it must not cover the header.
}

void VantuPage::stopPicking()
{
    const auto slot = enterSlot();
    endPicking(); // What ends now is no pick.
    webView->stop();
    bringComposerBack();
}

void VantuPage::showWayOut()
{
    if (isPickingFriend) {
        btnStopPicking->show();
    } else if (state != Normal) {
        btnCancel->show();
        btnSend->show();
    }
}

/// Their rows would act on what the next page shows.
void VantuPage::closePopups()
{
    for (MPopupList *popup : {&popupInteract, &popupRate, &popupRecommend})
        popup->reject();
}

void VantuPage::runBridgeScripts()
{
    for (const char *script : bridgeScripts)
        webView->page()->mainFrame()->evaluateJavaScript(QLatin1String(script));
}

void VantuPage::goBack()
{
    if (lastState != Normal) {
        load(QUrl(oldURL));
        return;
    }
    if (webView->page()->mainFrame() && isFacebookUrl(currentUrl()))
        load(QUrl(oldURL)); // Deliberately without a return: the rules below follow right behind.
    if (onTwitterPage) {
        setTiledBackingStore(true);
        onTwitterPage = false;
    }
    const QString target = backTarget(currentUrl(), recommendGameId);
    if (target.isEmpty())
        navigate([this] { webView->back(); });
    else
        load(QUrl(target));
}
