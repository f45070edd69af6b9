#include "addresswidget.h"
#include "globaldefine.h"

#include <mapplication.h>
#include <mapplicationpage.h>
#include <mapplicationwindow.h>
#include <mbuttongroup.h>
#include <mlabel.h>
#include <mtextedit.h>

#include <QGraphicsScene>
#include <QPointer>
#include <QtTest>

namespace {

const QRectF PLACE(10, 65, 460, 170);

QStringList texts(const QList<MButton *> &buttons)
{
    QStringList texts;
    for (const MButton *button : buttons)
        texts << button->text();
    return texts;
}

} // namespace

/// The recipient panel and its dialog, in a window and used by mouse and keys.
class tst_AddressWidget : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void captionIsInTheLanguage();
    void addressesAreKeptAsTyped();
    void usersAreKnownByName();
    void usersComeAsIds();
    void emptyTextsAddNothing();
    void showingStartsAnew();
    void buttonSizeFollowsTheText();
    void longAddressKeepsToThePanel();
    void manyRecipientsCanAllBeReached();

    void tapRemovesTheRecipient();
    void strangeButtonsAreIgnored();
    void dialogAddsWhatWasTyped_data();
    void dialogAddsWhatWasTyped();
    void dialogDismissedEmptyAddsNothing();
    void dialogOutlivesThePanel();
    void windowClosesRightAfterTheDialog();
    void usersArePickedElsewhere();

private:
    /// The recipients' buttons from first to last.
    QList<MButton *> recipients() const;
    MButton *addButton() const;
    InputDialog *dialog() const;
    void tap(QGraphicsWidget *widget);
    void layOut() { QCoreApplication::processEvents(); }

    QScopedPointer<MApplicationWindow> m_window;
    QScopedPointer<MApplicationPage> m_page;
    AddressWidget *m_panel = nullptr;
};

void tst_AddressWidget::init()
{
    m_window.reset(new MApplicationWindow);
    m_page.reset(new MApplicationPage);
    m_page->appear(m_window.data());
    m_panel = new AddressWidget;
    m_panel->setParentItem(m_page->centralWidget());
    m_panel->setGeometry(PLACE);
    m_panel->show(AddressWidget::EMAIL);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
}

void tst_AddressWidget::cleanup()
{
    m_page.reset();
    m_window.reset();
    g_languageIdx = 0;
}

QList<MButton *> tst_AddressWidget::recipients() const
{
    QList<MButton *> found;
    const QList<QGraphicsItem *> items = m_panel->widget()->childItems();
    for (QGraphicsItem *item : items) {
        auto *button = qobject_cast<MButton *>(item->toGraphicsObject());
        if (button && button != addButton())
            found << button;
    }
    return found;
}

MButton *tst_AddressWidget::addButton() const
{
    // The second item of the panel, after the caption.
    return qobject_cast<MButton *>(m_panel->widget()->childItems().at(1)->toGraphicsObject());
}

InputDialog *tst_AddressWidget::dialog() const
{
    const QList<QGraphicsItem *> items = m_window->scene()->items();
    for (QGraphicsItem *item : items) {
        if (auto *dialog = qobject_cast<InputDialog *>(item->toGraphicsObject()))
            return dialog;
    }
    return nullptr;
}

void tst_AddressWidget::tap(QGraphicsWidget *widget)
{
    const QPointF centre = widget->mapToScene(widget->rect().center());
    QTest::mouseClick(m_window->viewport(), Qt::LeftButton, {}, m_window->mapFromScene(centre));
}

void tst_AddressWidget::captionIsInTheLanguage()
{
    g_languageIdx = 1;
    const AddressWidget panel;
    const auto *caption = qobject_cast<MLabel *>(panel.widget()->childItems().at(0)->toGraphicsObject());
    QVERIFY(caption);
    QCOMPARE(caption->text(), QStringLiteral("\u00C0: "));
}

void tst_AddressWidget::addressesAreKeptAsTyped()
{
    const QStringList addresses
        = {QStringLiteral("b@x.org"), QStringLiteral(" a b "), QStringLiteral("b@x.org"), QStringLiteral("&\u00E9%")};
    for (const QString &address : addresses)
        m_panel->addNewAddress(address);
    QCOMPARE(m_panel->getAllAddress(), addresses);
    QCOMPARE(m_panel->getRecipientsCount(), 4);
    QCOMPARE(texts(recipients()), addresses);
}

