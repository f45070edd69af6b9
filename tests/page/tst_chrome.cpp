// SPDX-License-Identifier: MIT
#include "portal.h"
#include "softwarekeyboard.h"

#include <QWebPage>

class ChromeTest : public PortalTest {
    Q_OBJECT

private slots:
    void everythingIsInItsPlace()
    {
        const QPair<const QGraphicsWidget *, QRectF> places[] = {
            {page->lblWebTitle, {64, 0, 352, 58}},
            {page->btnBack, {10, 10, 59, 33}},
            {page->btnInfo, {10, 10, 40, 40}},
            {page->btnQuit, {410, 10, 60, 35}},
            {page->btnNewMessage, {439, 10, 31, 30}},
            {page->btnRecommend, {431, 10, 39, 30}},
            {page->btnInteract, {430, 10, 40, 30}},
            {page->btnAdd, {439, 10, 31, 30}},
            {page->btnCancel, {350, 10, 120, 40}},
            {page->btnSend, {10, 10, 120, 40}},
            {page->btnEdit, {390, 10, 80, 35}},
            {page->webView, {0, 60, 480, 664}},
            {page->progressIndicator, {190, 320, 80, 80}},
            {page->addrWidget, {10, 65, 460, 170}},
            {page->lblSubject, {10, 245, 460, 40}},
            {page->txtMessage, {10, 310, 460, 480}},
            {page->btnHome, {45, 734, 90, 70}},
            {page->btnInbox, {145, 734, 90, 70}},
            {page->btnFriend, {245, 734, 90, 70}},
            {page->btnGame, {345, 734, 90, 70}},
        };
        for (const auto &[widget, place] : places)
            QCOMPARE(widget->mapRectToScene(widget->rect()), place);
        QCOMPARE(page->lblWebTitle->alignment(), Qt::Alignment(Qt::AlignCenter));
        for (int id = 0; id < 10; ++id) {
            MButton *button = page->selectButtons->button(id);
            button->show();
            QVERIFY(!QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name).isEmpty());
            const QRectF title = page->lblWebTitle->mapRectToScene(page->lblWebTitle->contentsRect());
            QVERIFY(title.isValid() && !title.intersects(button->geometry()));
        }
        // A long title takes a second line.
        page->showTitle("Player of the month "_s.repeated(3));
        QVERIFY(page->lblWebTitle->effectiveSizeHint(Qt::PreferredSize, QSizeF(260, -1)).height() > 40);
        QCOMPARE(page->txtMessage->focusPolicy(), Qt::ClickFocus);
        QCOMPARE(page->selectButtons->button(9), page->btnEdit);
        QCOMPARE(page->toggleButtons->button(3), page->btnGame);
    }

    void beginsWithTheQuitButtonAndAWebViewForAPhone()
    {
        page = std::make_unique<TestPage>();
        QCOMPARE(shown(), "quit web tabs"_s);
        QVERIFY(isLoading());
        QVERIFY(page->btnHome->isChecked());
        QCOMPARE(page->webView->page()->preferredContentsSize(), QSize(320, 400));
        QVERIFY(isOn(QWebSettings::TiledBackingStoreEnabled));
        QVERIFY(isOn(QWebSettings::FrameFlatteningEnabled));
    }

    void popupsHoldTheirRows()
    {
        const auto rows = [](const MPopupList &popup) {
            const auto *model = qobject_cast<const QStringListModel *>(popup.itemModel());
            return model ? model->stringList() : QStringList();
        };
        g_languageIdx = 3;
        const TestPage italian;
        QCOMPARE(italian.popupRecommend.title(), "Consiglia il gioco agli amici tramite"_s);
        QCOMPARE(rows(italian.popupRecommend), QStringList({"E-mail"_s, "Twitter"_s, "Facebook"_s}));
        QCOMPARE(italian.popupRate.title(), "Dai un voto"_s);
        QCOMPARE(rows(italian.popupRate), QStringList({"Consigliato"_s, "Sconsigliato"_s}));
    }

    void backgroundFollowsTheState()
    {
        const auto painted = [this](VantuState state) {
            page->state = state;
            QImage image(480, 814, QImage::Format_RGB32);
            image.fill(Qt::green);
            QPainter painter(&image);
            page->resize(480, 814);
            page->paint(&painter, nullptr, nullptr);
            return image;
        };
        QCOMPARE(painted(Normal).pixelColor(240, 30), QColor(Qt::black));
        QCOMPARE(painted(Normal).pixelColor(240, 245), QColor(Qt::green)); // beneath the web view
        page->webView->hide();
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
        page->openSendMessagePage();
        SoftwareKeyboard keyboard;
        click(page->txtMessage);
        QTRY_VERIFY(keyboard.isInputPanelVisible());
        QTest::keyClick(window->viewport(), Qt::Key_A);
        QVERIFY(keyboard.isInputPanelVisible());
        QTest::keyClick(window->viewport(), Qt::Key_Return);
        QVERIFY(!keyboard.isInputPanelVisible());
        QTest::keyClick(window->viewport(), Qt::Key_B);
        QCOMPARE(page->txtMessage->text(), "a\nb"_s);
    }

    void gesturesCloseTheKeyboardExceptOverAMessage()
    {
        SoftwareKeyboard keyboard;
        for (const VantuState state : {Normal, SendEmailState, SendMessageState}) {
            page->state = state;
            keyboard.showInputPanel();
            Finger(window.get()).drag({240, 270}, {240, 370});
            QCOMPARE(keyboard.isInputPanelVisible(), state == SendMessageState);
        }
    }

    void nothingMovesUnderAFingerOnTheNextField()
    {
        SoftwareKeyboard keyboard;
        loadPage("/vantu/form.php"_s, {}, "<input value='text' style='width: 300px; height: 100px'>"_s.repeated(2));
        waitUntilDrawn();
        Finger finger(window.get(), Finger::Touch);
        finger.tap({240, 120});
        QTRY_VERIFY(keyboard.isInputPanelVisible());
        for (const int y : {120, 270, 500}) {
            finger.press({240, qreal(y)});
            QVERIFY(keyboard.isInputPanelVisible());
            finger.release();
            QTRY_COMPARE(keyboard.isInputPanelVisible(), y != 500);
        }
    }

    void pageSurvivesItsWindow()
    {
        window.reset();
        QVERIFY(!page->scene());
        QCOMPARE(page->btnHome->geometry(), QRectF(45, 734, 90, 70));
    }
};

PORTAL_TEST_MAIN(ChromeTest)
#include "tst_chrome.moc"
