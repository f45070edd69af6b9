// SPDX-License-Identifier: MIT
#include "vantuwidget.h"

#include "accessiblenames.h"
#include "addresswidget.h"
#include "globaldefine.h"
#include "mybutton.h"
#include "mylayout.h"
#include "myqwebview.h"

#include "mbutton.h"
#include "mbuttongroup.h"
#include "mclosebutton.h"
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
    lblWebTitle->setAccessibleRole(QAccessible::Heading);
    mainPolicy->addItemAtGeometry(lblWebTitle, QRectF(64, 0, 352, 58));

    selectButtons = new MButtonGroup;
    const int width = g_nScreenWidth;
    const auto place = [this](MButton *button, Command command, const QRectF &rect) {
        button->setVisible(button == btnQuit);
        connect(button, &QGraphicsObject::visibleChanged, lblWebTitle, [this] { keepTitleClear(); });
        mainPolicy->addItemAtGeometry(button, rect);
        selectButtons->addButton(button, static_cast<int>(command));
    };
    // Several buttons share a place on purpose: no page shows two of them.
    place(btnBack = new SelectButton(BackButtonImage, BackButtonPressedImage, SelectButton::BackCaption), Command::Back,
          QRectF(10, 10, 59, 33));
    place(btnInfo = new SelectButton(InfoImage, InfoPressedImage, SelectButton::NoCaption), Command::Info,
          QRectF(10, 10, 40, 40));
    place(btnQuit = new SelectButton(BackImage, BackPressedImage, SelectButton::NoCaption), Command::Quit,
          QRectF(width - 70, 10, 60, 35));
    place(btnNewMessage = new SelectButton(NewMessageImage, NewMessagePressedImage, SelectButton::NoCaption),
          Command::NewMessage, QRectF(width - 41, 10, 31, 30));
    place(btnRecommend = new SelectButton(RecommendImage, RecommendPressedImage, SelectButton::NoCaption),
          Command::Recommend, QRectF(width - 49, 10, 39, 30));
    place(btnInteract = new SelectButton(InteractImage, InteractPressedImage, SelectButton::NoCaption),
          Command::Interact, QRectF(width - 50, 10, 40, 30));
    place(btnAdd = new SelectButton(AddImage, AddPressedImage, SelectButton::NoCaption), Command::Add,
          QRectF(width - 41, 10, 31, 30));
    place(btnCancel = new MButton(localized(TXT_VANTU_CANCEL)), Command::Cancel, QRectF(width - 130, 10, 120, 40));
    place(btnSend = new MButton(localized(TXT_SEND)), Command::Send, QRectF(10, 10, 120, 40));
    place(btnEdit = new SelectButton(ButtonImage, ButtonPressedImage, SelectButton::EditCaption), Command::Edit,
          QRectF(width - 90, 10, 80, 35));
    btnInfo->setAccessibleName(localized(NAME_INFO));
    btnQuit->setAccessibleName(localized(NAME_QUIT));
    btnNewMessage->setAccessibleName(localized(TXT_NEW_MESSAGE));
    btnRecommend->setAccessibleName(localized(NAME_RECOMMEND));
    btnInteract->setAccessibleName(localized(TXT_INTERACT));
    btnAdd->setAccessibleName(localized(NAME_ADD_FRIENDS));
}

/// Some buttons lie across the title's ends: it gets the room between those on display, and stays in the middle.
void VantuPage::keepTitleClear()
{
    constexpr qreal air = 6;
    const QRectF title = lblWebTitle->geometry();
    qreal margin = 0;
    const QList<MButton *> buttons = selectButtons->buttons();
    for (const MButton *button : buttons) {
        const QRectF place = button->geometry();
        const bool isLeft = place.center().x() < title.center().x();
        if (button->isVisible())
            margin = qMax(margin, isLeft ? place.right() - title.left() : title.right() - place.left());
    }
    lblWebTitle->setContentsMargins(margin + air, 0, margin + air, 0);
}

