// SPDX-License-Identifier: MIT
#include "portal.h"
#include "softwarekeyboard.h"

#include "addresswidget.h"
#include "mybutton.h"

#include "mbuttongroup.h"
#include "mlabel.h"
#include "mprogressindicator.h"
#include "mtextedit.h"

#include <QWebPage>
#include <QWebSettings>

class ChromeTest : public QObject {
    Q_OBJECT

private slots:
    void everythingIsInItsPlace()
    {
        TestService service;
        TestPage page;
        const QPair<const QGraphicsWidget *, QRectF> places[] = {
            {page.lblWebTitle, {64, 0, 352, 58}},
            {page.btnBack, {10, 10, 59, 33}},
            {page.btnInfo, {10, 10, 40, 40}},
            {page.btnQuit, {410, 10, 60, 35}},
            {page.btnNewMessage, {439, 10, 31, 30}},
            {page.btnRecommend, {431, 10, 39, 30}},
            {page.btnInteract, {430, 10, 40, 30}},
            {page.btnAdd, {439, 10, 31, 30}},
            {page.btnCancel, {350, 10, 120, 40}},
            {page.btnSend, {10, 10, 120, 40}},
            {page.btnEdit, {390, 10, 80, 35}},
            {page.webView, {0, 60, 480, 664}},
            {page.progressIndicator, {190, 320, 80, 80}},
            {page.addrWidget, {10, 65, 460, 170}},
            {page.lblSubject, {10, 245, 460, 40}},
            {page.txtMessage, {10, 310, 460, 480}},
            {page.btnHome, {45, 734, 90, 70}},
            {page.btnInbox, {145, 734, 90, 70}},
            {page.btnFriend, {245, 734, 90, 70}},
            {page.btnGame, {345, 734, 90, 70}},
        };
        for (const auto &[widget, place] : places)
            QCOMPARE(widget->mapRectToScene(widget->rect()), place);
        for (int id = 0; id < 10; ++id) {
            MButton *button = page.selectButtons->button(id);
            button->show();
            const QRectF title = page.lblWebTitle->mapRectToScene(page.lblWebTitle->contentsRect());
            QVERIFY(title.isValid() && !title.intersects(button->geometry()));
        }
        QCOMPARE(page.selectButtons->button(9), page.btnEdit);
        QCOMPARE(page.toggleButtons->button(3), page.btnGame);
    }

    void onlyQuitShowsAtFirst()
    {
        TestService service;
        TestPage page;
        for (const MButton *button : page.selectButtons->buttons())
            QCOMPARE(button->isVisible(), button == page.btnQuit);
        QVERIFY(page.btnHome->isChecked());
        QVERIFY(page.progressIndicator->isVisible());
        QVERIFY(!page.addrWidget->isVisible() && !page.lblSubject->isVisible() && !page.txtMessage->isVisible());
    }

    void webViewIsSetUpForAPhone()
    {
        TestService service;
        TestPage page;
        QCOMPARE(page.webView->page()->preferredContentsSize(), QSize(320, 400));
        QVERIFY(page.webView->settings()->testAttribute(QWebSettings::TiledBackingStoreEnabled));
        QVERIFY(page.webView->settings()->testAttribute(QWebSettings::FrameFlatteningEnabled));
    }

    void popupsHoldTheirRows()
    {
        g_languageIdx = 3;
        TestService service;
        TestPage page;
        g_languageIdx = 0;
        QCOMPARE(page.popupRecommend.title(), QStringLiteral("Consiglia il gioco agli amici tramite"));
        QCOMPARE(page.mdlRecommendModel.stringList(),
                 QStringList({QStringLiteral("E-mail"), QStringLiteral("Twitter"), QStringLiteral("Facebook")}));
        QCOMPARE(page.mdlRate.stringList(),
                 QStringList({QStringLiteral("Consigliato"), QStringLiteral("Sconsigliato")}));
    }

    void backgroundFollowsTheState()
    {
        TestService service;
        TestPage page;
        const auto painted = [&page](VantuState state) {
            page.state = state;
            QImage image(480, 814, QImage::Format_RGB32);
            image.fill(Qt::green);
            QPainter painter(&image);
            page.resize(480, 814);
            page.paint(&painter, nullptr, nullptr);
            return image;
        };
        QCOMPARE(painted(Normal).pixelColor(240, 245), QColor(Qt::black));
        QCOMPARE(painted(SendMessageState).pixelColor(240, 245), QColor(Qt::white));
        const QImage email = painted(SendEmailState);
        for (const int y : {245, 275}) {
            QCOMPARE(email.pixelColor(0, y), QColor(Qt::black));
            QCOMPARE(email.pixelColor(479, y), QColor(Qt::black));
        }
        QCOMPARE(email.pixelColor(240, 260), QColor(Qt::white));
    }

    void returnReleasedClosesTheKeyboard()
    {
        Portal portal;
        portal.page->openSendMessagePage();
        SoftwareKeyboard keyboard;
        QTest::mouseClick(portal.window.viewport(), Qt::LeftButton, Qt::NoModifier,
                          portal.window.mapFromScene(portal.page->txtMessage->sceneBoundingRect().center()));
        QTRY_VERIFY(keyboard.isInputPanelVisible());
        QTest::keyClick(portal.window.viewport(), Qt::Key_A);
        QVERIFY(keyboard.isInputPanelVisible());
        QTest::keyClick(portal.window.viewport(), Qt::Key_Return);
        QVERIFY(!keyboard.isInputPanelVisible());
        QTest::keyClick(portal.window.viewport(), Qt::Key_B);
        QCOMPARE(portal.page->txtMessage->text(), QStringLiteral("a\nb"));
    }

    void gesturesCloseTheKeyboardExceptOverAMessage()
    {
        Portal portal;
        SoftwareKeyboard keyboard;
        const auto drag = [&portal] {
            QWidget *viewport = portal.window.viewport();
            const QPoint from = portal.window.mapFromScene(QPointF(240, 270));
            QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, from);
            for (int step = 1; step <= 5; ++step)
                QTest::mouseMove(viewport, from + QPoint(0, 20 * step));
            QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, from + QPoint(0, 100));
        };
        for (const VantuState state : {Normal, SendEmailState, SendMessageState}) {
            portal.page->state = state;
            keyboard.showInputPanel();
            drag();
            QCOMPARE(keyboard.isInputPanelVisible(), state == SendMessageState);
        }
    }

    void pageSurvivesItsWindow()
    {
        TestService service;
        TestPage page;
        {
            MApplicationWindow window;
            window.show();
            page.appear(&window, MSceneWindow::KeepWhenDone);
        }
        QVERIFY(!page.scene());
        QCOMPARE(page.btnHome->geometry(), QRectF(45, 734, 90, 70));
    }
};

PORTAL_TEST_MAIN(ChromeTest)
#include "tst_chrome.moc"
