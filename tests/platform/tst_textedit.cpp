#include "minputmethodstate.h"
#include "mtextedit.h"
#include "softwarekeyboard.h"
#include "stage.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QInputMethodQueryEvent>
#include <QMenu>
#include <QSignalSpy>

Q_DECLARE_METATYPE(MTextEditModel::LineMode)
Q_DECLARE_METATYPE(M::TextContentType)
Q_DECLARE_METATYPE(Qt::FocusPolicy)
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

QString numberedLines(int count)
{
    QStringList lines;
    for (int i = 0; i < count; ++i)
        lines.append(QString::number(i));
    return lines.join(QLatin1Char('\n'));
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
    void takesTyping();
    void selectsCopiesAndUndoes_data() { addLineModes(); }
    void selectsCopiesAndUndoes();
    void hasAMenu_data() { addLineModes(); }
    void hasAMenu();
    void keepsItsText_data();
    void keepsItsText();
    void aPasteIntoALineHasNoBreaks();
    void returnGoesOnToTheParent_data() { addLineModes(); }
    void returnGoesOnToTheParent();
    void contentTypeChoosesTheKeys_data();
    void contentTypeChoosesTheKeys();
    void asksForTheSoftwareKeyboard_data() { addLineModes(); }
    void asksForTheSoftwareKeyboard();
    void takesWhatAnInputMethodWrites_data() { addLineModes(); }
    void takesWhatAnInputMethodWrites();
    void focusPolicy_data();
    void focusPolicy();
    void tabIsOneStop();
    void isDarkOnLight_data() { addLineModes(); }
    void isDarkOnLight();
    void showsItsFocus();
    void disabledTakesNothing();
    void aFingerPansAMouseSelects();
    void theWheelScrolls();
    void aLongTextIsQuick();
};

void TextEditTest::takesTyping()
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

void TextEditTest::selectsCopiesAndUndoes()
{
    QFETCH(MTextEditModel::LineMode, mode);
    Stage stage;
    MTextEdit *edit = editOn(stage, mode, QStringLiteral("one two"));
    edit->setFocus();
    QTest::keyClick(&stage.window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&stage.window, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("one two"));
    QTest::keyClick(&stage.window, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(edit->text(), QString());
    QTest::keyClick(&stage.window, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&stage.window, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(edit->text(), QStringLiteral("one twoone two"));
    QTest::keyClick(&stage.window, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(edit->text(), QStringLiteral("one two"));
}

void TextEditTest::hasAMenu()
{
    QFETCH(MTextEditModel::LineMode, mode);
    Stage stage;
    MTextEdit *edit = editOn(stage, mode, QStringLiteral("one"));
    edit->setFocus();
    const QPoint corner = stage.window.mapFromScene(edit->sceneBoundingRect().bottomRight() - QPointF(10, 10));
    QContextMenuEvent event(QContextMenuEvent::Mouse, corner, stage.window.viewport()->mapToGlobal(corner));
    QCoreApplication::sendEvent(stage.window.viewport(), &event);
    const QPointer<QMenu> menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QVERIFY(menu->screen()->geometry().contains(menu->geometry()));
    QAction *selectAll = menu->actions().last();
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(selectAll).center());
    QTRY_VERIFY(!menu);
    // Where there is no window manager, nobody gives the activation back.
    stage.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&stage.window));
    QVERIFY(edit->hasFocus());
    QTest::keyClicks(&stage.window, QStringLiteral("two"));
    QCOMPARE(edit->text(), QStringLiteral("two"));
}

void TextEditTest::keepsItsText_data()
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

void TextEditTest::keepsItsText()
{
    QFETCH(MTextEditModel::LineMode, mode);
    QFETCH(QString, set);
    QFETCH(QString, kept);
    MTextEdit edit(mode, set);
    QCOMPARE(edit.text(), kept);
}

void TextEditTest::aPasteIntoALineHasNoBreaks()
{
    Stage stage;
    MTextEdit *edit = editOn(stage, MTextEditModel::SingleLine);
    edit->setFocus();
    QGuiApplication::clipboard()->setText(QStringLiteral("a@b.org\r\nc"));
    QTest::keyClick(&stage.window, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(edit->text(), QStringLiteral("a@b.org c"));
}

void TextEditTest::returnGoesOnToTheParent()
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
    QTest::keyClick(&stage.window, Qt::Key_Escape);
    QCOMPARE(witness->pressed.count(Qt::Key_Escape), 1);
}

