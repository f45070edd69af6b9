// SPDX-License-Identifier: MIT
#include "finger.h"
#include "mapplicationpage.h"
#include "mapplicationwindow.h"
#include "mbutton.h"
#include "mtextedit.h"

#include <QGestureEvent>
#include <QSignalSpy>
#include <QTest>

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

    MApplicationWindow *m_window = nullptr;
    SwallowingPage *m_page = nullptr;

private slots:
    void init()
    {
        m_window = new MApplicationWindow;
        m_window->resize(240, 407);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
        m_page = new SwallowingPage;
        m_page->appear(m_window, MSceneWindow::KeepWhenDone);
    }

    void cleanup()
    {
        delete m_page;
        delete m_window;
    }

    void dragAndTapOnAChildAreGesturesOfThePageToo_data()
    {
        QTest::addColumn<Finger::Kind>("kind");
        QTest::addColumn<bool>("childTakesTouch");
        QTest::addColumn<QVector<QEvent::Type>>("heardByChild");
        QTest::newRow("mouse") << Finger::Mouse << false << mouseDrag;
        QTest::newRow("finger") << Finger::Touch << false << mouseDrag;
        QTest::newRow("finger on a child that takes touch") << Finger::Touch << true << touchDrag;
    }

    void dragAndTapOnAChildAreGesturesOfThePageToo()
    {
        QFETCH(Finger::Kind, kind);
        QFETCH(bool, childTakesTouch);
        QFETCH(QVector<QEvent::Type>, heardByChild);
        Child child(m_page->centralWidget(), childTakesTouch);
        Finger finger(m_window, kind);

        finger.drag({200, 200}, {200, 300}, 2);
        QCOMPARE(child.heard, heardByChild);
        QVERIFY(m_page->gestures.contains({Qt::PanGesture, Qt::GestureStarted}));
        QVERIFY(!m_page->gestures.contains({Qt::TapGesture, Qt::GestureFinished}));

        m_page->gestures.clear();
        finger.tap({200, 200});
        QVERIFY(m_page->gestures.contains({Qt::TapGesture, Qt::GestureFinished}));
        QVERIFY(!m_page->gestures.contains({Qt::PanGesture, Qt::GestureStarted}));
    }

    void returnReachesThePageWhoeverHasTheFocus_data()
    {
        QTest::addColumn<QString>("focus");
        QTest::newRow("nobody") << QString();
        QTest::newRow("a widget") << QStringLiteral("widget");
        QTest::newRow("a text field") << QStringLiteral("field");
    }

    void returnReachesThePageWhoeverHasTheFocus()
    {
        QFETCH(QString, focus);
        Child child(m_page->centralWidget(), false);
        MTextEdit field(MTextEditModel::SingleLine, QString(), m_page->centralWidget());
        field.setGeometry(QRectF(0, 500, 400, 60));
        if (focus == QLatin1String("widget"))
            Finger(m_window).tap({200, 200});
        if (focus == QLatin1String("field"))
            Finger(m_window).tap({200, 530});
        QCOMPARE(m_window->scene()->focusItem() != nullptr, !focus.isEmpty());
        m_page->events.clear();
        QTest::keyClick(m_window, Qt::Key_Return);
        QCOMPARE(m_page->events.count(QEvent::KeyRelease), 1);
    }

    void tapOnBareGroundLeavesTheCursorInTheField()
    {
        MTextEdit field(MTextEditModel::SingleLine, QString(), m_page->centralWidget());
        field.setGeometry(QRectF(0, 500, 400, 60));
        Finger(m_window).tap({200, 530});
        Finger(m_window).tap({200, 300});
        QTest::keyClicks(m_window, QStringLiteral("on"));
        QCOMPARE(field.text(), QStringLiteral("on"));
    }
};

QTEST_MAIN(PageTest)
#include "tst_mapplicationpage.moc"
