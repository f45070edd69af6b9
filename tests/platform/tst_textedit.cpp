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
#include <QSignalSpy>

Q_DECLARE_METATYPE(MTextEditModel::LineMode)
Q_DECLARE_METATYPE(M::TextContentType)
Q_DECLARE_METATYPE(Qt::InputMethodHints)

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

void addLineModes()
{
    QTest::addColumn<MTextEditModel::LineMode>("mode");
    QTest::newRow("single line") << MTextEditModel::SingleLine;
    QTest::newRow("multi-line") << MTextEditModel::MultiLine;
}

} // namespace

class TextEditTest : public QObject {
    Q_OBJECT

private slots:
    void takesTyping_data() { addLineModes(); }
    void takesTyping()
    {
        QFETCH(MTextEditModel::LineMode, mode);
        Stage stage;
        MTextEdit *edit = editOn(stage, mode);
        QSignalSpy changed(edit, &MTextEdit::textChanged);
        stage.finger.tap(edit->sceneBoundingRect().center());
        QVERIFY(edit->hasFocus());
        QTest::keyClicks(&stage.window, QStringLiteral("Hi!"));
        QCOMPARE(edit->text(), QStringLiteral("Hi!"));
        QCOMPARE(changed.count(), 3);
        edit->clear();
        QCOMPARE(edit->text(), QString());
        QCOMPARE(changed.count(), 4);
    }

    void keepsItsText_data()
    {
        QTest::addColumn<MTextEditModel::LineMode>("mode");
        QTest::addColumn<QString>("set");
        QTest::addColumn<QString>("kept");
        const QString special = QStringLiteral("a&b=<i>c</i> \u00e9\u20ac\U0001f600");
        const QString lines = QStringLiteral("\none\n\n two \n");
        QTest::newRow("line, special") << MTextEditModel::SingleLine << special << special;
        QTest::newRow("area, special") << MTextEditModel::MultiLine << special << special;
        QTest::newRow("area, breaks") << MTextEditModel::MultiLine << lines << lines;
        QTest::newRow("line, breaks") << MTextEditModel::SingleLine << QStringLiteral("a\nb") << QStringLiteral("a b");
    }

    void keepsItsText()
    {
        QFETCH(MTextEditModel::LineMode, mode);
        QFETCH(QString, set);
        QFETCH(QString, kept);
        MTextEdit edit(mode, set);
        QCOMPARE(edit.text(), kept);
    }

    void returnGoesOnToTheParent_data() { addLineModes(); }
    void returnGoesOnToTheParent()
    {
        QFETCH(MTextEditModel::LineMode, mode);
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
        QCOMPARE(edit->text(), single ? QStringLiteral("a") : QStringLiteral("a\n"));
        QTest::keyClick(&stage.window, Qt::Key_F5);
        QCOMPARE(witness->pressed.count(Qt::Key_F5), 1);
    }

    void contentTypeChoosesTheKeys_data()
    {
        QTest::addColumn<M::TextContentType>("type");
        QTest::addColumn<Qt::InputMethodHints>("with");
        QTest::addColumn<Qt::InputMethodHints>("without");
        const Qt::InputMethodHints typed = Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText;
        const Qt::InputMethodHints none;
        QTest::newRow("text") << M::FreeTextContentType << none << typed;
        QTest::newRow("e-mail") << M::EmailContentType << (typed | Qt::ImhEmailCharactersOnly) << none;
    }

    void contentTypeChoosesTheKeys()
    {
        QFETCH(M::TextContentType, type);
        QFETCH(Qt::InputMethodHints, with);
        QFETCH(Qt::InputMethodHints, without);
        Stage stage;
        MTextEdit *edit = editOn(stage, MTextEditModel::SingleLine);
        edit->setFocus();
        edit->setContentType(type);
        QInputMethodQueryEvent query(Qt::ImEnabled | Qt::ImHints);
        QCoreApplication::sendEvent(&stage.window, &query);
        QVERIFY(query.value(Qt::ImEnabled).toBool());
        const Qt::InputMethodHints hints(query.value(Qt::ImHints).toInt());
        QCOMPARE(hints & with, with);
        QVERIFY(!(hints & without));
        QTest::keyClicks(&stage.window, QStringLiteral("x 1"));
        QCOMPARE(edit->text(), QStringLiteral("x 1"));
    }

