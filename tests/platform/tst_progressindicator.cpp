#include "mprogressindicator.h"
#include "stage.h"

class ProgressIndicatorTest : public QObject {
    Q_OBJECT

private slots:
    void turnsWhileItIsSeen();
    void restsWhileNobodyLooks();
    void readsOnAnyBackground_data();
    void readsOnAnyBackground();
    void letsTapsThrough();
};

namespace {
const QRectF place(190, 320, 80, 80);
}

void ProgressIndicatorTest::turnsWhileItIsSeen()
{
    Stage stage;
    auto *spinner = new MProgressIndicator;
    spinner->setUnknownDuration(true);
    QVERIFY(!spinner->isSpinning());
    stage.put(spinner, place);
    QVERIFY(spinner->isSpinning());
    const QImage before = stage.picture(spinner);
    QTRY_VERIFY(stage.picture(spinner) != before);

    spinner->hide();
    QVERIFY(!spinner->isSpinning());
    spinner->show();
    QVERIFY(spinner->isSpinning());
    stage.page.hide();
    QVERIFY(!spinner->isSpinning());
    stage.page.show();
    spinner->setUnknownDuration(false);
    QVERIFY(!spinner->isSpinning());
}

void ProgressIndicatorTest::restsWhileNobodyLooks()
{
    Stage stage;
    auto *spinner = new MProgressIndicator;
    spinner->setUnknownDuration(true);
    stage.put(spinner, place);
    stage.window.hide();
    QTRY_VERIFY(!spinner->isSpinning());
    stage.window.show();
    QTRY_VERIFY(spinner->isSpinning());
}

void ProgressIndicatorTest::readsOnAnyBackground_data()
{
    QTest::addColumn<QColor>("background");
    QTest::newRow("black") << QColor(Qt::black);
    QTest::newRow("white") << QColor(Qt::white);
    QTest::newRow("red") << QColor(200, 60, 40);
}

void ProgressIndicatorTest::readsOnAnyBackground()
{
    QFETCH(QColor, background);
    Stage stage;
    stage.window.setBackgroundBrush(background);
    auto *spinner = new MProgressIndicator;
    stage.put(spinner, place);
    const QImage picture = stage.picture(spinner);
    int brightest = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 10; x < picture.width() - 10; ++x)
            brightest = qMax(brightest, qGray(picture.pixel(x, y)));
    }
    // The head of the dots against the plate in the middle.
    QVERIFY(brightest - qGray(picture.pixel(40, 40)) > 120);
}

void ProgressIndicatorTest::letsTapsThrough()
{
    Stage stage;
    auto *spinner = new MProgressIndicator;
    stage.put(spinner, place);
    stage.finger.press(place.center());
    QVERIFY(stage.window.scene()->mouseGrabberItem() != spinner);
    stage.finger.release();
}

QTEST_MAIN(ProgressIndicatorTest)
#include "tst_progressindicator.moc"
