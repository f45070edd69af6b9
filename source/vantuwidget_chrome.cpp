#include "vantuwidget.h"

#include "chromerules.h"
#include "mybutton.h"
#include "myqwebview.h"

#include "mbutton.h"

#include <QWebFrame>
#include <QWebPage>

void VantuPage::setButtonVisible(bool visible)
{
    btnBack->setVisible(visible);
    btnInfo->setVisible(visible);
    btnQuit->setVisible(visible);
    btnNewMessage->setVisible(visible);
    btnRecommend->setVisible(visible);
    btnInteract->setVisible(visible);
    btnAdd->setVisible(visible);
    btnEdit->setVisible(visible);
    btnCancel->setVisible(visible);
    btnSend->setVisible(visible);
}

void VantuPage::updateButtonVisible()
{
    if (!webView->page()->mainFrame())
        return;
    const ChromeVisibility chrome = chromeFor(currentUrl(), state);
    btnHome->setVisible(chrome.tabs);
    btnGame->setVisible(chrome.tabs);
    btnInbox->setVisible(chrome.tabs);
    btnFriend->setVisible(chrome.tabs);
    btnCancel->setVisible(chrome.cancelAndSend);
    btnSend->setVisible(chrome.cancelAndSend);
    btnInfo->setVisible(chrome.info);
    btnQuit->setVisible(chrome.quit);
    btnNewMessage->setVisible(chrome.newMessage);
    btnBack->setVisible(chrome.back);
    btnEdit->setVisible(chrome.edit);
    btnAdd->setVisible(chrome.add);
    btnInteract->setVisible(chrome.interact);
    btnRecommend->setVisible(chrome.recommend);
}