void TextEditTest::contentTypeChoosesTheKeys_data()
{
    QTest::addColumn<M::TextContentType>("type");
    QTest::addColumn<Qt::InputMethodHints>("with");
    QTest::addColumn<Qt::InputMethodHints>("without");
    const Qt::InputMethodHints typed = Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText;
    const Qt::InputMethodHints none;
    QTest::newRow("text") << M::FreeTextContentType << none << typed;
    QTest::newRow("number") << M::NumberContentType << (none | Qt::ImhFormattedNumbersOnly) << none;
    QTest::newRow("phone") << M::PhoneNumberContentType << (none | Qt::ImhDialableCharactersOnly) << none;
    QTest::newRow("e-mail") << M::EmailContentType << (typed | Qt::ImhEmailCharactersOnly) << none;
    QTest::newRow("link") << M::UrlContentType << (typed | Qt::ImhUrlCharactersOnly) << none;
}

void TextEditTest::contentTypeChoosesTheKeys()
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

void TextEditTest::asksForTheSoftwareKeyboard()
{
    QFETCH(MTextEditModel::LineMode, mode);
    Stage stage;
    MTextEdit *edit = editOn(stage, mode);
    SoftwareKeyboard keyboard;
    const QPointF inEdit = edit->sceneBoundingRect().center();
    edit->setFocus();
    QVERIFY(keyboard.isInputPanelVisible());
    MInputMethodState::closeSoftwareInputPanel();
    QVERIFY(!keyboard.isInputPanelVisible());
    QVERIFY(edit->hasFocus());

    // A tap brings it back, whether the field still has the focus or not.
    stage.finger.tap(inEdit);
    QVERIFY(keyboard.isInputPanelVisible());
    MInputMethodState::closeSoftwareInputPanel();
    edit->clearFocus();
    stage.finger.tap(inEdit);
    QVERIFY(keyboard.isInputPanelVisible());
}

void TextEditTest::takesWhatAnInputMethodWrites()
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

void TextEditTest::focusPolicy_data()
{
    QTest::addColumn<Qt::FocusPolicy>("policy");
    QTest::addColumn<bool>("byClick");
    QTest::addColumn<bool>("byTab");
    QTest::newRow("none") << Qt::NoFocus << false << false;
    QTest::newRow("click") << Qt::ClickFocus << true << false;
    QTest::newRow("tab") << Qt::TabFocus << false << true;
    QTest::newRow("both") << Qt::StrongFocus << true << true;
}

void TextEditTest::focusPolicy()
{
    QFETCH(Qt::FocusPolicy, policy);
    QFETCH(bool, byClick);
    QFETCH(bool, byTab);
    Stage stage;
    MTextEdit *edit = editOn(stage, MTextEditModel::MultiLine);
    edit->setFocusPolicy(policy);
    QCOMPARE(edit->focusPolicy(), policy);
    stage.finger.tap(areaPlace.center());
    QCOMPARE(edit->hasFocus(), byClick);
    edit->clearFocus();
    // The rim belongs to the field as well.
    stage.finger.tap(areaPlace.topLeft() + QPointF(200, 1));
    QCOMPARE(edit->hasFocus(), byClick);
    edit->clearFocus();
    QTest::keyClick(&stage.window, Qt::Key_Tab);
    QCOMPARE(edit->hasFocus(), byTab);
}

void TextEditTest::tabIsOneStop()
{
    Stage stage;
    MTextEdit *first = editOn(stage, MTextEditModel::MultiLine);
    MTextEdit *second = editOn(stage, MTextEditModel::SingleLine);
    QTest::keyClick(&stage.window, Qt::Key_Tab);
    QVERIFY(first->hasFocus());
    QTest::keyClick(&stage.window, Qt::Key_Tab);
    QVERIFY(second->hasFocus());
    QTest::keyClick(&stage.window, Qt::Key_Backtab);
    QVERIFY(first->hasFocus());
    QCOMPARE(first->text(), QString());
}

