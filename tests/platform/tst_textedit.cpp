// SPDX-License-Identifier: MIT
#include "mbutton.h"
#include "minputmethodstate.h"
#include "mpopuplist.h"
#include "mtextedit.h"
#include "softwarekeyboard.h"
#include "stage.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodQueryEvent>

namespace {

const QRectF linePlace(10, 100, 460, 48);
const QRectF areaPlace(10, 310, 460, 480);

MTextEdit *editOn(Stage &stage, MTextEditModel::LineMode mode, const QString &text = QString())
{
    auto *edit = new MTextEdit(mode, text);
    stage.put(edit, mode == MTextEditModel::SingleLine ? linePlace : areaPlace);
    return edit;
}

/// Keys that came back from the focused item, as the item around it sees them.
class KeyWitness : public QGraphicsWidget {
public:
    QVector<int> pressed;
    QVector<int> released;

protected:
    void keyPressEvent(QKeyEvent *event) override { pressed.append(event->key()); }
    void keyReleaseEvent(QKeyEvent *event) override { released.append(event->key()); }
};

const auto lineModes = {MTextEditModel::SingleLine, MTextEditModel::MultiLine};

} // namespace

class TextEditTest : public QObject {
    Q_OBJECT

private slots:
    void takesWhatIsWritten()
    {
        for (const MTextEditModel::LineMode mode : lineModes) {
            Stage stage;
            MTextEdit *edit = editOn(stage, mode);
            QSignalSpy changed(edit, &MTextEdit::textChanged);
            SoftwareKeyboard keyboard;
            const QPointF inEdit = edit->sceneBoundingRect().center();
            stage.finger.tap(edit->sceneBoundingRect().topLeft() + QPointF(2, 20)); // its edge
            QVERIFY(edit->hasFocus() && keyboard.isInputPanelVisible());
            QTest::keyClicks(&stage.window, "Hi!"_s);
            QCOMPARE(edit->text(), "Hi!"_s);
            QCOMPARE(changed.count(), 3);
            edit->clear();
            QCOMPARE(edit->text(), QString());
            QCOMPARE(changed.count(), 4);

            MInputMethodState::closeSoftwareInputPanel();
            QVERIFY(edit->hasFocus() && !keyboard.isInputPanelVisible());
            stage.finger.tap(inEdit);
            QVERIFY(keyboard.isInputPanelVisible());
            QInputMethodEvent event("preedit"_s, {});
            event.setCommitString("你好 "_s);
            QCoreApplication::sendEvent(QGuiApplication::focusObject(), &event);
            QCOMPARE(edit->text(), "你好 "_s);
        }
    }

    void keepsItsText()
    {
        const auto kept
            = [](MTextEditModel::LineMode mode, const QString &text) { return MTextEdit(mode, text).text(); };
        const QString special = "a&b=<i>c</i> é€😀"_s;
        const QString lines = "\none\n\n two \n"_s;
        QCOMPARE(kept(MTextEditModel::SingleLine, special), special);
        QCOMPARE(kept(MTextEditModel::MultiLine, special), special);
        QCOMPARE(kept(MTextEditModel::MultiLine, lines), lines);
        QCOMPARE(kept(MTextEditModel::SingleLine, "a\r\nb\nc\rd\u2028e\u2029f"_s), "a b c d e f"_s);
        QVERIFY(MTextEdit(MTextEditModel::SingleLine).preferredHeight()
                < MTextEdit(MTextEditModel::MultiLine).preferredHeight());
    }

    void returnGoesOnToTheParent()
    {
        for (const MTextEditModel::LineMode mode : lineModes) {
            const bool single = mode == MTextEditModel::SingleLine;
            Stage stage;
            auto *witness = new KeyWitness;
            stage.put(witness, QRectF(0, 0, 480, 814));
            MTextEdit *edit = editOn(stage, mode);
            edit->setParentItem(witness);
            edit->setFocus();
            QSignalSpy returned(edit, &MTextEdit::returnPressed);

            QTest::keyClick(&stage.window, Qt::Key_A);
            QTest::keyClick(&stage.window, Qt::Key_Return);
            QCOMPARE(witness->released.count(Qt::Key_Return), 1);
            // The press is the single line's way to accept a dialog, and a line break elsewhere.
            QCOMPARE(witness->pressed, single ? QVector<int>{Qt::Key_Return} : QVector<int>());
            QCOMPARE(returned.count(), single ? 1 : 0);
            QCOMPARE(edit->text(), single ? "a"_s : "a\n"_s);
            QTest::keyClick(&stage.window, Qt::Key_F5);
            QCOMPARE(witness->pressed.count(Qt::Key_F5), 1);
        }
    }

