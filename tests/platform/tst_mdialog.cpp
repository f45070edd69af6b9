// SPDX-License-Identifier: MIT
#include "mbutton.h"
#include "mdialog.h"
#include "mlabel.h"
#include "mmessagebox.h"
#include "mtextedit.h"
#include "softwarekeyboard.h"
#include "stage.h"

#include <QGestureEvent>
#include <QGraphicsScene>
#include <QGraphicsSceneWheelEvent>

#include <functional>
#include <memory>

namespace {

/// Counts whatever reaches it while a dialog lies over it.
class Ground : public MApplicationPage {
public:
    int heard = 0;

    Ground() { setAcceptTouchEvents(true); }

protected:
    bool event(QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::GraphicsSceneMousePress:
        case QEvent::GraphicsSceneMouseMove:
        case QEvent::GraphicsSceneMouseRelease:
        case QEvent::GraphicsSceneWheel:
        case QEvent::TouchBegin:
        case QEvent::KeyPress:
            ++heard;
            return true;
        default:
            return MApplicationPage::event(event);
        }
    }

    void gestureEvent(QGestureEvent *) override { ++heard; }
};

/// A dialog whose result somebody waits for, as an application writes it.
class Question : public MDialog {
public:
    QVector<int> results;

    Question()
        : MDialog("Question"_s, M::OkButton | M::CancelButton)
        , m_field(new MTextEdit(MTextEditModel::SingleLine))
    {
        setCentralWidget(m_field);
    }

    void done(int result) override
    {
        results.append(result);
        MDialog::done(result);
    }

    MTextEdit *field() const { return m_field; }

    MButton *button(const char *text) const
    {
        const auto buttons = only<MButton>(childItems());
        return *std::find_if(buttons.begin(), buttons.end(),
                             [text](const MButton *button) { return button->text() == QLatin1String(text); });
    }

private:
    MTextEdit *m_field;
};

using End = std::function<void(Question &)>;

} // namespace

Q_DECLARE_METATYPE(End)

class DialogTest : public QObject {
    Q_OBJECT

    std::unique_ptr<StageWith<Ground>> m_stage;

private slots:
    void init() { m_stage = std::make_unique<StageWith<Ground>>(); }
    void cleanup() { m_stage.reset(); }

    void leavesByFading()
    {
        const QImage without = m_stage->picture();
        MDialog dialog("Dialog"_s, M::OkButton);
        dialog.appear(&m_stage->window);
        QTRY_VERIFY(dialog.hasAppeared());
        m_stage->window.scene()->setFocusItem(nullptr);
        const QImage with = m_stage->picture();
        QVERIFY(with != without);
        dialog.setTitle("Other"_s);
        QVERIFY(m_stage->picture() != with);
        dialog.setTitle("Dialog"_s);
        dialog.dismiss();
        QCOMPARE(m_stage->picture(), with);
        QTRY_COMPARE(m_stage->picture(), without);
    }

    void endsOnceHoweverItEnds_data()
    {
        const Table<int, End> row("result", "end");
        const auto tap = [this](const char *text) -> End {
            return [this, text](Question &question) { m_stage->finger.tap(question.button(text)); };
        };
        const auto type = [this](Qt::Key key) -> End {
            return [this, key](Question &) { QTest::keyClick(&m_stage->window, key); };
        };
        row("OK", MDialog::Accepted, tap("OK"));
        row("Cancel", MDialog::Rejected, tap("Cancel"));
        row("Return", MDialog::Accepted, type(Qt::Key_Return));
        row("Escape", MDialog::Rejected, type(Qt::Key_Escape));
        row("Return with no focus", MDialog::Accepted, [this](Question &) {
            m_stage->window.scene()->setFocusItem(nullptr);
            QTest::keyClick(&m_stage->window, Qt::Key_Return);
        });
        row("accept() twice", MDialog::Accepted, [](Question &question) {
            question.accept();
            question.accept();
            question.reject();
        });
        row("dismiss()", MDialog::Rejected, [](Question &question) { question.dismiss(); });
        row("disappear()", MDialog::Rejected, [](Question &question) { question.disappear(); });
        row("window gone", MDialog::Rejected, [this](Question &) { m_stage.reset(); });
        row("dismissed by its own signal", MDialog::Accepted, [](Question &question) {
            connect(&question, &MSceneWindow::disappeared, &question, &MSceneWindow::dismiss);
            question.accept();
        });
    }

    void endsOnceHoweverItEnds()
    {
        QFETCH(End, end);
        QFETCH(int, result);
        Question question;
        question.appear(&m_stage->window);
        QTRY_VERIFY(question.hasAppeared());
        end(question);
        QCOMPARE(question.results, QVector<int>{result});
        QVERIFY(!question.isOnDisplay());

        MApplicationWindow another;
        question.appear(&another);
        question.accept();
        QCOMPARE(question.results, (QVector<int>{result, MDialog::Accepted}));
    }

