#include "mlabel.h"
#include "stage.h"

class LabelTest : public QObject {
    Q_OBJECT

private slots:
    void aligns_data();
    void aligns();
    void keepsInside_data();
    void keepsInside();
    void wrapsBetweenWords();
    void shorterTextMeansNoEllipsis();
    void needsHeightForItsWidth();
    void hasAColour();
};

namespace {

const QRectF place(40, 100, 200, 80);

MLabel *labelOn(Stage &stage, const QString &text, const QRectF &where = place)
{
    auto *label = new MLabel(text);
    label->setColor(Qt::white);
    stage.put(label, where);
    return label;
}

QRect inkOf(Stage &stage, const MLabel *label)
{
    return inked(stage.picture(label), Qt::black);
}

} // namespace

void LabelTest::aligns_data()
{
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<QPoint>("side"); // -1, 0, 1 for left, centre, right and top, centre, bottom
    QTest::newRow("default") << (Qt::AlignLeft | Qt::AlignVCenter) << QPoint(-1, 0);
    QTest::newRow("centre") << Qt::Alignment(Qt::AlignCenter) << QPoint(0, 0);
    QTest::newRow("top right") << (Qt::AlignRight | Qt::AlignTop) << QPoint(1, -1);
    QTest::newRow("bottom centre") << (Qt::AlignHCenter | Qt::AlignBottom) << QPoint(0, 1);
}

void LabelTest::aligns()
{
    QFETCH(Qt::Alignment, alignment);
    QFETCH(QPoint, side);
    Stage stage;
    MLabel *label = labelOn(stage, QStringLiteral("HHH"));
    label->setAlignment(alignment);
    const QRect ink = inkOf(stage, label);
    const int left = ink.left(), right = 199 - ink.right(), top = ink.top(), bottom = 79 - ink.bottom();
    QVERIFY(side.x() < 0 ? left < 5 : side.x() > 0 ? right < 5 : qAbs(left - right) < 4);
    QVERIFY(side.y() < 0 ? top < 8 : side.y() > 0 ? bottom < 8 : qAbs(top - bottom) < 4);
}

void LabelTest::keepsInside_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("wrap");
    const QString word = QString(60, QLatin1Char('W'));
    QTest::newRow("one long line") << QStringLiteral("Hello ").repeated(60) << false;
    QTest::newRow("too many lines") << QStringLiteral("Hello ").repeated(60) << true;
    QTest::newRow("word wider than the label") << word << true;
    QTest::newRow("such a word between others") << QStringLiteral("I ") + word + QStringLiteral(" I") << true;
    QTest::newRow("too many paragraphs") << QStringLiteral("H\n").repeated(60) << false;
}

void LabelTest::keepsInside()
{
    QFETCH(QString, text);
    QFETCH(bool, wrap);
    Stage stage;
    MLabel *label = labelOn(stage, text);
    label->setWordWrap(wrap);
    const QRect ink = inked(stage.picture(), Qt::black);
    QVERIFY2(place.toRect().contains(ink), qPrintable(QStringLiteral("%1 %2").arg(ink.right()).arg(ink.bottom())));
    QVERIFY(!ink.isEmpty());
}

void LabelTest::wrapsBetweenWords()
{
    Stage stage;
    MLabel *label = labelOn(stage, QStringLiteral("HHHHHH HHHHHH HHHHHH"));
    const int oneLine = inkOf(stage, label).height();
    label->setWordWrap(true);
    QVERIFY(inkOf(stage, label).height() > 2 * oneLine);
    label->setWordWrapMode(QTextOption::ManualWrap);
    QCOMPARE(inkOf(stage, label).height(), oneLine);
    label->setText(QStringLiteral("H\nH"));
    QVERIFY(inkOf(stage, label).height() > 2 * oneLine);
}

void LabelTest::shorterTextMeansNoEllipsis()
{
    Stage stage;
    MLabel *label = labelOn(stage, QStringLiteral("H").repeated(60));
    const int elided = inkOf(stage, label).width();
    label->setText(QStringLiteral("HH"));
    const int whole = inkOf(stage, label).width();
    QVERIFY(whole < elided / 3);
    label->setText(QString());
    QVERIFY(inkOf(stage, label).isEmpty());
}

void LabelTest::needsHeightForItsWidth()
{
    MLabel label(QStringLiteral("Some words that take more than one line of two hundred pixels"));
    const QSizeF whole = label.effectiveSizeHint(Qt::PreferredSize);
    QVERIFY(whole.width() > 400);
    label.setWordWrap(true);
    const QSizeF narrow = label.effectiveSizeHint(Qt::PreferredSize, QSizeF(200, -1));
    QCOMPARE(narrow.width(), 200.0);
    QVERIFY(narrow.height() > 2 * whole.height());
    QFont larger = label.font();
    larger.setPixelSize(40);
    label.setFont(larger);
    QVERIFY(label.effectiveSizeHint(Qt::PreferredSize, QSizeF(200, -1)).height() > 2 * narrow.height());
}

void LabelTest::hasAColour()
{
    Stage stage;
    MLabel *label = labelOn(stage, QString(40, QChar(0x2588))); // full blocks
    label->setColor(Qt::red);
    QVERIFY(label->color() == Qt::red);
    QCOMPARE(stage.picture(label).pixelColor(20, 40), QColor(Qt::red));
    label->setColor(QColor());
    QCOMPARE(label->color(), MLabel().color());
}

QTEST_MAIN(LabelTest)
#include "tst_label.moc"
