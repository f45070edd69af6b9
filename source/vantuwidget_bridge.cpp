// SPDX-License-Identifier: MIT
#include "vantuwidget.h"

#include "globaldefine.h"
#include "mybutton.h"
#include "myqwebview.h"
#include "navigationrules.h"
#include "scriptfacade.h"
#include "servicerequests.h"

#include "maccessibility.h"
#include "mlabel.h"

#include <QIODevice>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QWebFrame>
#include <QWebPage>

#include <algorithm>

namespace {

/// A flag of the page's: a whole number other than 0. Words such as "true" are not.
bool toFlag(const QString &text)
{
    bool ok = false;
    const int number = text.toInt(&ok, 10);
    return ok && number != 0;
}

void setBadge(ToggleButton *tab, const QString &count)
{
    tab->m_badgeNumber = count.toInt(nullptr, 10);
    tab->update();
    MAccessibility::tell(tab, QAccessible::NameChanged);
}

/// The body of a post that goes out once: where a service takes it and hangs up without an answer, the network would
/// send it again, and the message would arrive twice.
class SingleUse : public QIODevice {
public:
    explicit SingleUse(const QByteArray &content)
        : m_content(content)
    {
        open(ReadOnly | Unbuffered);
    }

    qint64 size() const override { return m_content.size(); }
    bool reset() override { return false; }

protected:
    qint64 readData(char *to, qint64 most) override
    {
        const QByteArray part = m_content.mid(static_cast<int>(pos()), static_cast<int>(most));
        std::copy(part.begin(), part.end(), to);
        return part.size();
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    const QByteArray m_content;
};

} // namespace

void VantuPage::attachObjectToJS()
{
    // Another page has come: what the one before has named says nothing about it.
    namedUserUid.clear();
    namedUserName.clear();
    QWebFrame *frame = webView->page()->mainFrame();
    const QUrl url = frame->url();
    // Deliberately not for every page: what a page may do here is for the service alone.
    if (isServiceUrl(url) || url.isEmpty() || url == QUrl(QStringLiteral("about:blank")))
        frame->addToJavaScriptWindowObject(QStringLiteral("VANTU"), scriptFacade.get());
}

void VantuPage::restrain(QWebFrame *frame)
{
    if (isServiceUrl(frame->url()))
        return;
    // The address may hold the login. On the prototype, and in the frames of such pages too (those without an address
    // included), since a script could borrow the property's getter from any document in its reach.
    frame->evaluateJavaScript(
        QStringLiteral("Object.defineProperty(Document.prototype, 'referrer', {get: function() { return ''; }})"));
    // Sockets go past the network that refuses what is in clear. The engine refuses them too, but only to documents
    // that came encrypted (a "data:" frame did not), and not to the workers of those.
    if (isRefused(QUrl(QStringLiteral("http://any"))))
        frame->evaluateJavaScript(
            QStringLiteral("delete window.WebSocket; delete window.Worker; delete window.SharedWorker"));
}

void VantuPage::showTitle(QString html)
{
    lblWebTitle->setText(state == Normal ? html : localized(TXT_NEW_MESSAGE));
}

void VantuPage::getInboxMessages(QString html)
{
    strInboxMessages = html;
    setBadge(btnInbox, html);
}

void VantuPage::getGamesMessages(QString html)
{
    strGamesMessages = html;
    setBadge(btnGame, html);
}

void VantuPage::getFriendsMessages(QString html)
{
    strFriendsMessages = html;
    setBadge(btnFriend, html);
}

void VantuPage::getUserID(QString html)
{
    userID = html;
    static bool shouldNotify = true;
    if (!shouldNotify || userID.isEmpty())
        return;
    shouldNotify = false; // Once a run, whatever becomes of the request.
    post(trophyUrl(recommendGameId, userID, g_KVB), trophyBody(g_trophyIdx));
}

void VantuPage::showAddFriendOption(QString html)
{
    _showAdd = toFlag(html);
}

void VantuPage::checkIsFriend(QString html)
{
    _isFriend = toFlag(html);
}

void VantuPage::showRateOption(QString html)
{
    _showRate = toFlag(html);
}

void VantuPage::getCurentUserUid(QString html)
{
    _currentUserUid = html;
    namedUserUid = html;
}

void VantuPage::getCurentUserName(QString html)
{
    _currentUserName = html;
    namedUserName = html;
}

void VantuPage::getGameId(QString html)
{
    recommendGameId = html;
}

void VantuPage::getSubject(QString html)
{
    recommendSubject = html;
    lblSubject->setText(localized(TXT_SUBJECT) + html);
}

void VantuPage::getUserName(QString html)
{
    _username = html;
}

void VantuPage::getPassword(QString html)
{
    _password = html;
}

void VantuPage::getAutoLogin(QString html)
{
    _rememberMe = html;
}

void VantuPage::post(const QUrl &url, const QByteArray &body)
{
    QNetworkRequest request(url);
    if (!body.isEmpty())
        request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArrayLiteral("application/x-www-form-urlencoded"));
    auto *content = new SingleUse(body);
    content->setParent(nwAccessMgr->post(request, content));
}