    void contentTypeChoosesTheKeys()
    {
        Stage stage;
        MTextEdit *edit = editOn(stage, MTextEditModel::SingleLine);
        edit->setFocus();
        const auto hints = [&](M::TextContentType type) {
            edit->setContentType(type);
            QInputMethodQueryEvent query(Qt::ImEnabled | Qt::ImHints);
            QCoreApplication::sendEvent(&stage.window, &query);
            return query.value(Qt::ImEnabled).toBool() ? query.value(Qt::ImHints).toInt() : -1;
        };
        const int typed = Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText;
        QCOMPARE(hints(M::FreeTextContentType) & typed, 0);
        const int address = typed | Qt::ImhEmailCharactersOnly;
        QCOMPARE(hints(M::EmailContentType) & address, address);
        QTest::keyClicks(&stage.window, "x 1"_s);
        QCOMPARE(edit->text(), "x 1"_s);
    }

    void hiddenKeepsNoFocus()
    {
        Stage stage;
        MButton button;
        stage.put(&button, QRectF(10, 10, 120, 40));
        MTextEdit *edit = editOn(stage, MTextEditModel::MultiLine);
        edit->setFocus();
        edit->hide();
        QVERIFY(!stage.window.scene()->focusItem());
        edit->show();
        QVERIFY(!stage.window.scene()->focusItem());
    }

    void aFingerPansAMouseSelects_data() { addFingerKinds(); }
    void aFingerPansAMouseSelects()
    {
        QFETCH(Finger::Kind, kind);
        Stage stage(kind);
        MTextEdit *edit = editOn(stage, MTextEditModel::MultiLine, "0\n"_s.repeated(100));
        const QPointF firstLine(300, 322);
        stage.finger.tap(firstLine);
        QTest::keyClicks(&stage.window, "y"_s);
        QVERIFY(edit->text().startsWith("0y\n"_s));

        const QImage top = stage.picture(edit);
        stage.dragSlowly(QPointF(100, 560), QPointF(100, 360));
        QVERIFY(stage.picture(edit) != top);
        stage.finger.release();
        QTest::keyClick(&stage.window, Qt::Key_Delete);
        // What goes is the break at the cursor, which the finger has left alone, or what the mouse has selected.
        if (kind == Finger::Touch)
            QVERIFY(edit->text().startsWith("0y0\n"_s));
        else
            QVERIFY(edit->text().count(QLatin1Char('\n')) < 98);
    }

    void menuSpeaksTheLanguage()
    {
        for (const auto &[mode, language, expected] :
             {std::tuple(MTextEditModel::SingleLine, QLocale::German, "Einfügen, Alles auswählen"_s),
              {MTextEditModel::MultiLine, QLocale::French, "Coller, Tout sélectionner"_s}}) {
            QLocale::setDefault(language);
            Stage stage;
            MTextEdit *edit = editOn(stage, mode, "words"_s);
            QGuiApplication::clipboard()->setText("other "_s);
            stage.finger.tap(edit->sceneBoundingRect().topLeft() + QPointF(8, 20));
            const QPoint place = stage.window.mapFromScene(edit->sceneBoundingRect().center());
            QContextMenuEvent event(QContextMenuEvent::Mouse, place, stage.window.mapToGlobal(place));
            QCoreApplication::sendEvent(stage.window.viewport(), &event);
            const QPointer<MPopupList> list = qobject_cast<MPopupList *>(stage.window.topPanel());
            QVERIFY(list);
            QStringList rows;
            for (int row = 0; row < list->itemModel()->rowCount(); ++row)
                rows << list->itemModel()->index(row, 0).data().toString();
            QCOMPARE(rows.join(", "_s), expected);
            list->pick(0);
            QCOMPARE(edit->text(), "other words"_s);
            QVERIFY(edit->hasFocus());
            QTRY_VERIFY(!list);
        }
    }
};

QTEST_MAIN(TextEditTest)
#include "tst_textedit.moc"
