#include "globaldefine.h"

#include <cmath>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QResource>
#include <QtEndian>
#include <QtTest>

/// The compiled-in images: what the image ids lead to, how the files are kept, and what is drawn on them.
class ImagesTest : public QObject {
    Q_OBJECT

private slots:
    void everyIdLeadsToItsFile_data();
    void everyIdLeadsToItsFile();
    void nothingElseIsCompiledIn();
    void pressedLooksDifferent_data();
    void pressedLooksDifferent();
    void whiteCaptionReads_data();
    void whiteCaptionReads();
    void opaqueImageMeetsItsGround_data();
    void opaqueImageMeetsItsGround();
};

namespace {

QString path(const char *name)
{
    return QStringLiteral(":/button/res/") + QLatin1String(name);
}

// The colour types of the PNG format.
constexpr quint8 Rgb = 2;
constexpr quint8 Rgba = 6;

// WCAG 2 contrast of white text on an opaque colour: from 1 (white) to 21 (black).
double contrastWithWhite(QRgb colour)
{
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    const double luminance
        = 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
    return 1.05 / (luminance + 0.05);
}

} // namespace

void ImagesTest::everyIdLeadsToItsFile_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<quint8>("colourType");
    const auto row = [](int id, const char *name, int width, int height, quint8 colourType = Rgba) {
        QTest::newRow(name) << id << QSize(width, height) << colourType;
    };
    row(0, "add", 31, 30);
    row(1, "add_new", 31, 30, Rgb);
    row(2, "add_on", 31, 30);
    row(3, "back", 62, 35);
    row(4, "back_button", 59, 33);
    row(5, "back_button_on", 59, 33);
    row(6, "back_on", 62, 35);
    row(7, "badge3", 32, 20);
    row(8, "badge3_blue", 32, 20);
    row(9, "close_but", 45, 30);
    row(10, "close_but_on", 45, 30);
    row(11, "friends", 30, 26);
    row(12, "games", 40, 25);
    row(13, "home", 30, 30);
    row(14, "inbox", 32, 22);
    row(15, "inbox_new_msg", 31, 30);
    row(16, "inbox_new_msg_on", 31, 30);
    row(17, "info", 31, 31);
    row(18, "info_on", 31, 31);
    row(19, "interact_new", 39, 30);
    row(20, "interact_new_on", 39, 30);
    row(22, "recommend", 39, 30);
    row(23, "recommend_on", 39, 30);
    row(24, "selected", 76, 70, Rgb);
    row(25, "selected_check", 14, 13, Rgb);
    row(26, "send_butt", 72, 30);
    row(27, "unselected", 76, 70, Rgb);
    row(28, "button", 80, 35);
    row(29, "button_on", 80, 35);
}

void ImagesTest::everyIdLeadsToItsFile()
{
    QFETCH(int, id);
    QFETCH(QSize, size);
    QFETCH(quint8, colourType);
    QCOMPARE(k_imgName[id], QTest::currentDataTag());

    const QString file = path(k_imgName[id]) + QStringLiteral(".png");
    QCOMPARE(QResource(file).compressionAlgorithm(), QResource::NoCompression);
    const QByteArray bytes = QResource(file).uncompressedData();
    QVERIFY(bytes.size() > 26);
    const auto *header = reinterpret_cast<const uchar *>(bytes.constData()) + 16;
    QCOMPARE(QSize(qFromBigEndian<qint32>(header), qFromBigEndian<qint32>(header + 4)), size);
    QCOMPARE(int(header[8]), 8);
    QCOMPARE(header[9], colourType);
    QVERIFY2(!bytes.contains("tRNS"), "a transparent colour is alpha by another name");

    const QImage image(path(k_imgName[id]));
    QCOMPARE(image.size(), size);
    QCOMPARE(image.hasAlphaChannel(), colourType == Rgba);
}

void ImagesTest::nothingElseIsCompiledIn()
{
    QCOMPARE(QDir(QStringLiteral(":/button")).entryList(), QStringList{QStringLiteral("res")});
    QCOMPARE(QDir(QStringLiteral(":/button/res")).entryList().size(), K_IMAGE_COUNT - 1);
    QCOMPARE(k_imgName[21], "loading_but");
    QVERIFY(QImage(path(k_imgName[21])).isNull());
}

void ImagesTest::pressedLooksDifferent_data()
{
    QTest::addColumn<QString>("normal");
    for (const char *name : k_imgName) {
        if (QByteArray(name).endsWith("_on"))
            QTest::newRow(name) << path(name).chopped(3);
    }
}

void ImagesTest::pressedLooksDifferent()
{
    QFETCH(QString, normal);
    const QImage up(normal);
    const QImage down(path(QTest::currentDataTag()));
    QCOMPARE(down.size(), up.size());
    int changed = 0;
    for (int y = 0; y < up.height(); ++y) {
        for (int x = 0; x < up.width(); ++x)
            changed += up.pixel(x, y) != down.pixel(x, y);
    }
    QVERIFY2(changed > up.width() * up.height() / 2, "a finger covers most of the button");
}

void ImagesTest::whiteCaptionReads_data()
{
    QTest::addColumn<QRect>("caption");
    const QRect centred13(5, 11, 49, 12);
    QTest::newRow("back_button") << centred13;
    QTest::newRow("back_button_on") << centred13;
    QTest::newRow("button") << QRect(6, 12, 68, 12);
    QTest::newRow("button_on") << QRect(6, 12, 68, 12);
    QTest::newRow("badge3") << QRect(3, 5, 26, 10);
    QTest::newRow("badge3_blue") << QRect(3, 5, 26, 10);
    QTest::newRow("selected") << QRect(0, 53, 76, 17);
    QTest::newRow("unselected") << QRect(0, 53, 76, 17);
}

void ImagesTest::whiteCaptionReads()
{
    QFETCH(QRect, caption);
    const QImage image(path(QTest::currentDataTag()));
    for (int y = caption.top(); y <= caption.bottom(); ++y) {
        for (int x = caption.left(); x <= caption.right(); ++x) {
            const double contrast = contrastWithWhite(image.pixel(x, y));
            QVERIFY2(contrast >= 4.5, qPrintable(QStringLiteral("%1 at %2, %3").arg(contrast).arg(x).arg(y)));
        }
    }
}

void ImagesTest::opaqueImageMeetsItsGround_data()
{
    QTest::addColumn<QColor>("ground");
    QTest::newRow("selected") << QColor(Qt::black);
    QTest::newRow("unselected") << QColor(Qt::black);
    QTest::newRow("add_new") << QColor(Qt::white);
}

void ImagesTest::opaqueImageMeetsItsGround()
{
    QFETCH(QColor, ground);
    const QImage image(path(QTest::currentDataTag()));
    QCOMPARE(image.pixelColor(0, 0), ground);
    QCOMPARE(image.pixelColor(image.width() - 1, image.height() - 1), ground);
}

QTEST_GUILESS_MAIN(ImagesTest)
#include "tst_images.moc"
