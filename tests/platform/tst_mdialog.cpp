// SPDX-License-Identifier: MIT
#include "finger.h"
#include "mapplicationpage.h"
#include "mapplicationwindow.h"
#include "mbutton.h"
#include "mdialog.h"
#include "mlabel.h"
#include "mmessagebox.h"
#include "mtextedit.h"
#include "softwarekeyboard.h"

#include <QGestureEvent>
#include <QGraphicsScene>
#include <QGraphicsSceneWheelEvent>
#include <QTest>

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
        : MDialog(QStringLiteral("Question"), M::OkButton | M::CancelButton)
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
        for (QGraphicsItem *child : childItems()) {
            auto *button = qobject_cast<MButton *>(child->toGraphicsObject());
            if (button && button->text() == QLatin1String(text))
                return button;
        }
        return nullptr;
    }

private:
    MTextEdit *m_field;
};

QPointF centreOf(const QGraphicsItem *item)
{
    return item->sceneBoundingRect().center();
}

using End = std::function<void(std::unique_ptr<MApplicationWindow> &, Question &)>;

} // namespace

Q_DECLARE_METATYPE(End)

class DialogTest : public QObject {
    Q_OBJECT

    std::unique_ptr<MApplicationWindow> m_window;
    std::unique_ptr<Ground> m_ground;

private slots:
    void init()
    {
        m_window = std::make_unique<MApplicationWindow>();
        m_window->resize(240, 407);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_ground = std::make_unique<Ground>();
        m_ground->appear(m_window.get());
    }

    void cleanup()
    {
        m_window.reset();
        m_ground.reset();
    }

    void endsOnceHoweverItEnds_data()
    {
        QTest::addColumn<End>("end");
        QTest::addColumn<int>("result");
        const auto row = [](const char *name, int result, const End &end) { QTest::newRow(name) << end << result; };
        using Window = std::unique_ptr<MApplicationWindow>;
        const int accepted = MDialog::Accepted;
        const int rejected = MDialog::Rejected;
        row("OK", accepted, [](Window &w, Question &q) { Finger(w.get()).tap(centreOf(q.button("OK"))); });
        row("Cancel", rejected, [](Window &w, Question &q) { Finger(w.get()).tap(centreOf(q.button("Cancel"))); });
        row("Return", accepted, [](Window &w, Question &) { QTest::keyClick(w.get(), Qt::Key_Return); });
        row("Escape", rejected, [](Window &w, Question &) { QTest::keyClick(w.get(), Qt::Key_Escape); });
        row("Return with no focus", accepted, [](Window &w, Question &) {
            w->scene()->setFocusItem(nullptr);
            QTest::keyClick(w.get(), Qt::Key_Return);
        });
        row("accept() twice", accepted, [](Window &, Question &q) {
            q.accept();
            q.accept();
            q.reject();
        });
        row("dismiss()", rejected, [](Window &, Question &q) { q.dismiss(); });
        row("disappear()", rejected, [](Window &, Question &q) { q.disappear(); });
        row("window gone", rejected, [](Window &w, Question &) { w.reset(); });
        row("dismissed by its own signal", accepted, [](Window &, Question &q) {
            connect(&q, &MSceneWindow::disappeared, &q, &MSceneWindow::dismiss);
            q.accept();
        });
    }

    void endsOnceHoweverItEnds()
    {
        QFETCH(End, end);
        QFETCH(int, result);
        Question question;
        question.appear(m_window.get());
        QTRY_VERIFY(question.hasAppeared());
        end(m_window, question);
        QCOMPARE(question.results, QVector<int>{result});
        QVERIFY(!question.isOnDisplay());

        MApplicationWindow another;
        question.appear(&another);
        question.accept();
        QCOMPARE(question.results, (QVector<int>{result, MDialog::Accepted}));
    }

    void nothingBeneathHearsAnything_data()
    {
        QTest::addColumn<QPointF>("at");
        QTest::newRow("on the box") << QPointF(240, 380);
        QTest::newRow("beside it") << QPointF(60, 60);
    }

    void nothingBeneathHearsAnything()
    {
        QFETCH(QPointF, at);
        MDialog dialog(QStringLiteral("Title"));
        dialog.appear(m_window.get());
        m_ground->heard = 0;
        for (Finger finger : {Finger(m_window.get()), Finger(m_window.get(), Finger::Touch)}) {
            finger.tap(at);
            finger.drag(at, at + QPointF(0, 100));
            finger.wheel(at, 1);
        }
        QTest::keyClicks(m_window.get(), QStringLiteral("abc"));
        QTest::keyClick(m_window.get(), Qt::Key_Tab);
        QCOMPARE(m_ground->heard, 0);
        QVERIFY(dialog.isOnDisplay());

        dialog.dismiss();
        Finger(m_window.get()).tap(at);
        QVERIFY2(m_ground->heard > 0, "the page must react at once, also while the dialog still fades");
    }