    void asksForTheSoftwareKeyboard_data() { addLineModes(); }
    void asksForTheSoftwareKeyboard()
    {
        QFETCH(MTextEditModel::LineMode, mode);
        Stage stage;
        MTextEdit *edit = editOn(stage, mode);
        SoftwareKeyboard keyboard;
        const QPointF inEdit = edit->sceneBoundingRect().center();
        stage.finger.tap(inEdit);
        QVERIFY(keyboard.isInputPanelVisible());
        MInputMethodState::closeSoftwareInputPanel();
        QVERIFY(!keyboard.isInputPanelVisible());
        QVERIFY(edit->hasFocus());
        stage.finger.tap(inEdit);
        QVERIFY(keyboard.isInputPanelVisible());
    }

    void takesWhatAnInputMethodWrites_data() { addLineModes(); }
    void takesWhatAnInputMethodWrites()
    {
        QFETCH(MTextEditModel::LineMode, mode);
        Stage stage;
        MTextEdit *edit = editOn(stage, mode);
        edit->setFocus();
        QInputMethodEvent event(QStringLiteral("preedit"), {});
        event.setCommitString(QStringLiteral("\u4f60\u597d "));
        QCoreApplication::sendEvent(QGuiApplication::focusObject(), &event);
        QCOMPARE(edit->text(), QStringLiteral("\u4f60\u597d "));
    }

    void aFingerPansAMouseSelects_data() { addFingerKinds(); }
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

    void aFingerPansAMouseSelects()
    {
        QFETCH(Finger::Kind, kind);
        Stage stage(kind);
        MTextEdit *edit = editOn(stage, MTextEditModel::MultiLine, QStringLiteral("0\n").repeated(100));
        const QPointF firstLine(300, 322);
        stage.finger.tap(firstLine);
        QTest::keyClicks(&stage.window, QStringLiteral("y"));
        QVERIFY(edit->text().startsWith(QLatin1String("0y\n")));

        const QImage top = stage.picture(edit);
        stage.dragSlowly(QPointF(100, 560), QPointF(100, 360));
        QVERIFY(stage.picture(edit) != top);
        stage.finger.release();
        QTest::keyClick(&stage.window, Qt::Key_Delete);
        // What goes is the break at the cursor, which the finger has left alone, or what the mouse has selected.
        if (kind == Finger::Touch)
            QVERIFY(edit->text().startsWith(QLatin1String("0y0\n")));
        else
            QVERIFY(edit->text().count(QLatin1Char('\n')) < 98);
    }

    void menuSpeaksTheLanguage_data()
    {
        QTest::addColumn<MTextEditModel::LineMode>("mode");
        QTest::addColumn<QLocale::Language>("language");
        QTest::addColumn<QStringList>("rows");
        QTest::newRow("line") << MTextEditModel::SingleLine << QLocale::German
                              << QStringList{QStringLiteral("Einfügen"), QStringLiteral("Alles auswählen")};
        QTest::newRow("area") << MTextEditModel::MultiLine << QLocale::French
                              << QStringList{QStringLiteral("Coller"), QStringLiteral("Tout sélectionner")};
    }
    void menuSpeaksTheLanguage()
    {
        QFETCH(MTextEditModel::LineMode, mode);
        QFETCH(QLocale::Language, language);
        QLocale::setDefault(language);
        Stage stage;
        MTextEdit *edit = editOn(stage, mode, QStringLiteral("words"));
        QGuiApplication::clipboard()->setText(QStringLiteral("other "));
        stage.finger.tap(edit->sceneBoundingRect().topLeft() + QPointF(8, 20));
        const QPoint place = stage.window.mapFromScene(edit->sceneBoundingRect().center());
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, stage.window.mapToGlobal(place));
        QCoreApplication::sendEvent(stage.window.viewport(), &event);
        const QPointer<MPopupList> list = qobject_cast<MPopupList *>(stage.window.topPanel());
        QVERIFY(list);
        QStringList rows;
        for (int row = 0; row < list->itemModel()->rowCount(); ++row)
            rows << list->itemModel()->index(row, 0).data().toString();
        QTEST(rows, "rows");
        list->pick(0);
        QCOMPARE(edit->text(), QStringLiteral("other words"));
        QVERIFY(edit->hasFocus());
        QTRY_VERIFY(!list);
    }
};

QTEST_MAIN(TextEditTest)
#include "tst_textedit.moc"
