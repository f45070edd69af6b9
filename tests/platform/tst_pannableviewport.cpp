// SPDX-License-Identifier: MIT
#include "mbutton.h"
#include "mflowlayoutpolicy.h"
#include "mlayout.h"
#include "mpannableviewport.h"
#include "mpositionbar.h"
#include "stage.h"

#include <QScroller>

namespace {

const QRectF place(10, 65, 460, 170);

/// A viewport with buttons that flow in it, 10 pixels apart.
struct Panel {
    MPannableViewport *viewport = new MPannableViewport;
    MFlowLayoutPolicy *flow;
    QVector<QPointer<MButton>> buttons;
    QVector<int> clicks;

    explicit Panel(Stage &stage, int count)
    {
        auto *content = new MWidget;
        auto *layout = new MLayout;
        layout->setContentsMargins(0, 0, 0, 0);
        flow = new MFlowLayoutPolicy(layout);
        flow->setSpacing(10);
        for (int i = 0; i < count; ++i)
            add(QSizeF(145, 40));
        content->setLayout(layout);
        viewport->setWidget(content);
        stage.put(viewport, place);
        settle();
    }

    void add(const QSizeF &size)
    {
        auto *button = new MButton(QString::number(buttons.size()));
        button->setPreferredSize(size);
        const int number = buttons.size();
        QObject::connect(button, &MButton::clicked, [this, number] { clicks.append(number); });
        buttons.append(button);
        flow->addItem(button);
    }

    static void settle() { QCoreApplication::sendPostedEvents(); }

    qreal contentHeight() const { return viewport->widget()->size().height(); }
};

const QPointF onFirstRow(80, 85);
const QPointF onThirdRow(80, 185);

} // namespace

class PannableViewportTest : public QObject {
    Q_OBJECT

private slots:
    void flows()
    {
        using Places = QVector<QRectF>;
        // Where the buttons are, and how high all of it.
        const auto flowed = [](const QVector<QSizeF> &sizes) {
            Stage stage;
            Panel panel(stage, 0);
            for (const QSizeF &size : sizes)
                panel.add(size);
            panel.settle();
            Places places;
            for (const auto &button : panel.buttons)
                places.append(button->geometry());
            return std::pair(places, panel.contentHeight());
        };
        QCOMPARE(flowed({}), std::pair(Places(), 0.0));
        // A caption, then recipients.
        QCOMPARE(flowed({{400, 30}, {30, 30}, {110, 40}}),
                 std::pair(Places({{0, 0, 400, 30}, {410, 0, 30, 30}, {0, 40, 110, 40}}), 80.0));
        // An exact fit, a pixel too wide, a row as high as its highest, wider than the row.
        QCOMPARE(flowed({{225, 40}, {225, 40}}), std::pair(Places({{0, 0, 225, 40}, {235, 0, 225, 40}}), 40.0));
        QCOMPARE(flowed({{225, 40}, {226, 40}}), std::pair(Places({{0, 0, 225, 40}, {0, 50, 226, 40}}), 90.0));
        QCOMPARE(flowed({{100, 30}, {100, 60}, {400, 20}, {400, 20}}),
                 std::pair(Places({{0, 0, 100, 30}, {110, 0, 100, 60}, {0, 70, 400, 20}, {0, 100, 400, 20}}), 120.0));
        QCOMPARE(flowed({{100, 40}, {18020, 40}, {100, 40}}),
                 std::pair(Places({{0, 0, 100, 40}, {0, 50, 460, 40}, {0, 100, 100, 40}}), 140.0));
    }

    void tapsReachTheContentDragsPan_data() { addFingerKinds(); }
    void tapsReachTheContentDragsPan()
    {
        QFETCH(Finger::Kind, kind);
        Stage stage(kind);
        Panel panel(stage, 30);
        stage.finger.press(onThirdRow);
        QVERIFY(panel.buttons.at(6)->isDown());
        stage.finger.move(onThirdRow + QPointF(3, 3));
        stage.finger.release();
        QCOMPARE(panel.clicks, QVector<int>{6});
        QCOMPARE(panel.viewport->position(), 0.0);

        const QPointF onClippedRow(80, place.bottom() + 5);
        stage.finger.tap(onClippedRow);
        QCOMPARE(panel.clicks.size(), 1);

        const auto *bar = only<MPositionBar>(panel.viewport->childItems()).first();
        const qreal barTop = bar->boundingRect().top();
        stage.finger.press(onThirdRow);
        stage.finger.move(onThirdRow - QPointF(0, 15));
        QVERIFY(!panel.buttons.at(6)->isDown());
        // Back on the button that was pressed: the finger pans, whatever lies under it.
        stage.dragSlowly(onThirdRow, onFirstRow);
        // The content follows with the scroller's next frame.
        QTRY_VERIFY2(panel.viewport->position() > 60, qPrintable(QString::number(panel.viewport->position())));
        QVERIFY(panel.viewport->position() <= 100);
        QVERIFY(bar->isVisible() && bar->boundingRect().top() > barTop);
        stage.finger.release();
        QCOMPARE(panel.clicks.size(), 1);
        QVERIFY(!stage.window.scene()->mouseGrabberItem());

        // From an empty place at the end of a row too.
        QScroller::scroller(panel.viewport)->stop();
        panel.viewport->setPosition(0);
        stage.dragSlowly(QPointF(468, 180), QPointF(468, 100));
        QTRY_VERIFY(panel.viewport->position() > 0);
        stage.finger.release();
    }

