#include "mbutton.h"
#include "mbuttongroup.h"
#include "stage.h"

#include <QSignalSpy>

namespace {

/// Writes down what a button tells, in order.
QStringList *listen(MButton *button)
{
    auto *said = new QStringList; // goes with the button
    QObject::connect(button, &MButton::pressed, [said] { said->append(QStringLiteral("pressed")); });
    QObject::connect(button, &MButton::released, [said] { said->append(QStringLiteral("released")); });
    QObject::connect(button, &MButton::toggled,
                     [said](bool on) { said->append(on ? QStringLiteral("on") : QStringLiteral("off")); });
    QObject::connect(button, &MButton::clicked, [said](bool checked) {
        said->append(checked ? QStringLiteral("clicked checked") : QStringLiteral("clicked"));
    });
    QObject::connect(button, &QObject::destroyed, [said] { delete said; });
    return said;
}

/// Draws itself, as buttons with artwork do.
class BlackButton : public MButton {
public:
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        painter->fillRect(rect(), isDown() ? Qt::white : Qt::black);
    }
};

/// Keeps the touches on it to itself, as a web view may.
class TouchTaker : public QGraphicsWidget {
public:
    TouchTaker() { setAcceptTouchEvents(true); }

protected:
    bool sceneEvent(QEvent *event) override
    {
        return event->type() == QEvent::TouchBegin || QGraphicsWidget::sceneEvent(event);
    }
};

const QRectF place(100, 100, 120, 40);
const QPointF inside(130, 115);
const QPointF beside(130, 160);

} // namespace

class ButtonTest : public QObject {
    Q_OBJECT

private slots:
    void aTapClicks_data();
    void aTapClicks();
    void leavingCancels();
    void losingTheMouseCancels_data();
    void losingTheMouseCancels();
    void aDoubleClickIsTwoClicks();
    void onlyTheLeftButtonClicks();
    void keysClick();
    void onlyTabLeadsToAButtonAndShowsIt();
    void aHandlerMayDeleteTheButton_data();
    void aHandlerMayDeleteTheButton();
    void checking();
    void aLongTextStaysInside_data();
    void aLongTextStaysInside();
    void statesShow();

    void groupTellsOfClicks();
    void groupGivesIds();
    void exclusiveGroupKeepsOneChecked();
    void groupOutlivesItsButtons();
    void buttonsOutliveTheirGroup();
    void aGroupHandlerMayDeleteTheButton();
};

void ButtonTest::aTapClicks_data()
{
    QTest::addColumn<Finger::Kind>("kind");
    QTest::newRow("mouse") << Finger::Mouse;
    QTest::newRow("touch") << Finger::Touch;
}

void ButtonTest::aTapClicks()
{
    QFETCH(Finger::Kind, kind);
    Stage stage(kind);
    auto *button = new MButton(QStringLiteral("Send"));
    stage.put(button, place);
    stage.put(new TouchTaker, QRectF(0, 150, 480, 300));
    stage.finger.tap(beside);
    const QStringList &said = *listen(button);

    stage.finger.press(inside);
    QVERIFY(button->isDown());
    QCOMPARE(said, QStringList{QStringLiteral("pressed")});
    stage.finger.release();
    QVERIFY(!button->isDown());
    QCOMPARE(said, QStringList({QStringLiteral("pressed"), QStringLiteral("released"), QStringLiteral("clicked")}));
}

void ButtonTest::leavingCancels()
{
    Stage stage;
    auto *button = new MButton;
    stage.put(button, place);
    QSignalSpy clicked(button, &MButton::clicked);

    stage.finger.press(inside);
    stage.finger.move(beside);
    QVERIFY(!button->isDown());
    stage.finger.release();
    QCOMPARE(clicked.count(), 0);

    stage.finger.press(inside);
    stage.finger.move(beside);
    stage.finger.move(inside);
    QVERIFY(button->isDown());
    stage.finger.release();
    QCOMPARE(clicked.count(), 1);
}

void ButtonTest::losingTheMouseCancels_data()
{
    QTest::addColumn<bool>("byHiding");
    QTest::newRow("hidden") << true;
    QTest::newRow("disabled") << false;
}

void ButtonTest::losingTheMouseCancels()
{
    Stage stage;
    QFETCH(bool, byHiding);
    auto *button = new MButton;
    stage.put(button, place);
    QSignalSpy clicked(button, &MButton::clicked);
    QSignalSpy released(button, &MButton::released);

    stage.finger.press(inside);
    byHiding ? button->hide() : button->setEnabled(false);
    QVERIFY(!button->isDown());
    QCOMPARE(released.count(), 1);
    byHiding ? button->show() : button->setEnabled(true);
    stage.finger.release();
    QCOMPARE(clicked.count(), 0);
}

