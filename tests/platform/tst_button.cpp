// SPDX-License-Identifier: MIT
#include "mbutton.h"
#include "mbuttongroup.h"
#include "mdialog.h"
#include "mfocusring.h"
#include "mprogressindicator.h"
#include "stage.h"

namespace {

/// A button on a stage, which writes down what it tells, in order.
class TellingButton : public MButton {
public:
    QStringList said;

    explicit TellingButton(Stage *stage = nullptr)
    {
        connect(this, &MButton::pressed, [this] { said.append("pressed"_s); });
        connect(this, &MButton::released, [this] { said.append("released"_s); });
        connect(this, &MButton::toggled, [this](bool on) { said.append(QLatin1String(on ? "on" : "off")); });
        connect(this, &MButton::clicked,
                [this](bool checked) { said.append(QLatin1String(checked ? "clicked checked" : "clicked")); });
        if (stage)
            stage->put(this, QRectF(100, 100, 120, 40));
    }

    int clicks() const { return said.count("clicked"_s); }

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
const QRectF spinnerPlace(190, 320, 80, 80);

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
        stage.finger.move(inside + QPointF(2, 2));
        QVERIFY(button->isDown());
        QCOMPARE(button->takeSaid(), "pressed"_s);
        stage.finger.release();
        QVERIFY(!button->isDown());
        QCOMPARE(button->takeSaid(), "released clicked"_s);
    }

    void reactsAroundWhatIsDrawnUnlessAnotherIsNearer()
    {
        Stage stage;
        auto *first = new TellingButton;
        auto *above = new TellingButton;
        auto *wide = new TellingButton;
        auto *second = new TellingButton;
        auto *hidden = new TellingButton;
        stage.put(first, QRectF(100, 100, 31, 30));
        stage.put(above, QRectF(141, 62, 31, 30));
        stage.put(wide, QRectF(141, 138, 120, 30));
        stage.put(second, QRectF(141, 100, 31, 30));
        stage.put(hidden, QRectF(100, 133, 31, 30));
        hidden->hide();
        using Hits = QVector<int>;
        for (const auto &[tap, hits] : {std::pair(QPointF(91.5, 115), Hits{1, 0}),
                                        {QPointF(90.5, 115), Hits{0, 0}}, // too far left
                                        {QPointF(115, 91.5), Hits{1, 0}},
                                        {QPointF(115, 139.5), Hits{0, 0}}, // too far below
                                        {QPointF(133, 115), Hits{1, 0}}, // between the two
                                        {QPointF(138, 115), Hits{0, 1}},
                                        {QPointF(156, 98), Hits{0, 1}},
                                        {QPointF(156, 94), Hits{0, 0}}, // nearer to the one above
                                        {QPointF(156, 136), Hits{0, 0}}, // nearer to the wide one below
                                        {QPointF(119, 132), Hits{1, 0}}}) { // where one is hidden
            const Hits before{first->clicks(), second->clicks()};
            stage.finger.tap(tap);
            QCOMPARE((Hits{first->clicks() - before[0], second->clicks() - before[1]}), hits);
        }
        stage.finger.tap({200, 134});
        QCOMPARE(wide->clicks(), 2);
    }

    void leavingAndLosingTheMouseCancel()
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

        button->said.clear();
        for (const bool byHiding : {true, false}) {
            stage.finger.press(inside);
            byHiding ? button->hide() : button->setEnabled(false);
            QVERIFY(!button->isDown());
            QCOMPARE(button->takeSaid(), "pressed released"_s);
            byHiding ? button->show() : button->setEnabled(true);
            stage.finger.release();
            QCOMPARE(button->clicks(), 0);
        }
    }

    void keysClickOnceTabHasLedThere()
    {
        Stage stage;
        auto *button = new TellingButton(&stage);
        stage.finger.tap(inside);
        QVERIFY(!button->hasFocus());
        const auto isRinged = [button] { return !only<MFocusRing>(button->childItems()).isEmpty(); };
        button->setFocus();
        QVERIFY(!isRinged());
        button->clearFocus();
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            button->clearFocus();
            QTest::keyClick(&stage.window, key);
            QVERIFY(button->hasFocus() && isRinged());
        }
        MDialog dialog;
        dialog.appear(&stage.window);
        QVERIFY(!isRinged());
        dialog.dismiss();
        QVERIFY(button->hasFocus() && isRinged());
        button->resize(130, 40);
        QVERIFY(isRinged());
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
        button->setFocus();
        QTest::keyRelease(&stage.window, Qt::Key_Space);
        QCOMPARE(button->clicks(), 3);
        QTest::keyPress(&stage.window, Qt::Key_Space);
        button->click();
        QTest::keyRelease(&stage.window, Qt::Key_Space);
        QCOMPARE(button->clicks(), 4);
    }

    void aHandlerMayDeleteTheButton()
    {
        for (int last = 0; last < 5; ++last) {
            Stage stage;
            MButtonGroup group;
            const QPointer<MButton> button = new TellingButton(&stage);
            button->setCheckable(true);
            int told = 0;
            const auto deleteAtLast = [&] {
                if (told++ == last)
                    delete button;
            };
            connect(button, &MButton::pressed, this, deleteAtLast);
            connect(button, &MButton::toggled, this, deleteAtLast);
            connect(button, &MButton::released, this, deleteAtLast);
            connect(button, &MButton::clicked, this, deleteAtLast);
            group.addButton(button, 4);
            connect(&group, QOverload<MButton *>::of(&MButtonGroup::buttonClicked), this, deleteAtLast);
            QSignalSpy ids(&group, QOverload<int>::of(&MButtonGroup::buttonClicked));
            stage.finger.tap(inside);
            QVERIFY(!button);
            QCOMPARE(told, last + 1);
            QCOMPARE(ids.value(0).value(0).toInt(), last == 4 ? 4 : 0);
        }
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
        QCOMPARE(button.takeSaid(), "on released clicked checked"_s);
        button.click();
        QVERIFY(!button.isChecked());
        QCOMPARE(button.takeSaid(), "off released clicked"_s);
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

    void spinnerTurnsOnlyWhileItIsSeen()
    {
        Stage stage;
        auto *spinner = new MProgressIndicator;
        spinner->setUnknownDuration(true);
        QVERIFY(!spinner->isSpinning());
        stage.put(spinner, spinnerPlace);
        QVERIFY(spinner->isSpinning());
        const QImage before = stage.picture(spinner);
        QCOMPARE(before.pixel(75, 60), before.pixel(5, 20)); // its plate, on both sides
        QTRY_VERIFY(stage.picture(spinner) != before);

        stage.page.hide();
        QVERIFY(!spinner->isSpinning());
        stage.page.show();
        QVERIFY(spinner->isSpinning());
        stage.window.hide();
        QTRY_VERIFY(!spinner->isSpinning());
        stage.window.show();
        QTRY_VERIFY(spinner->isSpinning());
        spinner->setUnknownDuration(false);
        QVERIFY(!spinner->isSpinning());
    }
};

QTEST_MAIN(ButtonTest)
#include "tst_button.moc"