void TextEditTest::isDarkOnLight()
{
    QFETCH(MTextEditModel::LineMode, mode);
    // A dark desktop theme must not turn the field dark, or its text light.
    const QPalette before = QGuiApplication::palette();
    QPalette dark(Qt::white, Qt::black, Qt::gray, Qt::black, Qt::darkGray, Qt::white, Qt::black);
    QApplication::setPalette(dark);
    Stage stage;
    MTextEdit *edit = editOn(stage, mode, QStringLiteral("MMMM"));
    const QImage picture = stage.picture(edit);
    const QColor field = picture.pixelColor(picture.width() - 20, 20);
    int darkest = 255;
    for (int x = 8; x < 80; ++x) {
        for (int y = 8; y < 40; ++y)
            darkest = qMin(darkest, qGray(picture.pixel(x, y)));
    }
    QApplication::setPalette(before);
    QVERIFY(field.lightness() > 230);
    QVERIFY(darkest < 60);
}

void TextEditTest::showsItsFocus()
{
    Stage stage;
    MTextEdit *edit = editOn(stage, MTextEditModel::SingleLine);
    const auto rim = [&] { return stage.picture(edit).pixel(100, 1); };
    const QRgb without = rim();
    edit->setFocus();
    QVERIFY(rim() != without);
    edit->clearFocus();
    QCOMPARE(rim(), without);
}

void TextEditTest::disabledTakesNothing()
{
    Stage stage;
    MTextEdit *edit = editOn(stage, MTextEditModel::SingleLine);
    edit->setEnabled(false);
    stage.finger.tap(linePlace.center());
    QTest::keyClicks(&stage.window, QStringLiteral("x"));
    QCOMPARE(edit->text(), QString());
}

void TextEditTest::aFingerPansAMouseSelects()
{
    Stage stage;
    MTextEdit *edit = editOn(stage, MTextEditModel::MultiLine, numberedLines(100));
    const QPointF low(100, 560), high(100, 360);
    const QImage top = stage.picture(edit);

    stage.finger = Finger(&stage.window, Finger::Touch);
    stage.dragSlowly(low, high);
    QVERIFY(stage.picture(edit) != top);
    stage.finger.release();
    QTest::keyClicks(&stage.window, QStringLiteral("x"));
    QVERIFY2(edit->text().startsWith(QLatin1String("x0\n")), "the cursor has moved");

    // A finger's tap places the cursor, though its press was held back.
    edit->setText(numberedLines(100));
    stage.finger.tap(QPointF(300, 322));
    QTest::keyClicks(&stage.window, QStringLiteral("y"));
    QVERIFY(edit->text().startsWith(QLatin1String("0y\n")));

    edit->setText(numberedLines(100));
    stage.finger = Finger(&stage.window, Finger::Mouse);
    stage.dragSlowly(QPointF(18, 322), QPointF(300, 760));
    stage.finger.release();
    QTest::keyClick(&stage.window, Qt::Key_Delete);
    QVERIFY(edit->text().count(QLatin1Char('\n')) < 90);
}

void TextEditTest::theWheelScrolls()
{
    Stage stage;
    MTextEdit *edit = editOn(stage, MTextEditModel::MultiLine, numberedLines(100));
    const QImage before = stage.picture(edit);
    stage.finger.wheel(QPointF(100, 500), -1);
    QVERIFY(stage.picture(edit) != before);
}

void TextEditTest::aLongTextIsQuick()
{
    Stage stage;
    MTextEdit *edit = editOn(stage, MTextEditModel::MultiLine);
    edit->setFocus();
    QElapsedTimer clock;
    clock.start();
    edit->setText(QStringLiteral("Some words. ").repeated(1000));
    QTest::keyClick(&stage.window, Qt::Key_End, Qt::ControlModifier);
    for (int i = 0; i < 20; ++i) {
        QTest::keyClick(&stage.window, Qt::Key_X);
        stage.picture();
    }
    QCOMPARE(edit->text().size(), 12020);
    // A few milliseconds each; a machine that also builds may take its time.
    QVERIFY2(clock.elapsed() < 20 * 150, qPrintable(QString::number(clock.elapsed())));
}

QTEST_MAIN(TextEditTest)
#include "tst_textedit.moc"
