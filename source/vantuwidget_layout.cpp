#include "vantuwidget.h"

#include "addresswidget.h"
#include "globaldefine.h"
#include "mybutton.h"
#include "mylayout.h"
#include "myqwebview.h"

#include "mbutton.h"
#include "mbuttongroup.h"
#include "minputmethodstate.h"
#include "mlabel.h"
#include "mlayout.h"
#include "mprogressindicator.h"
#include "mtextedit.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QNetworkAccessManager>
#include <QPainter>
#include <QWebFrame>
#include <QWebPage>
#include <QWebSettings>

void VantuPage::initUI()
{
    mainLayout = new MLayout;
    mainPolicy = new MyLayoutPolicy(mainLayout);
    initHeader();
    initWebView();
    initComposer();
    initFooter();
    initPopups();
    mainLayout->setPolicy(mainPolicy);
    centralWidget()->setLayout(mainLayout);
}

void VantuPage::initHeader()
{
    lblWebTitle = new MLabel;
    QFont font;
    font.setWeight(QFont::Bold);
    font.setPixelSize(20);
    lblWebTitle->setFont(font);
    lblWebTitle->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    lblWebTitle->setWordWrap(true);
    lblWebTitle->setWordWrapMode(QTextOption::WordWrap);
    lblWebTitle->setColor(Qt::white);
    mainPolicy->addItemAtGeometry(lblWebTitle, QRectF(64, 0, 352, 58));

    selectButtons = new MButtonGroup;
    const int width = g_nScreenWidth;
    const auto place = [this](MButton *button, int id, const QRectF &rect) {
        button->setVisible(button == btnQuit);
        mainPolicy->addItemAtGeometry(button, rect);
        selectButtons->addButton(button, id);
    };
    // Several buttons share a place on purpose: no page shows two of them.
    place(btnBack = new SelectButton(4, 5, 1), 0, QRectF(10, 10, 59, 33));
    place(btnInfo = new SelectButton(17, 18, -1), 1, QRectF(10, 10, 40, 40));
    place(btnQuit = new SelectButton(3, 6, -1), 2, QRectF(width - 70, 10, 60, 35));
    place(btnNewMessage = new SelectButton(15, 16, -1), 3, QRectF(width - 41, 10, 31, 30));
    place(btnRecommend = new SelectButton(22, 23, -1), 4, QRectF(width - 49, 10, 39, 30));
    place(btnInteract = new SelectButton(19, 20, -1), 5, QRectF(width - 50, 10, 40, 30));
    place(btnAdd = new SelectButton(0, 2, -1), 6, QRectF(width - 41, 10, 31, 30));
    place(btnCancel = new MButton(localized(TXT_VANTU_CANCEL)), 7, QRectF(width - 130, 10, 120, 40));
    place(btnSend = new MButton(localized(TXT_SEND)), 8, QRectF(10, 10, 120, 40));
    place(btnEdit = new SelectButton(28, 29, 0), 9, QRectF(width - 90, 10, 80, 35));
}

void VantuPage::initWebView()
{
    webView = new MyQWebView;
    QLinearGradient background(0, 0, 0, 800);
    background.setColorAt(0.0, Qt::black);
    background.setColorAt(1.0, QColor(110, 148, 168, 255));
    QPalette palette;
    palette.setBrush(QPalette::Window, background);
    webView->setPalette(palette);
    webView->setAutoFillBackground(true);
    webView->page()->setPreferredContentsSize(QSize(320, 400));
    webView->settings()->setAttribute(QWebSettings::TiledBackingStoreEnabled, true);
    webView->settings()->setAttribute(QWebSettings::FrameFlatteningEnabled, true);
    // A service that takes a request and then says nothing must not keep the player in a page without commands.
    webView->page()->networkAccessManager()->setTransferTimeout();
    mainPolicy->addItemAtGeometry(webView, webViewRect());
}