void ButtonTest::aDoubleClickIsTwoClicks()
{
    Stage stage;
    auto *button = new MButton;
    stage.put(button, place);
    QSignalSpy clicked(button, &MButton::clicked);
    stage.finger.tap(inside);
    QTest::mouseDClick(stage.window.viewport(), Qt::LeftButton, {}, stage.window.mapFromScene(inside));
    stage.finger.release();
    QCOMPARE(clicked.count(), 2);
}

void ButtonTest::onlyTheLeftButtonClicks()
{
    Stage stage;
    auto *button = new MButton;
    stage.put(button, place);
    QSignalSpy pressed(button, &MButton::pressed);
    QTest::mouseClick(stage.window.viewport(), Qt::RightButton, {}, stage.window.mapFromScene(inside));
    QCOMPARE(pressed.count(), 0);
}

void ButtonTest::keysClick()
{
    Stage stage;
    auto *button = new MButton;
    stage.put(button, place);
    button->setFocus(Qt::TabFocusReason);
    QSignalSpy clicked(button, &MButton::clicked);

    QTest::keyPress(&stage.window, Qt::Key_Space);
    QVERIFY(button->isDown());
    QCOMPARE(clicked.count(), 0);
    QTest::keyRelease(&stage.window, Qt::Key_Space);
    QCOMPARE(clicked.count(), 1);
    QTest::keyClick(&stage.window, Qt::Key_Return);
    QTest::keyClick(&stage.window, Qt::Key_Enter);
    QCOMPARE(clicked.count(), 3);

    QTest::keyPress(&stage.window, Qt::Key_Space);
    button->clearFocus();
    QVERIFY(!button->isDown());
    QTest::keyRelease(&stage.window, Qt::Key_Space);
    QCOMPARE(clicked.count(), 3);
}

void ButtonTest::onlyTabLeadsToAButtonAndShowsIt()
{
    Stage stage;
    auto *button = new BlackButton;
    stage.put(button, place);
    const QColor black(Qt::black);

    stage.finger.tap(inside);
    QVERIFY(!button->hasFocus());
    QVERIFY(inked(stage.picture(button), black).isEmpty());

    QTest::keyClick(&stage.window, Qt::Key_Tab);
    QVERIFY(button->hasFocus());
    const QImage ringed = stage.picture(button);
    QCOMPARE(inked(ringed, black), ringed.rect());

    QTest::keyPress(&stage.window, Qt::Key_Space);
    QCOMPARE(stage.picture(button).pixelColor(60, 20), QColor(Qt::white));
    QTest::keyRelease(&stage.window, Qt::Key_Space);
    button->clearFocus();
    QVERIFY(inked(stage.picture(button), black).isEmpty());
}

void ButtonTest::aHandlerMayDeleteTheButton_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("pressed") << 0;
    QTest::newRow("toggled") << 1;
    QTest::newRow("released") << 2;
    QTest::newRow("clicked") << 3;
}

void ButtonTest::aHandlerMayDeleteTheButton()
{
    Stage stage;
    QFETCH(int, signal);
    const QPointer<MButton> button = new MButton;
    button->setCheckable(true);
    stage.put(button, place);
    const auto destroy = [button] { delete button; };
    if (signal == 0)
        connect(button, &MButton::pressed, this, destroy);
    else if (signal == 1)
        connect(button, &MButton::toggled, this, destroy);
    else if (signal == 2)
        connect(button, &MButton::released, this, destroy);
    else
        connect(button, &MButton::clicked, this, destroy);
    stage.finger.tap(inside);
    QVERIFY(!button);
}

void ButtonTest::checking()
{
    MButton button;
    button.click();
    button.setChecked(true);
    QVERIFY(!button.isChecked());

    button.setCheckable(true);
    const QStringList &said = *listen(&button);
    button.click();
    QVERIFY(button.isChecked());
    button.click();
    QVERIFY(!button.isChecked());
    QCOMPARE(said,
             QStringList({QStringLiteral("on"), QStringLiteral("released"), QStringLiteral("clicked checked"),
                          QStringLiteral("off"), QStringLiteral("released"), QStringLiteral("clicked")}));
    button.setChecked(true);
    button.setCheckable(false);
    QVERIFY(!button.isChecked());
}

void ButtonTest::aLongTextStaysInside_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("longest word of the chrome") << QStringLiteral("Abbrechen");
    QTest::newRow("sentence") << QStringLiteral("Seleziona almeno un destinatario");
    QTest::newRow("thousand letters") << QString(1000, QLatin1Char('W'));
}

void ButtonTest::aLongTextStaysInside()
{
    QFETCH(QString, text);
    Stage stage;
    auto *button = new MButton;
    stage.put(button, place);
    const QImage empty = stage.picture(button);
    button->setText(text);
    const QImage written = stage.picture(button);
    const QRect edge(0, 0, 8, 40);
    QCOMPARE(written.copy(edge), empty.copy(edge));
    QCOMPARE(written.copy(edge.translated(112, 0)), empty.copy(edge.translated(112, 0)));
    QVERIFY(written != empty);
    QCOMPARE(button->text(), text);
}

