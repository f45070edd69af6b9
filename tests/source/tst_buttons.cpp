// SPDX-License-Identifier: MIT
#include "globaldefine.h"
#include "mlabel.h"
#include "mybutton.h"
#include "resmanager.h"
#include "testing.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <limits>

namespace {

const QRect selectedTabPlace(7, 0, 76, 70); // where the tab's background lies
const QRect badgePlace(58, 0, 32, 20);

const QImage &image(int id)
{
    return *ResManager::getInstance()->loadImage(id);
}

/// The images one over the other, each at its place, on a colour that is nowhere in the artwork.
QImage composed(const QVector<QPair<int, QPoint>> &layers)
{
    QImage canvas(140, 100, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::magenta);
    QPainter painter(&canvas);
    for (const auto &layer : layers)
        painter.drawImage(layer.second, image(layer.first));
    return canvas;
}

/// What the widget draws on the same colour.
QImage drawn(QGraphicsWidget *widget)
{
    QImage canvas = composed({});
    QPainter painter(&canvas);
    QStyleOptionGraphicsItem option;
    widget->paint(&painter, &option, nullptr);
    return canvas;
}

/// The smallest rectangle that holds all differences.
QRect difference(const QImage &one, const QImage &other)
{
    QRect bounds;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y))
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

/// Whether the same room is left on both sides, as far as letters are centred by their advance.
bool isCentred(const QRect &inner, const QRect &outer)
{
    return qAbs((inner.left() - outer.left()) - (outer.right() - inner.right())) <= 3;
}

} // namespace