void tst_AddressWidget::usersAreKnownByName()
{
    m_panel->show(AddressWidget::MESSAGE);
    m_panel->addNewUIDAddress(QStringLiteral("bob"), QStringLiteral("7"));
    m_panel->addNewUIDAddress(QStringLiteral("bob"), QStringLiteral("8"));
    m_panel->addNewUIDAddress(QStringLiteral("Bob"), QStringLiteral("7"));
    QCOMPARE(texts(recipients()), QStringList({QStringLiteral("bob"), QStringLiteral("Bob")}));
    QCOMPARE(m_panel->getAllAddress(), QStringList({QStringLiteral("7"), QStringLiteral("7")}));
}

void tst_AddressWidget::usersComeAsIds()
{
    m_panel->show(AddressWidget::MESSAGE);
    m_panel->addNewUIDAddress(QStringLiteral("zoe"), QStringLiteral("9"));
    m_panel->addNewAddress(QStringLiteral("typed@x.org"));
    m_panel->addNewUIDAddress(QStringLiteral("al"), QStringLiteral("7"));
    // A typed address has no id.
    QCOMPARE(m_panel->getAllAddress(), QStringList({QStringLiteral("9"), QStringLiteral("7")}));
    QCOMPARE(m_panel->getRecipientsCount(), 3);
}

void tst_AddressWidget::emptyTextsAddNothing()
{
    m_panel->addNewAddress(QString());
    m_panel->on_dlgInputNameClosed(QString());
    m_panel->addNewUIDAddress(QStringLiteral("bob"), QString());
    m_panel->addNewUIDAddress(QString(), QStringLiteral("7"));
    QCOMPARE(m_panel->getRecipientsCount(), 0);
}

void tst_AddressWidget::showingStartsAnew()
{
    for (const char *address : {"a", "b", "c"})
        m_panel->addNewAddress(QString::fromLatin1(address));
    const QPointer<MButton> first(recipients().first());
    m_panel->hide();
    m_panel->show(AddressWidget::MESSAGE);
    QVERIFY(m_panel->isVisible());
    QCOMPARE(m_panel->getRecipientsCount(), 0);
    QVERIFY(recipients().isEmpty());
    QTRY_VERIFY(!first);
}

void tst_AddressWidget::buttonSizeFollowsTheText()
{
    m_panel->addNewAddress(QStringLiteral("12345"));
    m_panel->addNewUIDAddress(QStringLiteral("al"), QStringLiteral("7"));
    layOut();
    QCOMPARE(recipients().at(0)->size(), QSizeF(110, 40));
    QCOMPARE(recipients().at(1)->size(), QSizeF(56, 40));
    // Side by side below the caption's line, ten pixels apart.
    QCOMPARE(recipients().at(0)->pos(), QPointF(0, 40));
    QCOMPARE(recipients().at(1)->pos(), QPointF(120, 40));
}

void tst_AddressWidget::longAddressKeepsToThePanel()
{
    m_panel->addNewAddress(QString(1000, QLatin1Char('m')));
    m_panel->addNewAddress(QStringLiteral("next"));
    layOut();
    QCOMPARE(recipients().at(0)->size(), QSizeF(PLACE.width(), 40));
    QCOMPARE(recipients().at(1)->pos(), QPointF(0, 90));
    QCOMPARE(m_panel->getAllAddress().first().length(), 1000);
    QVERIFY(!m_window->grab().isNull());
}

void tst_AddressWidget::manyRecipientsCanAllBeReached()
{
    m_panel->show(AddressWidget::MESSAGE);
    for (int i = 0; i < 500; ++i)
        m_panel->addNewUIDAddress(QStringLiteral("friend %1").arg(i), QString::number(i));
    layOut();
    m_panel->setPosition(1e6);
    const MButton *last = recipients().last();
    QVERIFY(PLACE.contains(last->sceneBoundingRect()));
    QCOMPARE(last->sceneBoundingRect().bottom(), PLACE.bottom());
    tap(recipients().last());
    QCOMPARE(m_panel->getRecipientsCount(), 499);
    QCOMPARE(m_panel->getAllAddress().last(), QStringLiteral("498"));

    m_panel->show(AddressWidget::MESSAGE);
    layOut();
    QCOMPARE(m_panel->position(), 0.0);
}

