// SPDX-License-Identifier: MIT
#include "finger.h"
#include "myqwebview.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QWebFrame>

#include <memory>

namespace {

const QPoint startPosition(400, 1000);

// A page larger than the view on both axes that writes down what reaches it. The fling tests need the room.
const char largePage[] = R"(<html><body style="margin:0; width:1500px; height:9000px">
<textarea id="inner" rows="4" style="position:absolute; left:800px; top:1100px"></textarea>
<p style="position:absolute; left:400px; top:1200px; font-size:40px">word word word word word word word word</p>
<script>
var seen = [];
['mousedown', 'mouseup', 'click', 'dblclick', 'contextmenu', 'touchstart'].forEach(function(name) {
    document.addEventListener(name, function() { seen.push(name); }, true);
});
document.getElementById('inner').value = new Array(50).join('line\n');
</script></body></html>)";

// Qt WebEngine would make taps and scrolling of its own of touches, so there they reach the page as a mouse's only.
constexpr bool hearsTouches = QT_VERSION < QT_VERSION_CHECK(6, 0, 0);

QString seenOfTouches(const char *events)
{
    QStringList seen = QString::fromLatin1(events).split(QLatin1Char(' '));
    if (!hearsTouches)
        seen.removeAll("touchstart"_s);
    return seen.join(QLatin1Char(' '));
}

} // namespace

