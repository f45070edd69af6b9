// SPDX-License-Identifier: MIT
#include "mprogressindicator.h"
#include "stage.h"

class ProgressIndicatorTest : public QObject {
    Q_OBJECT

private slots:
    void turnsOnlyWhileItIsSeen()
    {
        Stage stage;
        auto *spinner = new MProgressIndicator;
        spinner->setUnknownDuration(true);
        QVERIFY(!spinner->isSpinning());
        stage.put(spinner, place);
        QVERIFY(spinner->isSpinning());
        const QImage before = stage.picture(spinner);
        QTRY_VERIFY(stage.picture(spinner) != before);

        stage.page.hide();
        QVERIFY(!spinner->isSpinning());
        stage.page.show();
        QVERIFY(spinner->isSpinning());
        stage.window.hide();
        QTRY_VERIFY(!spinner->isSpinning());
        stage.window.show();
        QTRY_VERIFY(spinner->isSpinning());
        spinner->setUnknownDuration(false);
        QVERIFY(!spinner->isSpinning());
    }

    void letsTapsThrough()
    {
        Stage stage;
        auto *spinner = new MProgressIndicator;
        stage.put(spinner, place);
        stage.finger.press(place.center());
        QVERIFY(stage.window.scene()->mouseGrabberItem() != spinner);
        stage.finger.release();
    }

private:
    const QRectF place{190, 320, 80, 80};
};

QTEST_MAIN(ProgressIndicatorTest)
#include "tst_progressindicator.moc"
