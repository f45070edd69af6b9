#include "globaldefine.h"
#include "resmanager.h"

#include <QtTest>

/// The compiled-in images and their cache.
class tst_ResManager : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { ResManager::deleteInstance(); }
    void everyIdHasAnImageObject();
    void idOutOfRangeIsNull_data();
    void idOutOfRangeIsNull();
    void imageIsDecodedOnce();
    void cacheSaysGoodbyeOnceAndComesBack();
};

void tst_ResManager::everyIdHasAnImageObject()
{
    for (int id = 0; id < K_IMAGE_COUNT; ++id) {
        const QImage *image = ResManager::getInstance()->loadImage(id);
        QVERIFY(image);
        // The gap among the names is part of the design.
        QCOMPARE(image->isNull(), id == 21);
    }
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
