#include "vantuwidget.h"

#include "chromerules.h"
#include "mybutton.h"
#include "myqwebview.h"

#include <QWebFrame>
#include <QWebPage>

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
