// SPDX-License-Identifier: MIT
#include "mbutton.h"
#include "mtextedit.h"
#include "stage.h"

#include <QGestureEvent>

namespace {

/// A page that swallows every event sent to it, as an application's page may.
class SwallowingPage : public MApplicationPage {
public:
    QVector<QPair<Qt::GestureType, Qt::GestureState>> gestures;
    QVector<QEvent::Type> events;

    bool event(QEvent *event) override
    {
        events.append(event->type());
        return true;
    }

protected:
    void gestureEvent(QGestureEvent *event) override
    {
        for (QGesture *gesture : event->gestures())
            gestures.append({gesture->gestureType(), gesture->state()});
        MApplicationPage::gestureEvent(event);
    }
};

/// Something on the page that uses presses and moves for itself, like a web view.
class Child : public QGraphicsWidget {
public:
    QVector<QEvent::Type> heard;

    Child(QGraphicsItem *parent, bool takesTouch)
        : QGraphicsWidget(parent)
    {
        setGeometry(100, 100, 200, 300);
        setFocusPolicy(Qt::StrongFocus);
        setAcceptTouchEvents(takesTouch);
    }

protected:
    bool event(QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::GraphicsSceneMousePress:
        case QEvent::GraphicsSceneMouseMove:
        case QEvent::GraphicsSceneMouseRelease:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
            heard.append(event->type());
            return true;
        default:
            return QGraphicsWidget::event(event);
        }
    }
};

const QVector<QEvent::Type> mouseDrag = {QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseMove,
                                         QEvent::GraphicsSceneMouseMove, QEvent::GraphicsSceneMouseRelease};
const QVector<QEvent::Type> touchDrag
    = {QEvent::TouchBegin, QEvent::TouchUpdate, QEvent::TouchUpdate, QEvent::TouchEnd};

} // namespace

class PageTest : public QObject {
    Q_OBJECT

private slots:
    void dragAndTapOnAChildAreGesturesOfThePageToo()
    {
        for (const auto &[kind, childTakesTouch, heardByChild] : {std::tuple(Finger::Mouse, false, mouseDrag),
                                                                  {Finger::Touch, false, mouseDrag},
                                                                  {Finger::Touch, true, touchDrag}}) {
            StageWith<SwallowingPage> stage(kind);
            Child child(stage.page.centralWidget(), childTakesTouch);
            stage.finger.press({200, 200});
            stage.finger.move({200, 250});
            QVERIFY(stage.page.gestures.contains({Qt::PanGesture, Qt::GestureStarted}));
            stage.finger.move({200, 300});
            QVERIFY(!stage.page.gestures.contains({Qt::PanGesture, Qt::GestureFinished}));
            stage.finger.release();
            QCOMPARE(child.heard, heardByChild);
            QVERIFY(stage.page.gestures.contains({Qt::PanGesture, Qt::GestureFinished}));
            QVERIFY(!stage.page.gestures.contains({Qt::TapGesture, Qt::GestureFinished}));

            stage.page.gestures.clear();
            stage.finger.tap({200, 200});
            QVERIFY(stage.page.gestures.contains({Qt::TapGesture, Qt::GestureFinished}));
            QVERIFY(!stage.page.gestures.contains({Qt::PanGesture, Qt::GestureStarted}));
        }
    }

    void keysReachWhoHasTheFocusAndReturnThePageToo()
    {
        StageWith<SwallowingPage> stage;
        Child child(stage.page.centralWidget(), false);
        MTextEdit field(MTextEditModel::SingleLine, QString(), stage.page.centralWidget());
        field.setGeometry(QRectF(0, 500, 400, 60));
        const auto typeReturn = [&stage] {
            stage.page.events.clear();
            QTest::keyClick(&stage.window, Qt::Key_Return);
            return stage.page.events.count(QEvent::KeyRelease);
        };
        QCOMPARE(typeReturn(), 1);
        for (const QPointF onChildThenField : {QPointF(200, 200), QPointF(200, 530)}) {
            stage.finger.tap(onChildThenField);
            QVERIFY(stage.window.scene()->focusItem());
            QCOMPARE(typeReturn(), 1);
        }
        MButton button("Button"_s, stage.page.centralWidget());
        button.setFocus();
        QCOMPARE(typeReturn(), 1);
        field.setFocus();
        // A tap on bare ground leaves the cursor in the field.
        stage.finger.tap({400, 300});
        QTest::keyClicks(&stage.window, "on"_s);
        QCOMPARE(field.text(), "on"_s);
    }
};

QTEST_MAIN(PageTest)
#include "tst_mapplicationpage.moc"