void ButtonTest::statesShow()
{
    Stage stage;
    auto *button = new MButton(QStringLiteral("OK"));
    button->setCheckable(true);
    stage.put(button, place);
    QVector<QImage> pictures{stage.picture(button)};
    button->setChecked(true);
    pictures << stage.picture(button);
    button->setDown(true);
    pictures << stage.picture(button);
    button->setDown(false);
    button->setEnabled(false);
    pictures << stage.picture(button);
    for (int i = 0; i < pictures.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY2(pictures.at(i) != pictures.at(j), qPrintable(QStringLiteral("%1 %2").arg(i).arg(j)));
    }
}

void ButtonTest::groupTellsOfClicks()
{
    Stage stage;
    MButtonGroup group;
    auto *button = new MButton;
    stage.put(button, place);
    group.addButton(button, 7);
    QVariantList told;
    connect(&group, QOverload<MButton *>::of(&MButtonGroup::buttonClicked), this,
            [&told](MButton *clicked) { told.append(QVariant::fromValue<QObject *>(clicked)); });
    connect(&group, QOverload<int>::of(&MButtonGroup::buttonClicked), this, [&told](int id) { told.append(id); });
    stage.finger.tap(inside);
    QCOMPARE(told, QVariantList({QVariant::fromValue<QObject *>(button), 7}));
    group.removeButton(button);
    stage.finger.tap(inside);
    QCOMPARE(told.size(), 2);
}

void ButtonTest::groupGivesIds()
{
    MButtonGroup group;
    MButton a, b, c, stranger;
    group.addButton(&a);
    group.addButton(&b, 5);
    group.addButton(&c);
    group.addButton(nullptr);
    QCOMPARE(group.buttons(), QList<MButton *>({&a, &b, &c}));
    QCOMPARE(group.id(&a), -2);
    QCOMPARE(group.id(&b), 5);
    QCOMPARE(group.id(&c), -3);
    QCOMPARE(group.id(&stranger), -1);
    QCOMPARE(group.button(5), &b);
    QCOMPARE(group.button(6), nullptr);
    group.setId(&b, 6);
    QCOMPARE(group.button(6), &b);

    MButtonGroup other;
    other.addButton(&b, 1);
    QCOMPARE(group.buttons(), QList<MButton *>({&a, &c}));
    QCOMPARE(other.button(1), &b);
}

void ButtonTest::exclusiveGroupKeepsOneChecked()
{
    MButtonGroup group;
    MButton a, b, plain;
    for (MButton *button : {&a, &b}) {
        button->setCheckable(true);
        button->setChecked(true);
        group.addButton(button, button == &a ? 0 : 1);
    }
    group.addButton(&plain, 2);
    QVERIFY(!a.isChecked());
    QCOMPARE(group.checkedButton(), &b);

    a.click();
    QCOMPARE(group.checkedId(), 0);
    QVERIFY(!b.isChecked());
    a.click();
    QVERIFY(a.isChecked());
    plain.click();
    QCOMPARE(group.checkedId(), 0);

    group.setExclusive(false);
    b.click();
    QVERIFY(a.isChecked() && b.isChecked());
    a.click();
    b.click();
    QCOMPARE(group.checkedId(), -1);
}

void ButtonTest::groupOutlivesItsButtons()
{
    MButtonGroup group;
    auto *button = new MButton;
    group.addButton(button, 3);
    delete button;
    QVERIFY(group.buttons().isEmpty());
    QCOMPARE(group.button(3), nullptr);
}

void ButtonTest::buttonsOutliveTheirGroup()
{
    MButton button;
    button.setCheckable(true);
    auto *group = new MButtonGroup;
    group->addButton(&button);
    button.setChecked(true);
    delete group;
    button.click();
    QVERIFY(!button.isChecked());
}

void ButtonTest::aGroupHandlerMayDeleteTheButton()
{
    Stage stage;
    MButtonGroup group;
    const QPointer<MButton> button = new MButton;
    stage.put(button, place);
    group.addButton(button, 4);
    connect(&group, QOverload<MButton *>::of(&MButtonGroup::buttonClicked), this, [&group](MButton *clicked) {
        group.removeButton(clicked);
        delete clicked;
    });
    QSignalSpy ids(&group, QOverload<int>::of(&MButtonGroup::buttonClicked));
    stage.finger.tap(inside);
    QVERIFY(!button);
    QCOMPARE(ids.value(0).value(0).toInt(), 4);
}

QTEST_MAIN(ButtonTest)
#include "tst_button.moc"
