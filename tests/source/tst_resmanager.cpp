#include "globaldefine.h"
#include "resmanager.h"

#include <QImageReader>
#include <QtTest>

/// The compiled-in images and their cache.
class tst_ResManager : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { ResManager::deleteInstance(); }
    void imageOfEachId();
    void idOutOfRangeIsNull_data();
    void idOutOfRangeIsNull();
    void imageIsDecodedOnce();
    void cacheSaysGoodbyeOnceAndComesBack();
};

void tst_ResManager::imageOfEachId()
{
    for (int id = 0; id < K_IMAGE_COUNT; ++id) {
        const QImage *image = ResManager::getInstance()->loadImage(id);
        QVERIFY(image);
        // The gap among the names is part of the design.
        QCOMPARE(image->isNull(), id == 21);
    }
    // Ids that the chrome passes as numbers, one from each end of the sorted names and those added behind them.
    QCOMPARE(ResManager::getInstance()->loadImage(0)->size(), QSize(31, 30));
    QCOMPARE(ResManager::getInstance()->loadImage(24)->size(), QSize(76, 70));
    QCOMPARE(ResManager::getInstance()->loadImage(27)->size(), QSize(76, 70));
    QCOMPARE(ResManager::getInstance()->loadImage(29)->size(), QSize(80, 35));
}

void tst_ResManager::idOutOfRangeIsNull_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("one too many") << 30;
    QTest::newRow("negative") << -1;
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
}

void tst_ResManager::idOutOfRangeIsNull()
{
    QFETCH(int, id);
    QVERIFY(!ResManager::getInstance()->loadImage(id));
}

void tst_ResManager::imageIsDecodedOnce()
{
    for (const int id : {13, 21})
        QCOMPARE(ResManager::getInstance()->loadImage(id), ResManager::getInstance()->loadImage(id));
}

void tst_ResManager::cacheSaysGoodbyeOnceAndComesBack()
{
    ResManager::getInstance()->loadImage(13);
    QTest::ignoreMessage(QtDebugMsg, "call destructor of resmanager");
    ResManager::deleteInstance();
    ResManager::deleteInstance();
    QVERIFY(!ResManager::getInstance()->loadImage(13)->isNull());
}

QTEST_GUILESS_MAIN(tst_ResManager)
#include "tst_resmanager.moc"
