#include "finger.h"
#include "mapplicationpage.h"
#include "mapplicationwindow.h"

#include <QKeyEvent>
#include <QTest>

namespace {

class KeyCounter : public MApplicationPage {
public:
    QString typed;

protected:
    void keyPressEvent(QKeyEvent *event) override { typed += event->text(); }
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
        QCOMPARE(window.currentPage(), nullptr);
        QTest::keyClicks(&window, QStringLiteral("lost"));
        KeyCounter below;
        KeyCounter above;
        below.appear(&window);
        above.appear(&window);
        QCOMPARE(window.currentPage(), &above);
        QTest::keyClicks(&window, QStringLiteral("up"));
        above.disappear();
        QCOMPARE(window.currentPage(), &below);
        QTest::keyClicks(&window, QStringLiteral("down"));
        QCOMPARE(above.typed, QStringLiteral("up"));
        QCOMPARE(below.typed, QStringLiteral("down"));
    }
};

QTEST_MAIN(WindowTest)
#include "tst_mapplicationwindow.moc"