void VantuPage::initWebView()
{
    webView = new MyQWebView;
    QLinearGradient background(0, 0, 0, 800);
    background.setColorAt(0.0, Qt::black);
    background.setColorAt(1.0, QColor(110, 148, 168, 255));
    QPalette palette;
    palette.setBrush(QPalette::Window, background);
    // Until the first page comes this is seen, and not the engine's white sheet on it.
    palette.setBrush(QPalette::Base, Qt::transparent);
    webView->setPalette(palette);
    auto *firstPage = new QObject(webView);
    connect(webView, &QGraphicsWebView::urlChanged, firstPage, [this, palette, firstPage]() mutable {
        palette.setBrush(QPalette::Base, Qt::white);
        webView->setPalette(palette);
        firstPage->deleteLater();
    });
    webView->setAutoFillBackground(true);
    webView->page()->setPreferredContentsSize(QSize(320, 400));
    webView->settings()->setAttribute(QWebSettings::TiledBackingStoreEnabled, true);
    webView->settings()->setAttribute(QWebSettings::FrameFlatteningEnabled, true);
    mainPolicy->addItemAtGeometry(webView, webViewRect());
}

void VantuPage::initComposer()
{
    const int width = g_nScreenWidth;
    progressIndicator = new MProgressIndicator;
    progressIndicator->setUnknownDuration(true);
    progressIndicator->setAccessibleName(localized(TXT_LOADING));
    mainPolicy->addItemAtGeometry(progressIndicator, QRectF(190, 320, 80, 80));

    addrWidget = new AddressWidget;
    mainPolicy->addItemAtGeometry(addrWidget, QRectF(10, 65, width - 20, 170));
    addrWidget->hide();

    lblSubject = new MLabel;
    lblSubject->setColor(Qt::black);
    lblSubject->setContentsMargins(0, 1, 0, 10); // Its frame is less high than the label.
    mainPolicy->addItemAtGeometry(lblSubject, QRectF(10, 245, width - 20, 40));
    lblSubject->hide();

    txtMessage = new MTextEdit(MTextEditModel::MultiLine, QString());
    txtMessage->setFocusPolicy(Qt::ClickFocus);
    txtMessage->setAccessibleName(localized(NAME_MESSAGE));
    // Deliberately past the footer, which is hidden while a message is written.
    mainPolicy->addItemAtGeometry(txtMessage, QRectF(10, 310, width - 20, 480));
    txtMessage->hide();

    btnStopPicking = new MCloseButton(localized(TXT_VANTU_CANCEL));
    mainPolicy->addItemAtGeometry(btnStopPicking, QRectF(width - 62, 10, 52, 52));
    btnStopPicking->hide();
}

void VantuPage::initFooter()
{
    toggleButtons = new MButtonGroup;
    const int left = (g_nScreenWidth - 390) / 2;
    const int top = g_nScreenHeight - 80;
    const auto place = [this, left, top](ToggleButton *button, Tab tab) {
        const int id = static_cast<int>(tab);
        mainPolicy->addItemAtGeometry(button, QRectF(left + 100 * id, top, 90, 70));
        button->setZValue(-id); // A long number in a badge lies over the next tab.
        toggleButtons->addButton(button, id);
    };
    place(btnHome = new ToggleButton(HomeImage), Tab::Home);
    place(btnInbox = new ToggleButton(InboxImage), Tab::Inbox);
    place(btnFriend = new ToggleButton(FriendsImage), Tab::Friends);
    place(btnGame = new ToggleButton(GamesImage), Tab::Games);
    btnHome->setChecked(true);
    toggleButtons->setParent(this); // The destructor leaves it out of its list.
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

MButton *VantuPage::button(Command command) const
{
    return selectButtons->button(static_cast<int>(command));
}

MButton *VantuPage::button(Tab tab) const
{
    return toggleButtons->button(static_cast<int>(tab));
}

void VantuPage::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    Q_UNUSED(option);
    Q_UNUSED(widget);
    const QRectF whole(QPointF(0, 0), size());
    if (state == Normal) {
        // Not beneath the web view, which has a background of its own: each step of a drag would paint both.
        QRegion around(whole.toRect());
        if (webView->isVisible())
            around -= webView->geometry().toRect().adjusted(2, 2, -2, -2);
        for (const QRect &part : around)
            painter->fillRect(part, Qt::black);
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