/// The web view under a finger: positions are those of the view, in pixels.
class tst_WebView : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_window = std::make_unique<QGraphicsView>();
        m_finger = std::make_unique<Finger>(m_window.get());
        m_window->setFrameShape(QFrame::NoFrame);
        m_window->resize(480, 664);
        m_window->viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
        auto *scene = new QGraphicsScene(0, 0, 480, 664, m_window.get());
        m_window->setScene(scene);
        m_view = new MyQWebView;
        m_view->settings()->setAttribute(QWebSettings::TiledBackingStoreEnabled, true);
        m_view->settings()->setAttribute(QWebSettings::FrameFlatteningEnabled, true);
        scene->addItem(m_view);
        m_view->setGeometry(QRectF(0, 0, 480, 664));
        m_timer = m_view->findChild<QTimer *>();
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QSignalSpy loaded(m_view, &QGraphicsWebView::loadFinished);
        m_view->setHtml(QString::fromLatin1(largePage));
        QTRY_COMPARE(loaded.count(), 1);
        frame()->setScrollPosition(startPosition);
        QCOMPARE(moved(), QPoint());
    }

    void cleanup() { m_window.reset(); }

    void tapReachesThePage()
    {
        for (const auto &[editable, seen] : {std::pair(false, ""), {true, "mousedown mouseup click"}}) {
            m_view->setEditable(editable);
            drag({{100, 100}, {129, 71}});
            QTRY_COMPARE(seenByThePage(), QLatin1String(seen));
            QCOMPARE(moved(), QPoint());
            QVERIFY(!m_timer->isActive());
        }
    }

    void dragStartsAtThirtyPixels()
    {
        for (const auto &[step, moves] : {std::pair(QPoint(29, 29), false),
                                          {{-29, -29}, false},
                                          {{30, 0}, true},
                                          {{-30, 0}, true},
                                          {{5, -30}, true}}) {
            frame()->setScrollPosition(startPosition);
            m_finger->press({200, 200});
            m_finger->move(QPoint(200, 200) + step);
            QCOMPARE(moved(), moves ? step : QPoint());
            m_finger->release();
            m_timer->stop();
        }
    }

    void dragIsNoTapAndSelectsNothing()
    {
        // Across the words, and then the mouse goes on without a button: the page never saw the release.
        drag({{60, 260}, {100, 262}, {220, 264}});
        m_timer->stop();
        QTest::mouseMove(m_window->viewport(), QPoint(300, 250));
        QTest::mouseMove(m_window->viewport(), QPoint(100, 245));
        QTRY_COMPARE(seenByThePage(), "mousedown"_s);
        QCOMPARE(m_view->page()->selectedText(), QString());
    }

    void quickTapsAreTwoTaps()
    {
        drag({{60, 240}});
        m_finger->pressAgain({60, 241});
        m_finger->release();
        QTRY_COMPARE(seenByThePage(), "mousedown mouseup click mousedown mouseup click"_s);
        QCOMPARE(m_view->page()->selectedText(), QString());

        // A drag that begins as the second tap is measured from that tap.
        m_finger->pressAgain({160, 340});
        m_finger->move({160, 369});
        QCOMPARE(moved(), QPoint());
    }

    void tapAfterAnInterruptedDrag()
    {
        m_finger->press({200, 200});
        m_finger->move({200, 240});
        m_view->hide();
        m_view->show();
        // An engine may hear no taps before it has drawn the page again.
        script("var drawn = false; requestAnimationFrame(() => requestAnimationFrame(() => drawn = true))");
        QTRY_VERIFY(script("drawn").toBool());
        drag({{100, 100}});
        QTRY_COMPARE(seenByThePage(), "mousedown mousedown mouseup click"_s);
    }

    void flingSlowsDown_data() { addFingerKinds(); }
    void flingSlowsDown()
    {
        QFETCH(Finger::Kind, kind);
        Finger finger(m_window.get(), kind);
        finger.press({200, 200});
        finger.move({229, 229});
        QCOMPARE(moved(), QPoint());
        // Smoothed: 3 * 30 / 4 = 22, then 3 * (22 - 8) / 4 = 10.
        finger.move({230, 230});
        finger.move({222, 222});
        QCOMPARE(moved(), QPoint(22, 22));
        finger.release();
        QVERIFY(m_timer->isActive());
        QCOMPARE(m_timer->interval(), 50);
        m_finger->press({200, 300}); // deliberately does not stop it
        QCOMPARE(coast(), QVector<int>({8, 6, 4, 3, 2, 1, 0}));
        QCOMPARE(moved(), QPoint(46, 46));
        QTRY_COMPARE(seenByThePage(),
                     kind == Finger::Mouse ? "mousedown mousedown"_s : seenOfTouches("touchstart mousedown mousedown"));
    }

    void flingEndsAfterTwentyTicksAlsoWhenTakenOver()
    {
        int ticks = 0;
        const auto connection = connect(m_timer, &QTimer::timeout, this, [&] {
            if (++ticks == 5)
                drag({{200, 600}, {200, 100}});
        });
        drag({{200, 600}, {200, 100}}); // smoothed: -375
        const QVector<int> steps = coast();
        disconnect(connection);
        QCOMPARE(steps.size(), 20);
        QCOMPARE(steps.mid(0, 4), QVector<int>({-300, -240, -192, -153}));
        QCOMPARE(steps.at(5), steps.at(0));
        QVERIFY(steps.last() < 0);
    }

    void contextMenuNeverOpens()
    {
        QWidget *viewport = m_window->viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(100, 100), viewport->mapToGlobal(QPoint(100, 100)));
        QApplication::sendEvent(viewport, &event);
        QVERIFY(event.isAccepted());
        QCOMPARE(seenByThePage(), QString());
        QVERIFY(!QApplication::activePopupWidget());
    }

    void wheelScrolls()
    {
        QVERIFY(m_finger->wheel({100, 100}, -1));
        const int notch = moved().y();
        QVERIFY(notch < 0);
        QVERIFY(m_finger->wheel({100, 100}, 1));
        QCOMPARE(moved(), QPoint());
        // A touch pad sends small parts of a notch.
        QVERIFY(m_finger->wheel({100, 100}, -0.25));
        QCOMPARE(moved().y(), notch / 4);
        // What is inside the page scrolls first.
        frame()->setScrollPosition(startPosition);
        QVERIFY(m_finger->wheel({430, 120}, -1));
        QVERIFY(script("document.getElementById('inner').scrollTop").toInt() > 0);
        QCOMPARE(moved(), QPoint());
    }

    void keysScroll()
    {
        m_view->setFocus();
        for (const auto &[key, expected] : {std::pair(Qt::Key_Down, 1040),
                                            {Qt::Key_Up, 960},
                                            {Qt::Key_PageDown, 1624},
                                            {Qt::Key_PageUp, 376},
                                            {Qt::Key_Home, 0},
                                            {Qt::Key_End, 9000 - 664}}) {
            frame()->setScrollPosition(startPosition);
            QTest::keyClick(m_window->viewport(), key);
            QCOMPARE(frame()->scrollPosition(), QPoint(startPosition.x(), expected));
            // A bar at the edge shows the place.
            const int middle = 664 * (expected + 332) / 9000;
            const auto colour = [this](int y) { return m_window->grab().toImage().pixel(476, y); };
            QTRY_VERIFY(colour(middle) != colour((middle + 332) % 664));
        }
    }

    void keysServeTheFocusedFieldFirst()
    {
        m_view->setFocus();
        script("var field = document.getElementById('inner'); field.focus(); field.setSelectionRange(0, 0)");
        const QPoint before = frame()->scrollPosition();
        QTest::keyClick(m_window->viewport(), Qt::Key_Down);
        QTest::keyClick(m_window->viewport(), Qt::Key_Space);
        QTRY_COMPARE(script("field.value.substr(0, 11)").toString(), "line\n line\n"_s);
        QCOMPARE(frame()->scrollPosition(), before);
    }

    void fingerTapsAlways()
    {
        const QString tap = seenOfTouches("touchstart mousedown mouseup click");
        for (const QString &expected : {tap, tap + QLatin1Char(' ') + tap}) {
            drag({{60, 240}}, Finger::Touch);
            QTRY_COMPARE(seenByThePage(), expected);
        }
        QCOMPARE(m_view->page()->selectedText(), QString());
        m_view->setEditable(false);
        script("seen = []");
        drag({{60, 240}}, Finger::Touch);
        QCOMPARE(seenByThePage(), QString());
    }

    void secondFingerIsIgnored()
    {
        QWidget *viewport = m_window->viewport();
        const auto touch = [viewport] { return QTest::touchEvent(viewport, Finger::device()); };
        touch().press(3, QPoint(200, 200), viewport);
        touch().stationary(3).press(5, QPoint(50, 50), viewport);
        touch().stationary(3).move(5, QPoint(50, 350), viewport);
        QCOMPARE(moved(), QPoint());
        touch().move(3, QPoint(200, 240), viewport).stationary(5);
        QCOMPARE(moved(), QPoint(0, 40));
        touch().release(3, QPoint(200, 240), viewport).stationary(5);
        m_timer->stop();
        touch().move(5, QPoint(50, 50), viewport);
        touch().release(5, QPoint(50, 50), viewport);
        QCOMPARE(moved(), QPoint(0, 40));
        QTRY_COMPARE(seenByThePage(), seenOfTouches("touchstart mousedown touchstart"));
    }

    void scriptMayKeepTheTouch()
    {
        if (!hearsTouches)
            QSKIP("Pages hear of touches only what they do as a mouse");
        script("document.addEventListener('touchstart', function(event) { event.preventDefault(); }, true)");
        drag({{200, 200}, {200, 260}}, Finger::Touch);
        QTRY_COMPARE(seenByThePage(), seenOfTouches("touchstart"));
        QCOMPARE(moved(), QPoint());
    }

    void touchTakenAwayEndsTheDrag()
    {
        Finger finger(m_window.get(), Finger::Touch);
        finger.press({200, 200});
        finger.move({200, 260});
        QTouchEvent cancel(QEvent::TouchCancel, Finger::device());
        QApplication::sendEvent(m_window->viewport(), &cancel);
        script("seen = []");
        drag({{60, 240}}, Finger::Touch);
        QTRY_COMPARE(seenByThePage(), seenOfTouches("touchstart mousedown mouseup click"));
    }

