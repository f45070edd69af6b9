// SPDX-License-Identifier: MIT
#include "finger.h"
#include "mapplicationpage.h"
#include "mapplicationwindow.h"
#include "mbutton.h"
#include "mtextedit.h"
#include "softwarekeyboard.h"
#include "stage.h"

#include <QKeyEvent>
#include <QSignalSpy>
#include <QStyleHints>
#include <QTest>

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
    void opensOneToOneOrAsLargeAsTheScreenAllows_data()
    {
        QTest::addColumn<QSize>("available");
        QTest::addColumn<QSize>("opened");
        QTest::newRow("desktop") << QSize(1920, 1080) << QSize(480, 814);
        QTest::newRow("small laptop") << QSize(1366, 407) << QSize(240, 407);
        QTest::newRow("narrow phone") << QSize(360, 814) << QSize(360, 610);
    }

    void opensOneToOneOrAsLargeAsTheScreenAllows()
    {
        QFETCH(QSize, available);
        QTEST(MApplicationWindow::openingSize(QSize(480, 814), available), "opened");
    }

    void keepsTheAspectCentredWhenResized_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QRect>("shown");
        QTest::newRow("twice") << QSize(960, 1628) << QRect(0, 0, 960, 1628);
        QTest::newRow("wide") << QSize(1000, 407) << QRect(380, 0, 240, 407);
        QTest::newRow("high") << QSize(240, 608) << QRect(0, 100, 240, 407);
    }

    void keepsTheAspectCentredWhenResized()
    {
        QFETCH(QSize, size);
        MApplicationWindow window;
        window.show();
        window.resize(size);
        const QRect shown(window.mapFromScene(0, 0), window.mapFromScene(480, 814) - QPoint(1, 1));
        QTEST(shown, "shown");
    }

    void fillsTheScreenOfAPhone_data()
    {
        QTest::addColumn<QSize>("screen");
        QTest::addColumn<bool>("filled");
        QTest::newRow("phone") << QSize(360, 720) << true;
        QTest::newRow("large phone") << QSize(540, 1140) << true;
        QTest::newRow("phone held sideways") << QSize(720, 360) << false;
        QTest::newRow("tablet") << QSize(800, 1280) << false;
        QTest::newRow("small laptop") << QSize(480, 320) << false;
    }

    void fillsTheScreenOfAPhone()
    {
        QFETCH(QSize, screen);
        QTEST(MApplicationWindow::fillsScreen(QSize(480, 814), screen), "filled");
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
        keyboard.emitInputPanelVisibleChanged();
        QCOMPARE(shownTop(), 0.0);
        QCOMPARE(stage.window.visibleHeight(), 814.0);
    }

    void nothingScrollsIt()
    {
        MApplicationWindow window;
        window.show();
        window.resize(333, 555);
        const QPoint origin = window.mapFromScene(0, 0);
        Finger(&window).wheel({100, 100}, -5);
        QTest::keyClick(&window, Qt::Key_PageDown);
        QCOMPARE(window.mapFromScene(0, 0), origin);
    }

    void keysWithNoFocusGoToTheTopmostPage()
    {
        MApplicationWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClicks(&window, QStringLiteral("lost"));
        KeyCounter below;
        KeyCounter above;
        below.appear(&window);
        above.appear(&window);
        QTest::keyClicks(&window, QStringLiteral("up"));
        above.disappear();
        QTest::keyClicks(&window, QStringLiteral("down"));
        QCOMPARE(above.typed, QStringLiteral("up"));
        QCOMPARE(below.typed, QStringLiteral("down"));
        QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!window.isVisible());
    }

    void secondTapActsOnNothingNew_data()
    {
        QTest::addColumn<Finger::Kind>("kind");
        QTest::addColumn<int>("interval");
        QTest::addColumn<QPointF>("offset");
        QTest::addColumn<QString>("change");
        QTest::addColumn<int>("clicks"); // those of the first control, then a digit for those of the second
        const auto row = [](const char *name, int interval, const QPointF &offset, const char *change, int clicks) {
            QTest::addRow("%s, mouse", name)
                << Finger::Mouse << interval << offset << QString::fromLatin1(change) << clicks;
            QTest::addRow("%s, touch", name)
                << Finger::Touch << interval << offset << QString::fromLatin1(change) << clicks;
        };
        row("same control", 60000, {}, "", 30);
        row("another control has come", 60000, {9, -9}, "replace", 10);
        row("the first one has gone", 60000, {}, "remove", 10);
        row("it shows something else", 60000, {}, "turn", 10);
        row("elsewhere", 60000, {30, 0}, "replace", 12);
        row("later", 0, {}, "replace", 12);
    }

    void secondTapActsOnNothingNew()
    {
        QFETCH(Finger::Kind, kind);
        QFETCH(int, interval);
        QFETCH(QPointF, offset);
        QFETCH(QString, change);
        QStyleHints *hints = QGuiApplication::styleHints();
        const int usual = hints->mouseDoubleClickInterval();
        hints->setMouseDoubleClickInterval(interval);
        Stage stage(kind);
        MButton below;
        Leaf first;
        stage.put(&below, QRectF(100, 100, 200, 200));
        stage.put(&first, QRectF(100, 100, 200, 200));
        below.setVisible(change != QLatin1String("replace"));
        QSignalSpy firstClicked(&first, &MButton::clicked);
        QSignalSpy belowClicked(&below, &MButton::clicked);
        connect(&first, &MButton::clicked, &first, [&] {
            first.number += change == QLatin1String("turn");
            first.setVisible(change.isEmpty() || change == QLatin1String("turn"));
            below.setVisible(true);
        });
        stage.finger.tap({200, 200});
        stage.finger.tap(QPointF(200, 200) + offset);
        stage.finger.tap(QPointF(200, 200) + offset);
        hints->setMouseDoubleClickInterval(usual);
        QTEST(firstClicked.count() * 10 + belowClicked.count(), "clicks");
    }

    void heldKeyActivatesOnce_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("written");
        QTest::newRow("Return") << int(Qt::Key_Return) << QStringLiteral("\n\n\n");
        QTest::newRow("Space") << int(Qt::Key_Space) << QStringLiteral("   ");
    }

    void heldKeyActivatesOnce()
    {
        QFETCH(int, key);
        Stage stage;
        MButton button;
        MTextEdit text(MTextEditModel::MultiLine);
        stage.put(&button, QRectF(100, 100, 200, 50));
        stage.put(&text, QRectF(100, 200, 200, 200));
        QSignalSpy clicked(&button, &MButton::clicked);
        const auto hold = [&](QGraphicsItem *item) {
            item->setFocus();
            for (int i = 0; i < 3; ++i) {
                const bool again = i > 0;
                const QString letter(key == Qt::Key_Space ? QLatin1Char(' ') : QLatin1Char('\r'));
                QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, letter, again);
                QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, letter, i < 2);
                QCoreApplication::sendEvent(&stage.window, &press);
                QCoreApplication::sendEvent(&stage.window, &release);
            }
        };
        hold(&button);
        QCOMPARE(clicked.count(), 1);
        hold(&text);
        QTEST(text.text(), "written");
    }
};

QTEST_MAIN(WindowTest)
#include "tst_mapplicationwindow.moc"