void VantuPage::initComposer()
{
    const int width = g_nScreenWidth;
    progressIndicator = new MProgressIndicator;
    progressIndicator->setUnknownDuration(true);
    mainPolicy->addItemAtGeometry(progressIndicator, QRectF(190, 320, 80, 80));

    addrWidget = new AddressWidget;
    mainPolicy->addItemAtGeometry(addrWidget, QRectF(10, 65, width - 20, 170));
    addrWidget->hide();

    lblSubject = new MLabel;
    lblSubject->setColor(Qt::black);
    lblSubject->setAlignment(Qt::AlignLeft | Qt::AlignTop); // Its frame's lower line runs through its lower part.
    mainPolicy->addItemAtGeometry(lblSubject, QRectF(10, 245, width - 20, 40));
    lblSubject->hide();

    txtMessage = new MTextEdit(MTextEditModel::MultiLine, QString());
    txtMessage->setFocusPolicy(Qt::ClickFocus);
    // Deliberately past the footer, which is hidden while a message is written.
    mainPolicy->addItemAtGeometry(txtMessage, QRectF(10, 310, width - 20, 480));
    txtMessage->hide();
}

void VantuPage::initFooter()
{
    toggleButtons = new MButtonGroup;
    const int left = (g_nScreenWidth - 390) / 2;
    const int top = g_nScreenHeight - 80;
    const auto place = [this, left, top](ToggleButton *button, int id) {
        mainPolicy->addItemAtGeometry(button, QRectF(left + 100 * id, top, 90, 70));
        toggleButtons->addButton(button, id);
    };
    place(btnHome = new ToggleButton(13), 0);
    place(btnInbox = new ToggleButton(14), 1);
    place(btnFriend = new ToggleButton(11), 2);
    place(btnGame = new ToggleButton(12), 3);
    btnHome->setChecked(true);
    // The destructor leaves it out of its list; this way it goes with the page. A child of the page's own would be in
    // the reach of scripts.
    toggleButtons->setParent(centralWidget());
}

void VantuPage::initPopups()
{
    mdlRecommendModel.setStringList({localized(TXT_EMAIL), QStringLiteral("Twitter"), QStringLiteral("Facebook")});
    popupRecommend.setTitle(localized(TXT_RECOMMEND_VIA));
    popupRecommend.setItemModel(&mdlRecommendModel);
    mdlRate.setStringList({localized(TXT_RATE_UP), localized(TXT_RATE_DOWN)});
    popupRate.setTitle(localized(TXT_RATE));
    popupRate.setItemModel(&mdlRate);
}

QString VantuPage::currentUrl() const
{
    const QWebFrame *frame = webView->page()->mainFrame();
    return frame ? frame->url().toString() : QString();
}

QRectF VantuPage::webViewRect() const
{
    return QRectF(0, 60, g_nScreenWidth, g_nScreenHeight - 150);
}

void VantuPage::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    Q_UNUSED(option);
    Q_UNUSED(widget);
    const QRectF whole(QPointF(0, 0), size());
    if (state == Normal) {
        painter->fillRect(whole, Qt::black);
        return;
    }
    painter->fillRect(whole, Qt::white);
    if (state == SendEmailState) {
        painter->setRenderHint(QPainter::Antialiasing, false); // Smoothed, a line on whole pixels is two grey ones.
        painter->setPen(Qt::black);
        painter->drawLine(0, 245, 480, 245);
        painter->drawLine(0, 275, 480, 275);
    }
}

bool VantuPage::event(QEvent *event)
{
    if (event->type() == QEvent::KeyRelease && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Return)
        MInputMethodState::closeSoftwareInputPanel();
    return true; // Deliberately for every event, and without the base class.
}

void VantuPage::gestureEvent(QGestureEvent *event)
{
    if (state != SendMessageState)
        MInputMethodState::closeSoftwareInputPanel();
    MApplicationPage::gestureEvent(event);
}

QVariant VantuPage::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (!isOnDisplay())
        return MApplicationPage::itemChange(change, value);
    switch (change) {
    case ItemVisibleChange:
    case ItemEnabledChange:
        return true;
    case ItemOpacityChange:
    case ItemScaleChange:
        return 1.0;
    case ItemRotationChange:
        return 0.0;
    case ItemPositionChange:
        return pos();
    case ItemZValueChange:
        return zValue();
    case ItemParentChange:
        return QVariant::fromValue(parentItem());
    default:
        return MApplicationPage::itemChange(change, value);
    }
}