/// The compiled-in images, and the header's commands and the footer's tabs by what they draw.
class tst_Buttons : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { g_languageIdx = 0; }

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
        QCOMPARE(QDir(":/button/res"_s).entryList().size(), K_IMAGE_COUNT - 1);
    }

    void cacheSaysGoodbyeOnceAndComesBack()
    {
        ResManager::getInstance()->loadImage(13);
        QTest::ignoreMessage(QtDebugMsg, "call destructor of resmanager");
        ResManager::deleteInstance();
        ResManager::deleteInstance();
        QVERIFY(!ResManager::getInstance()->loadImage(13)->isNull());
    }

    void commandShowsItsBitmap()
    {
        SelectButton button(17, 18, 2);
        QCOMPARE(drawn(&button), composed({{17, {0, 0}}}));
        button.setDown(true);
        QCOMPARE(drawn(&button), composed({{18, {0, 0}}}));
        button.setBackgroundImage(0, 2);
        QCOMPARE(drawn(&button), composed({{2, {0, 0}}}));
        button.setDown(false);
        QCOMPARE(drawn(&button), composed({{0, {0, 0}}}));
        for (const int unknown : {K_IMAGE_COUNT, -1, 21}) {
            SelectButton bare(unknown, unknown, 0);
            QCOMPARE(drawn(&bare), composed({}));
        }
    }

    void commandCaptionIsCentredOnTheBitmap()
    {
        for (g_languageIdx = 0; g_languageIdx < K_LANGUAGE_COUNT; ++g_languageIdx) {
            for (const auto &[bitmap, text] : {std::pair(28, 0), std::pair(4, 1)}) {
                SelectButton button(bitmap, bitmap, text);
                button.resize(110, 90);
                const QRect caption = difference(drawn(&button), composed({{bitmap, {0, 0}}}));
                const QRect place = image(bitmap).rect();
                QVERIFY(caption.width() > 15);
                QVERIFY(place.adjusted(2, 2, -2, -2).contains(caption));
                QVERIFY(isCentred(caption, place));
                QVERIFY(qAbs(caption.center().y() - place.center().y()) <= 3);
            }
        }
    }

    void textIsNarrowedAsNeededAndCut()
    {
        const QRect room(10, 0, 110, 40); // without the margins
        MButton bare;
        bare.resize(130, 40);
        QGraphicsScene scene;
        QFont small = bare.font();
        small.setPixelSize(8);
        QString text = "n"_s;
        while (QFontMetrics(bare.font()).horizontalAdvance(text) < room.width())
            text += "n"_s;
        for (const QString &shown : {text + "n"_s, text.repeated(3)}) {
            MButton button(shown);
            button.resize(130, 40);
            scene.addItem(&button);
            QCoreApplication::processEvents();
            const QRect letters = difference(drawn(&button), drawn(&bare));
            QVERIFY(room.contains(letters) && letters.width() > room.width() * 9 / 10);
            button.setFont(small);
            QVERIFY(difference(drawn(&button), drawn(&bare)).height() < letters.height());
        }
    }

    void labelShowsItsText()
    {
        QGraphicsScene scene;
        MLabel label("words\n\nwords"_s);
        label.resize(60, 80);
        const QImage separate = drawn(&label);
        label.setWordWrap(true);
        QCOMPARE(drawn(&label), separate);
        label.setText("words words"_s);
        const QImage wrapped = drawn(&label);
        label.setWordWrap(false);
        QVERIFY(drawn(&label) != wrapped);
        label.setText("words\nwords"_s);
        QCOMPARE(drawn(&label), wrapped);
        label.setAlignment(Qt::AlignVCenter);
        QVERIFY(qAbs(difference(drawn(&label), composed({})).center().y() - 40) <= 3);
        label.resize(130, 40);
        label.setWordWrap(true);
        label.setText("many words "_s.repeated(20));
        const QRect lines = difference(drawn(&label), composed({}));
        QVERIFY(QRect(0, 0, 130, 40).contains(lines) && lines.width() > 90);
        QCOMPARE(label.preferredWidth(), 0.0);
        scene.addItem(&label);
        const QImage wide = drawn(&label);
        label.resize(60, 40);
        QVERIFY(drawn(&label) != wide);
        const qreal wish = label.preferredWidth();
        label.setText("few words"_s);
        QVERIFY(label.preferredWidth() < wish);
        QSignalSpy redrawn(&scene, &QGraphicsScene::changed);
        for (const std::function<void()> &change : {std::function<void()>([&] { label.setColor(Qt::red); }),
                                                    {[&] { label.setAlignment(Qt::AlignRight); }},
                                                    {[&] { label.setText({}); }}}) {
            QCoreApplication::processEvents();
            redrawn.clear();
            change();
            QTRY_VERIFY(!redrawn.isEmpty());
        }
        QCOMPARE(drawn(&label), composed({}));
    }

    void commandIsPlacedByLayoutsOnly()
    {
        QGraphicsScene scene;
        auto *page = new QGraphicsWidget;
        scene.addItem(page);
        const SelectButton button(0, 2, -1, page);
        QVERIFY(!button.parentItem());
    }

    void tabBackground()
    {
        ToggleButton tab(15);
        tab.resize(90, 70);
        for (const bool checked : {false, true}) {
            for (const bool down : {false, true}) {
                tab.setChecked(checked);
                tab.setDown(down);
                QCOMPARE(drawn(&tab),
                         composed({{checked || down ? 24 : 27, selectedTabPlace.topLeft()}, {15, {30, 20}}}));
            }
        }
    }

    void tabCaption()
    {
        for (const auto &[icon, iconPosition] :
             {std::pair(11, QPoint(30, 22)), {12, QPoint(25, 23)}, {13, QPoint(30, 20)}, {14, QPoint(29, 24)}}) {
            const QImage bare = composed({{27, selectedTabPlace.topLeft()}, {icon, iconPosition}});
            for (g_languageIdx = 0; g_languageIdx < K_LANGUAGE_COUNT; ++g_languageIdx) {
                ToggleButton tab(icon);
                tab.resize(90, 70);
                const QRect caption = difference(drawn(&tab), bare);
                QVERIFY(caption.width() > 15);
                QVERIFY(caption.top() > 45);
                QVERIFY(selectedTabPlace.contains(caption));
                QVERIFY(isCentred(caption, selectedTabPlace));
                // At the bottom of the tab, however high that is.
                tab.resize(90, 90);
                QCOMPARE(difference(drawn(&tab), bare), caption.translated(0, 20));
            }
        }
    }

    void badge()
    {
        for (const int number : {1, 12, 123, 1000, -1, std::numeric_limits<int>::min()}) {
            ToggleButton tab(15);
            tab.resize(90, 70);
            const QImage without = drawn(&tab);
            tab.m_badgeNumber = number;
            const QImage with = drawn(&tab);
            QVERIFY(tab.boundingRect().contains(difference(with, without)));

            const QRect digits = difference(
                with, composed({{27, selectedTabPlace.topLeft()}, {15, {30, 20}}, {7, badgePlace.topLeft()}}));
            QVERIFY(!digits.isEmpty());
            QVERIFY(isCentred(digits, badgePlace));
            QVERIFY(qAbs(digits.center().y() - badgePlace.center().y()) <= 2);
            // Every digit, none narrowed.
            QFont font;
            font.setPixelSize(14);
            font.setWeight(QFont::Bold);
            const int width = QFontMetrics(font).tightBoundingRect(QString::number(number)).width();
            QVERIFY2(qAbs(digits.width() - width) <= 3, qPrintable("%1 %2"_s.arg(digits.width()).arg(width)));
        }
    }
};

QTEST_MAIN(tst_Buttons)
#include "tst_buttons.moc"
