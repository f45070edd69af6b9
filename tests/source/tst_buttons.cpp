#include "globaldefine.h"
#include "mybutton.h"
#include "resmanager.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QtTest>

#include <limits>

namespace {

const QRect SELECTED_TAB(7, 0, 76, 70); // where the tab's background lies
const QRect BADGE(58, 0, 32, 20);

const QImage &image(int id)
{
    return *ResManager::getInstance()->loadImage(id);
}

QImage canvas()
{
    QImage canvas(120, 100, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::magenta);
    return canvas;
}

/// What the button draws, on a colour that is nowhere in the artwork.
QImage drawn(MButton *button)
{
    QImage result = canvas();
    QPainter painter(&result);
    QStyleOptionGraphicsItem option;
    button->paint(&painter, &option);
    return result;
}

/// The images one over the other, each at its place.
QImage composed(const QVector<QPair<int, QPoint>> &layers)
{
    QImage result = canvas();
    QPainter painter(&result);
    for (const auto &layer : layers)
        painter.drawImage(layer.second, image(layer.first));
    return result;
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

/// The header's commands and the footer's tabs, by what they draw.
class tst_Buttons : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { g_languageIdx = 0; }

    void commandShowsItsBitmap();
    void commandOfUnknownImageDrawsNothing_data();
    void commandOfUnknownImageDrawsNothing();
    void commandCaptionIsCentredOnTheBitmap_data();
    void commandCaptionIsCentredOnTheBitmap();
    void commandIsPlacedByLayoutsOnly();

    void tabBackground_data();
    void tabBackground();
    void tabCaption_data();
    void tabCaption();
    void badge_data();
    void badge();
    void tabIsCheckable();
};

void tst_Buttons::commandShowsItsBitmap()
{
    SelectButton button(17, 18, 2);
    QCOMPARE(drawn(&button), composed({{17, {0, 0}}}));
    button.setDown(true);
    QCOMPARE(drawn(&button), composed({{18, {0, 0}}}));
    button.setBackgroundImage(0, 2);
    QCOMPARE(drawn(&button), composed({{2, {0, 0}}}));
    button.setDown(false);
    QCOMPARE(drawn(&button), composed({{0, {0, 0}}}));
}

void tst_Buttons::commandOfUnknownImageDrawsNothing_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("no such id") << 30;
    QTest::newRow("negative") << -1;
    QTest::newRow("no such file") << 21;
}

void tst_Buttons::commandOfUnknownImageDrawsNothing()
{
    QFETCH(int, id);
    SelectButton button(id, id, 0);
    QCOMPARE(drawn(&button), canvas());
}

void tst_Buttons::commandCaptionIsCentredOnTheBitmap_data()
{
    QTest::addColumn<int>("imageIdx");
    QTest::addColumn<int>("textIdx");
    QTest::addColumn<int>("language");
    for (int language = 0; language < K_LANGUAGE_COUNT; ++language) {
        QTest::addRow("edit, language %d", language) << 28 << 0 << language;
        QTest::addRow("back, language %d", language) << 4 << 1 << language;
    }
}

void tst_Buttons::commandCaptionIsCentredOnTheBitmap()
{
    QFETCH(int, imageIdx);
    QFETCH(int, textIdx);
    QFETCH(int, language);
    g_languageIdx = language;
    SelectButton button(imageIdx, imageIdx, textIdx);
    button.resize(110, 90);
    const QRect caption = difference(drawn(&button), composed({{imageIdx, {0, 0}}}));
    const QRect bitmap = image(imageIdx).rect();
    QVERIFY(caption.width() > 15);
    QVERIFY(bitmap.adjusted(2, 2, -2, -2).contains(caption));
    QVERIFY(isCentred(caption, bitmap));
    QVERIFY(qAbs(caption.center().y() - bitmap.center().y()) <= 3);
}

void tst_Buttons::commandIsPlacedByLayoutsOnly()
{
    QGraphicsScene scene;
    auto *page = new QGraphicsWidget;
    scene.addItem(page);
    const SelectButton button(0, 2, -1, page);
    QVERIFY(!button.parentItem());
}

