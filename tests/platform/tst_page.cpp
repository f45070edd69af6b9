#include "mapplicationpage.h"
#include "mapplicationwindow.h"

#include <QGestureEvent>
#include <QGraphicsSceneMouseEvent>
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

class Child : public QGraphicsWidget {
public:
    QVector<QEvent::Type> mouse;

    explicit Child(QGraphicsItem *parent)
        : QGraphicsWidget(parent)
    {
        setGeometry(100, 100, 200, 300);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override { mouse.append(event->type()); }
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override { mouse.append(event->type()); }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override { mouse.append(event->type()); }
};

} // namespace

class PageTest : public QObject {
    Q_OBJECT

    MApplicationWindow *m_window = nullptr;
    SwallowingPage *m_page = nullptr;

    QPoint onScreen(const QPointF &scenePosition) const { return m_window->mapFromScene(scenePosition); }

    void mouse(const QVector<QPointF> &path)
    {
        QWidget *viewport = m_window->viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, onScreen(path.first()));
        for (const QPointF &position : path.mid(1)) {
            QMouseEvent move(QEvent::MouseMove, onScreen(position), viewport->mapToGlobal(onScreen(position)),
                             Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(viewport, &move);
        }
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, onScreen(path.last()));
    }

private slots:
    void init()
    {
        m_window = new MApplicationWindow;
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

    void fillsTheWindow()
    {
        QCOMPARE(m_page->geometry(), QRectF(0, 0, 480, 814));
        QCOMPARE(m_page->centralWidget()->geometry(), QRectF(0, 0, 480, 814));
        QCOMPARE(m_window->currentPage(), m_page);
    }

    void dragOverAChildIsAGestureOfThePageToo()
    {
        Child child(m_page->centralWidget());
        mouse({{200, 200}, {200, 220}, {200, 260}, {200, 300}});
        QCOMPARE(child.mouse.size(), 5);
        QVERIFY(m_page->gestures.contains({Qt::PanGesture, Qt::GestureStarted}));
        m_page->gestures.clear();
        mouse({{200, 200}});
        QVERIFY(m_page->gestures.contains({Qt::TapGesture, Qt::GestureFinished}));
    }

    void keyReleaseReachesThePage()
    {
        Child child(m_page->centralWidget());
        m_page->events.clear();
        QTest::keyClick(m_window, Qt::Key_Return);
        QVERIFY(m_page->events.contains(QEvent::KeyRelease));
        child.setFocus();
        m_page->events.clear();
        QTest::keyClick(m_window, Qt::Key_Return);
        QVERIFY(m_page->events.contains(QEvent::KeyRelease));
    }
};

QTEST_MAIN(PageTest)
#include "tst_page.moc"
