// SPDX-License-Identifier: MIT
#pragma once

#include "chromerules.h"
#include "vantustate.h"

#include "mapplicationpage.h"
#include "mpopuplist.h"

#include <QModelIndex>
#include <QPointer>
#include <QScopedValueRollback>
#include <QString>
#include <QStringListModel>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <memory>

class AddressWidget;
class MButton;
class MButtonGroup;
class MCloseButton;
class MLabel;
class MLayout;
class MMessageBox;
class MProgressIndicator;
class MTextEdit;
class MyLayoutPolicy;
class MyQWebView;
class QNetworkAccessManager;
class QWebFrame;
class ScriptFacade;
class SelectButton;
class ToggleButton;

/// The portal page: the web view with the service's pages, all native chrome around it, and every rule that ties the
/// two together.
///
/// The page's public slots are what each web page finds in the window object "VANTU", so each can be called by a
/// stranger's script, at any time, with anything, also from inside another call. Their names and order are what the
/// service's pages know.
class VantuPage : public MApplicationPage {
    Q_OBJECT

public:
    /// Builds the chrome, reads the stored login and begins to load the start page.
    explicit VantuPage(QGraphicsItem *parent = nullptr);
    /// Ends the process's image cache too.
    ~VantuPage() override;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// The page's own buttons.
    MButton *button(Command command) const;
    MButton *button(Tab tab) const;
    /// Shows or hides all ten header buttons at once.
    void setButtonVisible(bool visible);
    /// Shows exactly the commands and tabs that the state and the URL on display allow.
    void updateButtonVisible();
    /// The one rule for "back": to the page before a composer, up one level, or one step in the history.
    void goBack();

    /// The composers. Opening one while the other is open switches to it; closing leads back to the page before.
    void openSendMessagePage();
    void closeSendMessagePage();
    /// Posts the composed message. Nobody waits for the answer.
    void doSendMessage();
    void openSendEmailPage();
    void closeSendEmailPage();
    /// Posts the invitation. Nobody waits for the answer.
    void doSendEmail();

    /// The stored login: read once while the page is built, written when the player goes back to the game. Failures
    /// are silent and leave file and members as they were.
    void saveUserLogin();
    void readUserLogin();
    /// Forgets the stored login by emptying the file.
    void clearUserLogin();

public slots:
    /// Makes the page's slots the window object "VANTU" of the web page on display, if that is the service's or empty.
    void attachObjectToJS();
    // What a web page hands over, each as text. Nothing is reported back; odd values count as 0, or false.
    void showTitle(QString html);
    void getInboxMessages(QString html);
    void getGamesMessages(QString html);
    void getFriendsMessages(QString html);
    void getUserID(QString html);
    void showAddFriendOption(QString html);
    void checkIsFriend(QString html);
    void showRateOption(QString html);
    void getCurentUserUid(QString html);
    void getCurentUserName(QString html);
    void getGameId(QString html);
    void getSubject(QString html);
    void getUserName(QString html);
    void getPassword(QString html);
    void getAutoLogin(QString html);
    // The player's commands and the web view's signals. Unknown ids and rows do nothing.
    void on_pageLoadStarted();
    void on_pageLoadFinished(bool ok);
    void on_ToggleButtonClicked(int buttonId);
    void on_SelectButtonClicked(int buttonId);
    void on_UserInteract(QModelIndex index);
    void on_UserRecommend(QModelIndex index);
    void on_btnAddAddressClicked();
    void on_url_change(QUrl url);

protected:
    /// Closes the keyboard when Return is released, and deliberately takes every event without the base class's help.
    bool event(QEvent *event) override;
    void gestureEvent(QGestureEvent *event) override;
    /// Does what the visible way back does: stops picking a friend, or clicks Back or Cancel.
    void backAsked() override;

    QString oldURL; ///< page to return to from a composer or an external sharing page
    QString userID; ///< signed-in player; empty before the sign-in
    QString strInboxMessages;
    QString strGamesMessages;
    QString strFriendsMessages;
    QString recommendGameId;
    QString recommendSubject;
    QString _currentUserUid; ///< player whose profile is on display
    QString _currentUserName;
    bool _isFriend = false;
    bool _showAdd = false;
    bool _showRate = false;
    QString _username; ///< stored login
    QString _password;
    QString _rememberMe; ///< empty: not remembered