    void aFlickGoesOnAndATapStopsIt_data() { addFingerKinds(); }
    void aFlickGoesOnAndATapStopsIt()
    {
        QFETCH(Finger::Kind, kind);
        Stage stage(kind);
        Panel panel(stage, 300);
        stage.flick(onThirdRow, onFirstRow);
        const qreal atRelease = panel.viewport->position();
        QTRY_VERIFY(panel.viewport->position() > atRelease + 50);
        stage.finger.tap(onFirstRow);
        const qreal stopped = panel.viewport->position();
        QVERIFY(panel.clicks.isEmpty());
        QTRY_COMPARE(QScroller::scroller(panel.viewport)->state(), QScroller::Inactive);
        stage.flick(onThirdRow, onFirstRow);
        panel.viewport->setPosition(stopped);
        QCOMPARE(QScroller::scroller(panel.viewport)->state(), QScroller::Inactive);
        QVERIFY(qAbs(panel.viewport->position() - stopped) < 5);
        const auto inView = std::find_if(panel.buttons.begin(), panel.buttons.end(),
                                         [](MButton *button) { return place.contains(button->sceneBoundingRect()); });
        stage.finger.tap(*inView);
        QCOMPARE(panel.clicks, QVector<int>{int(inView - panel.buttons.begin())});
    }

    void shortContentStays()
    {
        Stage stage;
        Panel panel(stage, 3);
        stage.dragSlowly(onFirstRow, onFirstRow + QPointF(0, 60));
        QCOMPARE(panel.viewport->widget()->y(), 0.0);
        stage.finger.release();
        QVERIFY(panel.clicks.isEmpty());
        stage.finger.tap(onFirstRow);
        QCOMPARE(panel.clicks, QVector<int>{0});
        QVERIFY(!stage.finger.wheel(onFirstRow, -1));
    }

    void theWheelPans()
    {
        Stage stage;
        Panel panel(stage, 30);
        stage.finger.wheel(onFirstRow, -1);
        QVERIFY(panel.viewport->position() > 20);
        stage.finger.wheel(onFirstRow, -100);
        QCOMPARE(panel.viewport->position(), panel.contentHeight() - 170);
        stage.finger.wheel(onFirstRow, 100);
        QCOMPARE(panel.viewport->position(), 0.0);
    }

    void tabBringsIntoView()
    {
        Stage stage;
        Panel panel(stage, 30);
        for (int i = 0; i < 59; ++i) {
            QTest::keyClick(&stage.window, i < 30 ? Qt::Key_Tab : Qt::Key_Backtab);
            const MButton *button = panel.buttons.at(i < 30 ? i : 58 - i);
            QVERIFY2(button->hasFocus() && place.contains(button->sceneBoundingRect()), qPrintable(button->text()));
        }
    }

    void contentMayGrowAndShrinkAnyTime()
    {
        Stage stage;
        Panel panel(stage, 30);
        panel.viewport->setPosition(50);
        panel.add(QSizeF(145, 40));
        panel.settle();
        QCOMPARE(panel.viewport->position(), 50.0);
        panel.viewport->setPosition(1e9);
        QCOMPARE(panel.viewport->position(), panel.contentHeight() - 170);
        stage.dragSlowly(onFirstRow, onThirdRow);
        for (int i = 3; i < 30; ++i)
            delete panel.buttons.at(i);
        panel.settle();
        stage.finger.release();
        QTRY_COMPARE(QScroller::scroller(panel.viewport)->state(), QScroller::Inactive);
        QCOMPARE(panel.viewport->widget()->y(), 0.0);

        panel.viewport->setWidget(nullptr);
        stage.dragSlowly(onFirstRow, onThirdRow);
        stage.finger.release();
    }

    void aClickMayDeleteItsButton()
    {
        Stage stage;
        Panel panel(stage, 5);
        for (MButton *button : panel.buttons)
            connect(button, &MButton::clicked, button, [button] { delete button; });
        for (int i = 0; i < 5; ++i) {
            stage.finger.tap(onFirstRow);
            panel.settle();
            QVERIFY(!panel.buttons.at(i));
        }
        QCOMPARE(panel.contentHeight(), 0.0);
    }
};

QTEST_MAIN(PannableViewportTest)
#include "tst_pannableviewport.moc"
