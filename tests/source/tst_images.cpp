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
        struct Row {
            const char *name;
            QSize size;
            bool isOpaque;
        };
        const Row rows[K_IMAGE_COUNT] = {{"add", {31, 30}, false},
                                         {"add_new", {31, 30}, true},
                                         {"add_on", {31, 30}, false},
                                         {"back", {62, 35}, false},
                                         {"back_button", {59, 33}, false},
                                         {"back_button_on", {59, 33}, false},
                                         {"back_on", {62, 35}, false},
                                         {"badge3", {32, 20}, false},
                                         {"badge3_blue", {32, 20}, false},
                                         {"close_but", {45, 30}, false},
                                         {"close_but_on", {45, 30}, false},
                                         {"friends", {30, 26}, false},
                                         {"games", {40, 25}, false},
                                         {"home", {30, 30}, false},
                                         {"inbox", {32, 22}, false},
                                         {"inbox_new_msg", {31, 30}, false},
                                         {"inbox_new_msg_on", {31, 30}, false},
                                         {"info", {31, 31}, false},
                                         {"info_on", {31, 31}, false},
                                         {"interact_new", {39, 30}, false},
                                         {"interact_new_on", {39, 30}, false},
                                         {"loading_but", {0, 0}, false},
                                         {"recommend", {39, 30}, false},
                                         {"recommend_on", {39, 30}, false},
                                         {"selected", {76, 70}, true},
                                         {"selected_check", {14, 13}, true},
                                         {"send_butt", {72, 30}, false},
                                         {"unselected", {76, 70}, true},
                                         {"button", {80, 35}, false},
                                         {"button_on", {80, 35}, false}};
        for (int id = 0; id < K_IMAGE_COUNT; ++id) {
            const QImage *image = ResManager::getInstance()->loadImage(id);
            QVERIFY(image);
            QCOMPARE(k_imgName[id], rows[id].name);
            QVERIFY2(image->size() == rows[id].size, rows[id].name);
            QVERIFY2(image->isNull() || image->hasAlphaChannel() != rows[id].isOpaque, rows[id].name);
            // Decoded once, or found missing once.
            QCOMPARE(ResManager::getInstance()->loadImage(id), image);
        }
        for (const int id : {-1, K_IMAGE_COUNT, std::numeric_limits<int>::min()})
            QVERIFY(!ResManager::getInstance()->loadImage(id));
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
