// SPDX-License-Identifier: MIT
#include "globaldefine.h"
#include "resmanager.h"

#include <limits>
#include <QDir>
#include <QImage>
#include <QtTest>

/// The compiled-in images: what the image ids lead to, and their cache.
class ImagesTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { ResManager::deleteInstance(); }

    void everyIdLeadsToItsFile()
    {
        for (int id = 0; id < K_IMAGE_COUNT; ++id) {
            const QImage *image = ResManager::getInstance()->loadImage(id);
            QVERIFY(image);
            QVERIFY2(image->isNull() == (id == LoadingImage), k_imgName[id]);
            QCOMPARE(ResManager::getInstance()->loadFineImage(id)->size(), 2 * image->size());
            // Decoded once, or found missing once.
            QCOMPARE(ResManager::getInstance()->loadImage(id), image);
        }
        for (const int id : {-1, K_IMAGE_COUNT, std::numeric_limits<int>::min()})
            QVERIFY(!ResManager::getInstance()->loadImage(id) && !ResManager::getInstance()->loadFineImage(id));
        QCOMPARE(QDir(QStringLiteral(":/button/res")).entryList().size(), K_IMAGE_COUNT - 1);
    }

    void cacheSaysGoodbyeOnceAndComesBack()
    {
        ResManager::getInstance()->loadImage(13);
        QTest::ignoreMessage(QtDebugMsg, "call destructor of resmanager");
        ResManager::deleteInstance();
        ResManager::deleteInstance();
        QVERIFY(!ResManager::getInstance()->loadImage(13)->isNull());
    }
};

QTEST_GUILESS_MAIN(ImagesTest)
#include "tst_images.moc"
