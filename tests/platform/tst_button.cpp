// SPDX-License-Identifier: MIT
#include "mbutton.h"
#include "mbuttongroup.h"
#include "stage.h"

#include <QSignalSpy>

namespace {

/// A button on a stage, which writes down what it tells, in order.
class TellingButton : public MButton {
public:
    QStringList said;

    explicit TellingButton(Stage *stage = nullptr)
    {
        connect(this, &MButton::pressed, [this] { said.append(QStringLiteral("pressed")); });
        connect(this, &MButton::released, [this] { said.append(QStringLiteral("released")); });
        connect(this, &MButton::toggled, [this](bool on) { said.append(QLatin1String(on ? "on" : "off")); });
        connect(this, &MButton::clicked,
                [this](bool checked) { said.append(QLatin1String(checked ? "clicked checked" : "clicked")); });
        if (stage)
            stage->put(this, QRectF(100, 100, 120, 40));
    }

    int clicks() const { return said.count(QStringLiteral("clicked")); }

    QString takeSaid()
    {
        const QString all = said.join(QLatin1Char(' '));
        said.clear();
        return all;
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

const QPointF inside(130, 115);
const QPointF beside(130, 160);

} // namespace

class ButtonTest : public QObject {
    Q_OBJECT

private slots:
    void aTapClicks_data() { addFingerKinds(); }
    void aTapClicks()
    {
        QFETCH(Finger::Kind, kind);
        Stage stage(kind);
        stage.put(new TouchTaker, QRectF(0, 150, 480, 300));
        stage.finger.tap(beside);
        auto *button = new TellingButton(&stage);

        stage.finger.press(inside);
        QVERIFY(button->isDown());
        QCOMPARE(button->takeSaid(), QStringLiteral("pressed"));
        stage.finger.release();
        QVERIFY(!button->isDown());
        QCOMPARE(button->takeSaid(), QStringLiteral("released clicked"));
    }

    void reactsAroundWhatIsDrawnUnlessAnotherIsNearer_data()
    {
        QTest::addColumn<QPointF>("tap");
        QTest::addColumn<int>("hit"); // 0 none, 1 the first, 2 the second
        QTest::newRow("left of it") << QPointF(91.5, 115) << 1;
        QTest::newRow("too far left") << QPointF(90.5, 115) << 0;
        QTest::newRow("above") << QPointF(115, 91.5) << 1;
        QTest::newRow("too far below") << QPointF(115, 139.5) << 0;
        QTest::newRow("between, nearer to the first") << QPointF(133, 115) << 1;
        QTest::newRow("between, nearer to the second") << QPointF(138, 115) << 2;
        QTest::newRow("where one is hidden") << QPointF(119, 132) << 1;
    }
    void reactsAroundWhatIsDrawnUnlessAnotherIsNearer()
    {
        QFETCH(QPointF, tap);
        Stage stage;
        auto *first = new TellingButton;
        auto *second = new TellingButton;
        auto *hidden = new TellingButton;
        stage.put(first, QRectF(100, 100, 31, 30));
        stage.put(second, QRectF(141, 100, 31, 30));
        stage.put(hidden, QRectF(100, 133, 31, 30));
        hidden->hide();
        stage.finger.tap(tap);
        QTEST(first->clicks() + 2 * second->clicks(), "hit");
    }

    void leavingCancels()
    {
        Stage stage;
        auto *button = new TellingButton(&stage);
        stage.finger.press(inside);
        stage.finger.move(beside);
        QVERIFY(!button->isDown());
        stage.finger.release();
        QCOMPARE(button->clicks(), 0);

        stage.finger.press(inside);
        stage.finger.move(beside);
        stage.finger.move(inside);
        QVERIFY(button->isDown());
        stage.finger.release();
        QCOMPARE(button->clicks(), 1);
    }

    void losingTheMouseCancels_data()
    {
        QTest::addColumn<bool>("byHiding");
        QTest::newRow("hidden") << true;
        QTest::newRow("disabled") << false;
    }