    void focusGoesBackToWhereItWas()
    {
        MTextEdit field(MTextEditModel::SingleLine, QString(), m_ground->centralWidget());
        field.setGeometry(QRectF(20, 20, 400, 60));
        field.setFocus();
        QGraphicsItem *before = m_window->scene()->focusItem();
        QVERIFY(before);
        Question first;
        Question second;
        first.appear(m_window.get());
        QTest::keyClicks(m_window.get(), QStringLiteral("1"));
        QGraphicsItem *inFirst = m_window->scene()->focusItem();
        second.appear(m_window.get());
        QTest::keyClicks(m_window.get(), QStringLiteral("2"));
        second.accept();
        QCOMPARE(m_window->scene()->focusItem(), inFirst);
        QTest::keyClicks(m_window.get(), QStringLiteral("3"));
        first.accept();
        QCOMPARE(m_window->scene()->focusItem(), before);
        QTest::keyClicks(m_window.get(), QStringLiteral("4"));
        QCOMPARE(first.field()->text(), QStringLiteral("13"));
        QCOMPARE(second.field()->text(), QStringLiteral("2"));
        QCOMPARE(field.text(), QStringLiteral("4"));
    }

    void focusSetOnThePageMeanwhileDoesNotLockTheDialog()
    {
        MTextEdit field(MTextEditModel::SingleLine, QString(), m_ground->centralWidget());
        Question question;
        question.appear(m_window.get());
        field.setFocus();
        QTest::keyClicks(m_window.get(), QStringLiteral("a"));
        QCOMPARE(field.text(), QString());
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        QVERIFY(!question.isOnDisplay());
    }

    void tabGoesRoundInside()
    {
        MButton beneath(QStringLiteral("Beneath"), m_ground->centralWidget());
        Question question;
        question.appear(m_window.get());
        QVector<QGraphicsItem *> visited;
        for (Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab}) {
            QTest::keyClick(m_window.get(), key);
            visited.append(m_window->scene()->focusItem());
        }
        QGraphicsItem *ok = question.button("OK");
        QCOMPARE(visited, (QVector<QGraphicsItem *>{ok, question.button("Cancel"), visited.at(2), ok, visited.at(2)}));
        QVERIFY(visited.at(2) && question.field()->isAncestorOf(visited.at(2)));
    }

    void keyHeldDownFromBeforeAnswersNothing()
    {
        MDialog dialog(QStringLiteral("Title"), M::OkButton);
        dialog.appear(m_window.get());
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(m_window.get(), &held);
        QVERIFY(dialog.isOnDisplay());
    }

    void mayBeDestroyedFromItsOwnSignals_data()
    {
        QTest::addColumn<bool>("byTap");
        QTest::newRow("by a tap on OK") << true;
        QTest::newRow("by Return") << false;
    }

    void mayBeDestroyedFromItsOwnSignals()
    {
        QFETCH(bool, byTap);
        QPointer<Question> question = new Question;
        connect(question, &MSceneWindow::disappeared, this, [&question] { delete question; });
        question->appear(m_window.get());
        QTRY_VERIFY(question->hasAppeared());
        byTap ? Finger(m_window.get()).tap(centreOf(question->button("OK")))
              : QTest::keyClick(m_window.get(), Qt::Key_Return);
        QVERIFY(!question);
        Finger(m_window.get()).tap({5, 5});
    }

    void nextOneMayAppearFromItsSignals()
    {
        MMessageBox next(QStringLiteral("Next"));
        Question question;
        connect(&question, &MSceneWindow::disappeared, &next, [this, &next] { next.appear(m_window.get()); });
        question.appear(m_window.get());
        QTRY_VERIFY(question.hasAppeared());
        QTest::keyClick(m_window.get(), Qt::Key_Return);
        QVERIFY(next.isOnDisplay());
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        QVERIFY(!next.isOnDisplay());
    }

    void makesRoomForTheSoftwareKeyboard()
    {
        HalfScreenKeyboard keyboard;
        keyboard.window = m_window.get();
        Question question;
        question.appear(m_window.get());
        QVERIFY2(keyboard.isInputPanelVisible(), "a field that has the focus asks for it");
        keyboard.emitKeyboardRectChanged();
        QVERIFY(question.button("OK")->geometry().bottom() < 407);
        keyboard.hideInputPanel();
        keyboard.emitInputPanelVisibleChanged();
        QVERIFY(question.button("OK")->geometry().bottom() > 407);
    }

    void messageBoxGrowsWithItsText()
    {
        const auto textHeight = [this](const QString &text) {
            MMessageBox box(text);
            box.appear(m_window.get());
            const QRectF label = box.centralWidget()->geometry();
            return label.intersected(QRectF(0, 0, 480, 814)) == label ? label.height() : -1;
        };
        const qreal one = textHeight(QStringLiteral("Short."));
        const qreal several = textHeight(QStringLiteral("This one takes several lines. ").repeated(5));
        QVERIFY(several > 2 * one);
        QVERIFY2(textHeight(QStringLiteral("Too long for any screen. ").repeated(500)) > several, "must stay inside");
    }
};

QTEST_MAIN(DialogTest)
#include "tst_mdialog.moc"