private:
    /// Presses at the first of @p positions, moves to each of the others and releases.
    void drag(const QVector<QPoint> &positions, Finger::Kind kind = Finger::Mouse)
    {
        Finger finger(m_window.get(), kind);
        finger.press(positions.first());
        for (const QPoint &position : positions.mid(1))
            finger.move(position);
        finger.release();
    }

    QWebFrame *frame() const { return m_view->page()->mainFrame(); }
    /// How far the content has moved, as the finger sees it.
    QPoint moved() const { return startPosition - frame()->scrollPosition(); }
    QVariant script(const char *source) { return frame()->evaluateJavaScript(QString::fromLatin1(source)); }
    QString seenByThePage() { return script("seen.join(' ')").toString(); }
    /// Lets the page coast to its end and returns the vertical movement of each tick.
    QVector<int> coast()
    {
        QVector<int> steps;
        int last = moved().y();
        const auto connection = connect(m_timer, &QTimer::timeout, this, [&] {
            steps << moved().y() - last;
            last = moved().y();
        });
        [&] { QTRY_VERIFY(!m_timer->isActive()); }();
        disconnect(connection);
        return steps;
    }

    std::unique_ptr<QGraphicsView> m_window;
    std::unique_ptr<Finger> m_finger;
    MyQWebView *m_view = nullptr;
    QTimer *m_timer = nullptr;
};

QTEST_MAIN(tst_WebView)
#include "tst_webview.moc"