    void nothingBeneathHearsAnything()
    {
        for (const QPointF onTheBoxOrBesideIt : {QPointF(240, 380), QPointF(60, 60)}) {
            MDialog dialog("Title"_s);
            dialog.appear(&m_stage->window);
            m_stage->page.heard = 0;
            for (Finger finger : {Finger(&m_stage->window), Finger(&m_stage->window, Finger::Touch)}) {
                finger.tap(onTheBoxOrBesideIt);
                finger.drag(onTheBoxOrBesideIt, onTheBoxOrBesideIt + QPointF(0, 100));
                finger.wheel(onTheBoxOrBesideIt, 1);
            }
            QTest::keyClicks(&m_stage->window, "abc"_s);
            QTest::keyClick(&m_stage->window, Qt::Key_Tab);
            QCOMPARE(m_stage->page.heard, 0);
            QVERIFY(dialog.isOnDisplay());

            dialog.dismiss();
            // Elsewhere: it is no second tap. The times of a test's touches and of its mouse are not of one clock.
            m_stage->finger.tap(onTheBoxOrBesideIt + QPointF(0, 60));
            QVERIFY2(m_stage->page.heard > 0, "the page must react at once, also while the dialog still fades");
        }
    }

    void focusGoesBackToWhereItWas()
    {
        MTextEdit field(MTextEditModel::SingleLine, QString(), m_stage->page.centralWidget());
        field.setGeometry(QRectF(20, 20, 400, 60));
        field.setFocus();
        QGraphicsItem *before = m_stage->window.scene()->focusItem();
        QVERIFY(before);
        Question first;
        Question second;
        first.appear(&m_stage->window);
        QTest::keyClicks(&m_stage->window, "1"_s);
        QGraphicsItem *inFirst = m_stage->window.scene()->focusItem();
        second.appear(&m_stage->window);
        QTest::keyClicks(&m_stage->window, "2"_s);
        second.accept();
        QCOMPARE(m_stage->window.scene()->focusItem(), inFirst);
        QTest::keyClicks(&m_stage->window, "3"_s);
        first.accept();
        QCOMPARE(m_stage->window.scene()->focusItem(), before);
        QTest::keyClicks(&m_stage->window, "4"_s);
        QCOMPARE(first.field()->text(), "13"_s);
        QCOMPARE(second.field()->text(), "2"_s);
        QCOMPARE(field.text(), "4"_s);
    }

    void focusSetOnThePageMeanwhileDoesNotLockTheDialog()
    {
        MTextEdit field(MTextEditModel::SingleLine, QString(), m_stage->page.centralWidget());
        Question question;
        question.appear(&m_stage->window);
        field.setFocus();
        QTest::keyClicks(&m_stage->window, "a"_s);
        QCOMPARE(field.text(), QString());
        QCOMPARE(question.field()->text(), "a"_s);
        QTest::keyClick(&m_stage->window, Qt::Key_Escape);
        QVERIFY(!question.isOnDisplay());
        QTest::keyClicks(&m_stage->window, "b"_s);
        QCOMPARE(field.text(), "b"_s);
    }

    void tabGoesRoundInside()
    {
        MButton beneath("Beneath"_s, m_stage->page.centralWidget());
        Question question;
        question.appear(&m_stage->window);
        QVector<QGraphicsItem *> visited;
        for (Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab}) {
            QTest::keyClick(&m_stage->window, key);
            visited.append(m_stage->window.scene()->focusItem());
        }
        QGraphicsItem *ok = question.button("OK");
        QCOMPARE(visited, (QVector<QGraphicsItem *>{ok, question.button("Cancel"), visited.at(2), ok, visited.at(2)}));
        QVERIFY(visited.at(2) && question.field()->isAncestorOf(visited.at(2)));
    }

    void keyHeldDownFromBeforeAnswersNothing()
    {
        MDialog dialog("Title"_s, M::OkButton);
        dialog.appear(&m_stage->window);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&m_stage->window, &held);
        QVERIFY(dialog.isOnDisplay());
    }

    void nextOneMayAppearFromItsSignals()
    {
        MMessageBox next("Next"_s);
        Question question;
        connect(&question, &MSceneWindow::disappeared, &next, [this, &next] { next.appear(&m_stage->window); });
        question.appear(&m_stage->window);
        QTRY_VERIFY(question.hasAppeared());
        QTest::keyClick(&m_stage->window, Qt::Key_Return);
        QVERIFY(next.isOnDisplay());
        QTest::keyClick(&m_stage->window, Qt::Key_Escape);
        QVERIFY(!next.isOnDisplay());
    }

    void makesRoomForTheSoftwareKeyboard()
    {
        HalfScreenKeyboard keyboard;
        keyboard.window = &m_stage->window;
        Question question;
        question.appear(&m_stage->window);
        QVERIFY2(keyboard.isInputPanelVisible(), "a field that has the focus asks for it");
        QVERIFY(question.button("OK")->geometry().bottom() < 407);
        keyboard.hideInputPanel();
        QVERIFY(question.button("OK")->geometry().bottom() > 407);
    }

    void messageBoxGrowsWithItsText()
    {
        const auto textHeight = [this](const QString &text) {
            MMessageBox box(text);
            box.appear(&m_stage->window);
            const QRectF label = box.centralWidget()->geometry();
            return label.intersected(QRectF(0, 0, 480, 814)) == label ? label.height() : -1;
        };
        const qreal one = textHeight("Short."_s);
        const qreal several = textHeight("This one takes several lines. "_s.repeated(5));
        QVERIFY(several > 2 * one);
        QVERIFY2(textHeight("Too long for any screen. "_s.repeated(500)) > several, "must stay inside");
    }
};

QTEST_MAIN(DialogTest)
#include "tst_mdialog.moc"