    MLabel *lblWebTitle = nullptr;
    MButtonGroup *selectButtons = nullptr;
    SelectButton *btnBack = nullptr;
    SelectButton *btnInfo = nullptr;
    SelectButton *btnQuit = nullptr;
    SelectButton *btnNewMessage = nullptr;
    SelectButton *btnRecommend = nullptr;
    SelectButton *btnInteract = nullptr;
    SelectButton *btnAdd = nullptr;
    SelectButton *btnEdit = nullptr;
    MButton *btnCancel = nullptr;
    MButton *btnSend = nullptr;
    MyQWebView *webView = nullptr;
    MTextEdit *txtMessage = nullptr;
    AddressWidget *addrWidget = nullptr;
    MLabel *lblSubject = nullptr;
    MButtonGroup *toggleButtons = nullptr;
    ToggleButton *btnHome = nullptr;
    ToggleButton *btnGame = nullptr;
    ToggleButton *btnInbox = nullptr;
    ToggleButton *btnFriend = nullptr;
    MyLayoutPolicy *mainPolicy = nullptr;
    MLayout *mainLayout = nullptr;
    MProgressIndicator *progressIndicator = nullptr;
    QStringListModel mdlInteractModel;
    QStringListModel mdlRecommendModel;
    QStringListModel mdlRate;
    MPopupList popupInteract;
    MPopupList popupRecommend;
    MPopupList popupRate;
    MCloseButton *btnStopPicking = nullptr; ///< the way out of picking a friend
    QNetworkAccessManager *nwAccessMgr = nullptr; ///< for the companion's own posts; shares nothing with the web view
    VantuState state = Normal;
    VantuState lastState = Normal; ///< state at the last load end or before the last change
    bool isInFriendSelectionScreen = false;
    bool isPickingFriend = false; ///< the player has opened the list of friends from this composer

private:
    void initUI();
    void initHeader();
    void keepTitleClear();
    void initWebView();
    void initComposer();
    void initFooter();
    void initPopups();
    void connectUI();

    void enterState(VantuState newState);
    void restoreWebView();
    QString currentUrl() const;
    /// Where the web view stands between header and footer.
    QRectF webViewRect() const;
    /// Takes the web view elsewhere: at once for a command of the player's, else from the event loop, since loading
    /// from inside a script pulls the page from under the engine that runs it. Of several wishes of scripts the last
    /// counts.
    void navigate(std::function<void()> navigation);
    /// Loads @p url in the web view, as navigate() does.
    void load(const QUrl &url);
    void setTitle(const QString &text, const QColor &color);
    void setTiledBackingStore(bool on);
    void setJavaScript(bool on);

    /// Has scripts of other hosts in @p frame find no address of the page that led to them and, where the service is
    /// reached encrypted only, no way to speak in clear.
    void restrain(QWebFrame *frame);
    void detectErrorPage();
    void finishFailedLoad();
    void finishLoad(const QString &url);
    void runBridgeScripts();
    void finishLoadUnderMessage(const QString &url);
    void endPicking();
    void bringComposerBack();
    void stopPicking();
    void showWayOut();
    void closePopups();

    void post(const QUrl &url, const QByteArray &body);
    void quitToGame();
    void showInteractPopup();
    void validateAndSend();
    void warn(const QString &text);

    std::unique_ptr<ScriptFacade> scriptFacade;
    std::function<void()> scriptNavigation; ///< waits for the event loop; empty if no script has asked for one
    bool isFinishingLoad = false;
    /// Counts a slot that loads or disturbs the web page, for as long as what it returns lives.
    [[nodiscard]] QScopedValueRollback<int> enterSlot() { return QScopedValueRollback<int>(slotDepth, slotDepth + 1); }

    int slotDepth = 0; ///< how many of the slots that load or disturb the web page are running inside each other
    /// A tab's load, whose good end clears the history.
    enum class SectionLoad { None, Asked, Started } sectionLoad = SectionLoad::None;
    QString namedUserUid; ///< the player that the page on its way, or on display, has named
    QString namedUserName;
    QTimer wayOutTimer;
    QPointer<MMessageBox> warning; ///< the latest one
};

/// True after the service's own error page was shown, until the next load starts.
extern bool onErrorPage;
/// True while an external sharing page is shown that needs scripts and tiles off.
extern bool onTwitterPage;
