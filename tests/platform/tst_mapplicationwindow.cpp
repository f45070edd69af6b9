// SPDX-License-Identifier: MIT
#include "finger.h"
#include "mapplicationpage.h"
#include "mapplicationwindow.h"
#include "mbutton.h"
#include "mtextedit.h"
#include "softwarekeyboard.h"
#include "stage.h"

#include <QKeyEvent>
#include <QStyleHints>

namespace {

class KeyCounter : public MApplicationPage {
public:
    QString typed;

protected:
    void keyPressEvent(QKeyEvent *event) override { typed += event->text(); }
};

/// Shows one thing after another.
class Leaf : public MButton, public MChangingContent {
public:
    int number = 0;
    int contentNumber() const override { return number; }
};

} // namespace

class WindowTest : public QObject {
    Q_OBJECT

private slots:
    void opensOneToOneOrAsLargeAsTheScreenAllows()
    {
        const auto opened = [](int width, int height) {
            return MApplicationWindow::openingSize(QSize(480, 814), QSize(width, height));
        };
        QCOMPARE(opened(1920, 1080), QSize(480, 814)); // a desktop
        QCOMPARE(opened(1366, 407), QSize(240, 407)); // a small laptop
        QCOMPARE(opened(360, 814), QSize(360, 610)); // a narrow phone
    }

    void keepsTheAspectCentredWhenResized()
    {
        MApplicationWindow window;
        window.show();
        const auto shown = [&window](int width, int height) {
            window.resize(width, height);
            return QRect(window.mapFromScene(0, 0), window.mapFromScene(480, 814) - QPoint(1, 1));
        };
        QCOMPARE(shown(960, 1628), QRect(0, 0, 960, 1628));
        QCOMPARE(shown(1000, 407), QRect(380, 0, 240, 407));
        QCOMPARE(shown(240, 608), QRect(0, 100, 240, 407));
    }

    void fillsTheScreenOfAPhone()
    {
        const auto fills = [](int width, int height) {
            return MApplicationWindow::fillsScreen(QSize(480, 814), QSize(width, height));
        };
        QVERIFY(fills(360, 720));
        QVERIFY(fills(540, 1140));
        QVERIFY2(!fills(720, 360), "a phone held sideways");
        QVERIFY2(!fills(800, 1280), "a tablet");
        QVERIFY2(!fills(480, 320), "a small laptop");
    }

    void keepsItsScaleAndTheCursorInViewAboveTheKeyboard()
    {
        Stage stage;
        MTextEdit upper(MTextEditModel::SingleLine);
        MTextEdit lower(MTextEditModel::SingleLine);
        stage.put(&upper, QRectF(10, 60, 460, 48));
        stage.put(&lower, QRectF(10, 700, 460, 48));
        const auto shownTop = [&stage] { return stage.window.mapToScene(0, 0).y(); };
        HalfScreenKeyboard keyboard;
        keyboard.window = &stage.window;
        for (MTextEdit *field : {&upper, &lower, &upper}) {
            field->setFocus(Qt::TabFocusReason);
            keyboard.emitKeyboardRectChanged();
            QCOMPARE(stage.window.transform().m11(), 1.0);
            QCOMPARE(stage.window.visibleHeight(), 407.0);
            QVERIFY(shownTop() <= field->y());
            QVERIFY(shownTop() + 407 >= field->geometry().bottom());
        }
        keyboard.hideInputPanel();
        QCOMPARE(shownTop(), 0.0);
        QCOMPARE(stage.window.visibleHeight(), 814.0);
        // A keyboard that comes later than the focus.
        lower.setFocus();
        keyboard.hideInputPanel();
        keyboard.showInputPanel();
        QVERIFY(shownTop() + 407 >= lower.geometry().bottom());
        MTextEdit area(MTextEditModel::MultiLine);
        stage.put(&area, QRectF(10, 120, 460, 600));
        area.setFocus();
        const qreal firstTop = shownTop();
        for (int i = 0; i < 25; ++i)
            QTest::keyClick(&stage.window, Qt::Key_Return);
        QVERIFY(shownTop() > firstTop);
        // Who takes text may leave the keyboard up when it loses the focus, as a web page does.
        MButton button;
        stage.put(&button, QRectF(10, 10, 100, 40));
        auto *text = stage.window.scene()->addText("text"_s);
        text->setTextInteractionFlags(Qt::TextEditorInteraction);
        text->setFocus();
        keyboard.showInputPanel();
        button.setFocus();
        QVERIFY(!keyboard.isInputPanelVisible());
    }