void tst_Buttons::tabBackground_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("down");
    QTest::addColumn<int>("background");
    QTest::newRow("idle") << false << false << 27;
    QTest::newRow("checked") << true << false << 24;
    QTest::newRow("down") << false << true << 24;
    QTest::newRow("checked and down") << true << true << 24;
}

void tst_Buttons::tabBackground()
{
    QFETCH(bool, checked);
    QFETCH(bool, down);
    QFETCH(int, background);
    // With the icon whose file is missing, and therefore without a caption, the background is all there is.
    ToggleButton bare(21);
    bare.resize(90, 70);
    bare.setChecked(checked);
    bare.setDown(down);
    QCOMPARE(drawn(&bare), composed({{background, SELECTED_TAB.topLeft()}}));

    ToggleButton withoutCaption(15);
    withoutCaption.resize(90, 70);
    withoutCaption.setChecked(checked);
    withoutCaption.setDown(down);
    QCOMPARE(drawn(&withoutCaption), composed({{background, SELECTED_TAB.topLeft()}, {15, {30, 20}}}));
}

void tst_Buttons::tabCaption_data()
{
    QTest::addColumn<int>("icon");
    QTest::addColumn<QPoint>("iconPosition");
    QTest::addColumn<int>("language");
    for (int language = 0; language < K_LANGUAGE_COUNT; ++language) {
        QTest::addRow("friends, language %d", language) << 11 << QPoint(30, 22) << language;
        QTest::addRow("games, language %d", language) << 12 << QPoint(25, 23) << language;
        QTest::addRow("home, language %d", language) << 13 << QPoint(30, 20) << language;
        QTest::addRow("inbox, language %d", language) << 14 << QPoint(29, 24) << language;
    }
}

void tst_Buttons::tabCaption()
{
    QFETCH(int, icon);
    QFETCH(QPoint, iconPosition);
    QFETCH(int, language);
    g_languageIdx = language;
    ToggleButton tab(icon);
    tab.resize(90, 70);
    const QRect caption = difference(drawn(&tab), composed({{27, SELECTED_TAB.topLeft()}, {icon, iconPosition}}));
    QVERIFY(caption.width() > 15);
    QVERIFY(caption.top() > 45);
    QVERIFY(SELECTED_TAB.contains(caption));
    QVERIFY(isCentred(caption, SELECTED_TAB));

    // At the bottom of the tab, however high that is.
    tab.resize(90, 90);
    const QRect lower = difference(drawn(&tab), composed({{27, SELECTED_TAB.topLeft()}, {icon, iconPosition}}));
    QCOMPARE(lower, caption.translated(0, 20));
}

void tst_Buttons::badge_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {1, 12, 123, 1000, -1})
        QTest::addRow("%d", number) << number;
    QTest::newRow("highest") << std::numeric_limits<int>::max();
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
}

void tst_Buttons::badge()
{
    QFETCH(int, number);
    ToggleButton tab(15);
    tab.resize(90, 70);
    const QImage without = drawn(&tab);
    tab.m_badgeNumber = number;
    const QImage with = drawn(&tab);
    QCOMPARE(difference(with, without) | BADGE, BADGE);

    const QRect digits
        = difference(with, composed({{27, SELECTED_TAB.topLeft()}, {15, {30, 20}}, {7, BADGE.topLeft()}}));
    QVERIFY(!digits.isEmpty());
    QVERIFY(isCentred(digits, BADGE));
    QVERIFY(qAbs(digits.center().y() - BADGE.center().y()) <= 2);
    if (number > -10 && number < 1000)
        QVERIFY(BADGE.adjusted(2, 2, -2, -2).contains(digits));

    tab.m_badgeNumber = 0;
    QCOMPARE(drawn(&tab), without);
}

void tst_Buttons::tabIsCheckable()
{
    QGraphicsScene scene;
    auto *page = new QGraphicsWidget;
    scene.addItem(page);
    const auto *tab = new ToggleButton(13, page);
    QCOMPARE(tab->parentItem(), page);
    QVERIFY(tab->isCheckable());
    QVERIFY(!tab->isChecked());
    QCOMPARE(tab->viewType(), MButton::iconType);
}

QTEST_MAIN(tst_Buttons)
#include "tst_buttons.moc"