    void losingTheMouseCancels()
    {
        QFETCH(bool, byHiding);
        Stage stage;
        auto *button = new TellingButton(&stage);
        stage.finger.press(inside);
        byHiding ? button->hide() : button->setEnabled(false);
        QVERIFY(!button->isDown());
        QCOMPARE(button->takeSaid(), QStringLiteral("pressed released"));
        byHiding ? button->show() : button->setEnabled(true);
        stage.finger.release();
        QCOMPARE(button->clicks(), 0);
    }

    void aDoubleClickIsTwoClicks()
    {
        Stage stage;
        auto *button = new TellingButton(&stage);
        stage.finger.tap(inside);
        QTest::mouseDClick(stage.window.viewport(), Qt::LeftButton, {}, stage.window.mapFromScene(inside));
        stage.finger.release();
        QCOMPARE(button->clicks(), 2);
    }

    void keysClickOnceTabHasLedThere()
    {
        Stage stage;
        auto *button = new TellingButton(&stage);
        stage.finger.tap(inside);
        QVERIFY(!button->hasFocus());
        QTest::keyClick(&stage.window, Qt::Key_Tab);
        QVERIFY(button->hasFocus());
        button->said.clear();

        QTest::keyPress(&stage.window, Qt::Key_Space);
        QVERIFY(button->isDown());
        QCOMPARE(button->clicks(), 0);
        QTest::keyRelease(&stage.window, Qt::Key_Space);
        QCOMPARE(button->clicks(), 1);
        QTest::keyClick(&stage.window, Qt::Key_Return);
        QTest::keyClick(&stage.window, Qt::Key_Enter);
        QCOMPARE(button->clicks(), 3);

        QTest::keyPress(&stage.window, Qt::Key_Space);
        button->clearFocus();
        QVERIFY(!button->isDown());
        QTest::keyRelease(&stage.window, Qt::Key_Space);
        QCOMPARE(button->clicks(), 3);
    }

    void aHandlerMayDeleteTheButton_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("pressed") << 0;
        QTest::newRow("toggled") << 1;
        QTest::newRow("released") << 2;
        QTest::newRow("clicked") << 3;
    }

    void aHandlerMayDeleteTheButton()
    {
        QFETCH(int, signal);
        Stage stage;
        const QPointer<MButton> button = new TellingButton(&stage);
        button->setCheckable(true);
        const auto destroyAt = [&](int number) {
            if (number == signal)
                delete button;
        };
        connect(button, &MButton::pressed, this, [&] { destroyAt(0); });
        connect(button, &MButton::toggled, this, [&] { destroyAt(1); });
        connect(button, &MButton::released, this, [&] { destroyAt(2); });
        connect(button, &MButton::clicked, this, [&] { destroyAt(3); });
        stage.finger.tap(inside);
        QVERIFY(!button);
    }

    void checking()
    {
        TellingButton button;
        button.click();
        button.setChecked(true);
        QVERIFY(!button.isChecked());

        button.setCheckable(true);
        button.said.clear();
        button.click();
        QCOMPARE(button.takeSaid(), QStringLiteral("on released clicked checked"));
        button.click();
        QVERIFY(!button.isChecked());
        QCOMPARE(button.takeSaid(), QStringLiteral("off released clicked"));
        button.setChecked(true);
        button.setCheckable(false);
        QVERIFY(!button.isChecked());
    }

    void exclusiveGroupKeepsOneChecked()
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
        QVERIFY(b.isChecked());

        a.click();
        QVERIFY(a.isChecked() && !b.isChecked());
        a.click();
        QVERIFY(a.isChecked());
        plain.click();
        QVERIFY(a.isChecked());
    }

    void groupAndButtonsOutliveEachOther()
    {
        auto *group = new MButtonGroup;
        MButton stays;
        stays.setCheckable(true);
        auto *goes = new MButton;
        group->addButton(goes, 3);
        group->addButton(&stays);
        delete goes;
        QCOMPARE(group->button(3), nullptr);
        stays.setChecked(true);
        delete group;
        stays.click();
        QVERIFY(!stays.isChecked());
    }

    void aGroupHandlerMayDeleteTheButton()
    {
        Stage stage;
        MButtonGroup group;
        const QPointer<MButton> button = new TellingButton(&stage);
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
};

QTEST_MAIN(ButtonTest)
#include "tst_button.moc"