void tst_AddressWidget::tapRemovesTheRecipient()
{
    for (const char *address : {"first", "second", "third"})
        m_panel->addNewAddress(QString::fromLatin1(address));
    layOut();
    const QPointer<MButton> doomed(recipients().at(1));
    int countAtOnce = -1;
    connect(doomed, &MButton::clicked, this, [&] { countAtOnce = m_panel->getRecipientsCount(); });
    tap(doomed);
    QCOMPARE(countAtOnce, 2);
    QCOMPARE(m_panel->getAllAddress(), QStringList({QStringLiteral("first"), QStringLiteral("third")}));
    QTRY_VERIFY(!doomed);
    // The next one takes its place.
    QCOMPARE(recipients().at(1)->pos(), QPointF(120, 40));
    tap(recipients().at(1));
    tap(recipients().at(0));
    QCOMPARE(m_panel->getRecipientsCount(), 0);
}

void tst_AddressWidget::strangeButtonsAreIgnored()
{
    m_panel->addNewAddress(QStringLiteral("kept"));
    m_panel->addressButtonClicked(nullptr);
    const QPointer<MButton> add(addButton());
    m_panel->addressButtonClicked(add);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(add);
    QCOMPARE(m_panel->getRecipientsCount(), 1);
}

void tst_AddressWidget::dialogAddsWhatWasTyped_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    // Whatever ends the dialog: what was typed is not lost.
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void tst_AddressWidget::dialogAddsWhatWasTyped()
{
    QFETCH(int, key);
    g_languageIdx = 2;
    layOut();
    tap(addButton());
    const QPointer<InputDialog> asked(dialog());
    QVERIFY(asked);
    QCOMPARE(asked->title(), QStringLiteral("E-Mail-Adresse"));
    const auto *input = qobject_cast<MTextEdit *>(asked->centralWidget());
    QVERIFY(input);
    QCOMPARE(input->contentType(), M::EmailContentType);

    QTest::keyClicks(m_window->viewport(), QStringLiteral("ann@example.org"));
    QCOMPARE(m_panel->getRecipientsCount(), 0);
    QTest::keyClick(m_window->viewport(), static_cast<Qt::Key>(key));
    QCOMPARE(m_panel->getAllAddress(), QStringList(QStringLiteral("ann@example.org")));
    QTRY_VERIFY(!asked);
}

void tst_AddressWidget::dialogDismissedEmptyAddsNothing()
{
    layOut();
    tap(addButton());
    const QPointer<InputDialog> asked(dialog());
    QVERIFY(asked);
    QSignalSpy done(asked, &InputDialog::inputDialogDone);
    asked->dismiss();
    QCOMPARE(done.count(), 1);
    QCOMPARE(m_panel->getRecipientsCount(), 0);
    QTRY_VERIFY(!asked);
}

void tst_AddressWidget::dialogOutlivesThePanel()
{
    layOut();
    tap(addButton());
    const QPointer<InputDialog> asked(dialog());
    delete m_panel;
    QVERIFY(asked);
    QTest::keyClicks(m_window->viewport(), QStringLiteral("late"));
    QTest::keyClick(m_window->viewport(), Qt::Key_Return);
    QTRY_VERIFY(!asked);
}

void tst_AddressWidget::windowClosesRightAfterTheDialog()
{
    layOut();
    tap(addButton());
    const QPointer<InputDialog> asked(dialog());
    QTest::keyClick(m_window->viewport(), Qt::Key_Return);
    m_page.reset();
    m_window.reset();
    QVERIFY(!asked);
}

void tst_AddressWidget::usersArePickedElsewhere()
{
    m_panel->show(AddressWidget::MESSAGE);
    layOut();
    QSignalSpy asked(m_panel, &AddressWidget::btnAddressClicked);
    tap(addButton());
    QCOMPARE(asked.count(), 1);
    QVERIFY(!dialog());
}

int main(int argc, char *argv[])
{
    MApplication application(argc, argv);
    tst_AddressWidget test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_addresswidget.moc"