    void keysWithNoFocusGoToTheTopmostPage()
    {
        MApplicationWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClicks(&window, "lost"_s);
        KeyCounter below;
        KeyCounter above;
        below.appear(&window);
        above.appear(&window);
        QTest::keyClicks(&window, "up"_s);
        int timesBack = 0;
        connect(&window, &MApplicationWindow::backKeyPressed, &window, [&timesBack] { ++timesBack; });
        for (const auto &[key, modifiers, expected] : {std::tuple(Qt::Key_Escape, Qt::NoModifier, 1),
                                                       {Qt::Key_Escape, Qt::KeypadModifier, 2},
                                                       {Qt::Key_Left, Qt::NoModifier, 2},
                                                       {Qt::Key_Left, Qt::AltModifier, 3},
                                                       {Qt::Key_Back, Qt::NoModifier, 4}}) {
            QTest::keyClick(&window, key, modifiers);
            QCOMPARE(timesBack, expected);
        }
        above.disappear();
        QTest::keyClicks(&window, "down"_s);
        QCOMPARE(above.typed, "up"_s);
        QCOMPARE(below.typed, "down"_s);
        QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!window.isVisible());
    }

    void secondTapActsOnNothingNew_data()
    {
        // The clicks are those of the first control, then a digit for those of the second.
        const Table<int, QPointF, QString, int> row("interval", "offset", "change", "clicks");
        row("same control", 60000, {}, {}, 30);
        row("another control has come", 60000, {9, -9}, "replace"_s, 10);
        row("the first one has gone", 60000, {}, "remove"_s, 10);
        row("it shows something else", 60000, {}, "turn"_s, 10);
        row("elsewhere", 60000, {30, 0}, "replace"_s, 12);
        row("later", 0, {}, "replace"_s, 12);
    }

    void secondTapActsOnNothingNew()
    {
        QFETCH(int, interval);
        QFETCH(QPointF, offset);
        QFETCH(QString, change);
        QStyleHints *hints = QGuiApplication::styleHints();
        const int usual = hints->mouseDoubleClickInterval();
        hints->setMouseDoubleClickInterval(interval);
        for (const Finger::Kind kind : {Finger::Mouse, Finger::Touch}) {
            Stage stage(kind);
            MButton below;
            Leaf first;
            stage.put(&below, QRectF(100, 100, 200, 200));
            stage.put(&first, QRectF(100, 100, 200, 200));
            below.setVisible(change != "replace"_s);
            QSignalSpy firstClicked(&first, &MButton::clicked);
            QSignalSpy belowClicked(&below, &MButton::clicked);
            connect(&first, &MButton::clicked, &first, [&] {
                first.number += change == "turn"_s;
                first.setVisible(change.isEmpty() || change == "turn"_s);
                below.setVisible(true);
            });
            stage.finger.tap({200, 200});
            stage.finger.tap(QPointF(200, 200) + offset);
            stage.finger.tap(QPointF(200, 200) + offset);
            QTEST(static_cast<int>(firstClicked.count() * 10 + belowClicked.count()), "clicks");
        }
        hints->setMouseDoubleClickInterval(usual);
    }

    void heldKeyActivatesOnce()
    {
        for (const auto &[key, letter, written] :
             {std::tuple(Qt::Key_Return, "\r", "\n\n\n"), {Qt::Key_Space, " ", "   "}}) {
            Stage stage;
            MButton button;
            MTextEdit text(MTextEditModel::MultiLine);
            stage.put(&button, QRectF(100, 100, 200, 50));
            stage.put(&text, QRectF(100, 200, 200, 200));
            QSignalSpy clicked(&button, &MButton::clicked);
            for (QGraphicsItem *item : {static_cast<QGraphicsItem *>(&button), static_cast<QGraphicsItem *>(&text)}) {
                item->setFocus();
                for (int i = 0; i < 3; ++i) {
                    const QString typed = QLatin1String(letter);
                    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, typed, i > 0);
                    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, typed, i < 2);
                    QCoreApplication::sendEvent(&stage.window, &press);
                    QCoreApplication::sendEvent(&stage.window, &release);
                }
            }
            QCOMPARE(clicked.count(), 1);
            QCOMPARE(text.text(), QLatin1String(written));
        }
    }
};

QTEST_MAIN(WindowTest)
#include "tst_mapplicationwindow.moc"
