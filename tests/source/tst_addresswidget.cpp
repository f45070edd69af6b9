// SPDX-License-Identifier: MIT
#include "portal.h"
#include "softwarekeyboard.h"
#include "stage.h"

#include <functional>

namespace {

const QRectF panelPlace(10, 65, 460, 170);

} // namespace

/// The recipient panel and its dialog, in a window and used by mouse and keys.
class tst_AddressWidget : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_stage = std::make_unique<Stage>();
        m_panel = new AddressWidget;
        m_panel->setParentItem(m_stage->page.centralWidget());
        m_panel->setGeometry(panelPlace);
        m_panel->show(AddressWidget::EMAIL);
    }

    void cleanup()
    {
        m_stage.reset();
        g_languageIdx = 0;
    }

    void addressesAreKeptAsTyped()
    {
        const QStringList addresses = {"b@x.org"_s, " a b "_s, "b@x.org"_s, "&\u00E9%"_s};
        for (const QString &address : addresses)
            m_panel->addNewAddress(address);
        QCOMPARE(m_panel->getAllAddress(), addresses);
        QCOMPARE(m_panel->getRecipientsCount(), 4);
        QCOMPARE(recipients().last()->text(), addresses.last());
        m_panel->hide();
        m_panel->show(AddressWidget::MESSAGE);
        QVERIFY(m_panel->isVisible());
        QCOMPARE(m_panel->getRecipientsCount(), 0);
        QVERIFY(recipients().isEmpty());
    }

    void usersAreKnownByNameAndComeAsIds()
    {
        m_panel->show(AddressWidget::MESSAGE);
        QSignalSpy asked(m_panel, &AddressWidget::btnAddressClicked);
        QVERIFY(!askForAddress());
        QCOMPARE(asked.count(), 1); // They are picked elsewhere.
        m_panel->addNewUIDAddress("bob"_s, "9"_s);
        m_panel->addNewUIDAddress("bob"_s, "8"_s);
        m_panel->addNewAddress("typed@x.org"_s);
        m_panel->addNewUIDAddress("Bob"_s, "9"_s);
        // Empty texts add nothing.
        m_panel->addNewAddress(QString());
        m_panel->on_dlgInputNameClosed(QString());
        m_panel->addNewUIDAddress("eve"_s, QString());
        m_panel->addNewUIDAddress(QString(), "7"_s);
        QCOMPARE(m_panel->getAllAddress(), QStringList({"9"_s, "9"_s}));
        QCOMPARE(m_panel->getRecipientsCount(), 3);
    }

    void buttonSizeFollowsTheText()
    {
        m_panel->addNewAddress("12345"_s);
        m_panel->addNewUIDAddress("al"_s, "7"_s);
        m_panel->addNewAddress(QString(1000, QLatin1Char('m')));
        m_panel->addNewAddress("next"_s);
        QCoreApplication::processEvents();
        // Side by side below the caption's line, ten pixels apart; at most up to where the add button ends.
        QCOMPARE(recipients().at(0)->geometry(), QRectF(0, 40, 110, 40));
        QCOMPARE(recipients().at(1)->geometry(), QRectF(120, 40, 56, 40));
        QCOMPARE(recipients().at(2)->geometry(), QRectF(0, 90, 440, 40));
        QCOMPARE(recipients().at(3)->pos(), QPointF(0, 140));
        QCOMPARE(m_panel->getAllAddress().at(2).length(), 1000);
    }

    void manyRecipientsCanAllBeReached()
    {
        m_panel->show(AddressWidget::MESSAGE);
        for (int i = 0; i < 500; ++i)
            m_panel->addNewUIDAddress("friend %1"_s.arg(i), QString::number(i));
        QVERIFY(panelPlace.contains(recipients().last()->sceneBoundingRect()));
        tap(recipients().last());
        QCOMPARE(m_panel->getRecipientsCount(), 499);
        QCOMPARE(m_panel->getAllAddress().last(), "498"_s);
    }

    void tapRemovesTheRecipient()
    {
        for (const char *address : {"first", "second", "third"})
            m_panel->addNewAddress(QString::fromLatin1(address));
        QCoreApplication::processEvents();
        const QPointer<MButton> doomed(recipients().at(1));
        int countAtOnce = -1;
        connect(doomed, &MButton::clicked, this, [&] { countAtOnce = m_panel->getRecipientsCount(); });
        tap(doomed);
        QCOMPARE(countAtOnce, 2);
        QCOMPARE(m_panel->getAllAddress(), QStringList({"first"_s, "third"_s}));
        QTRY_VERIFY(!doomed);
        // The next one takes its place.
        QCOMPARE(recipients().at(1)->pos(), QPointF(120, 40));
    }

    void dialogAddsWhatWasTyped()
    {
        g_languageIdx = 2;
        const auto press = [this](Qt::Key key) { QTest::keyClick(m_stage->window.viewport(), key); };
        // Unless the player does not want it, what was typed is not lost: what has an @ is to be added.
        const std::pair<QString, std::function<void(InputDialog &)>> ends[]
            = {{"return@x.org"_s, [&](InputDialog &) { press(Qt::Key_Return); }},
               {"dismissed@x.org"_s, [](InputDialog &dialog) { dialog.dismiss(); }},
               {"escape"_s, [&](InputDialog &) { press(Qt::Key_Escape); }},
               {"beside"_s, [this](InputDialog &) { tap(QPointF(20, 20)); }}};
        QStringList added;
        for (const auto &[text, end] : ends) {
            SoftwareKeyboard keyboard;
            const QPointer<InputDialog> asked(askForAddress());
            QVERIFY(keyboard.isInputPanelVisible());
            QVERIFY(asked);
            QCOMPARE(asked->title(), "E-Mail-Adresse"_s);
            const auto *input = qobject_cast<MTextEdit *>(asked->centralWidget());
            QVERIFY(input);
            QCOMPARE(input->contentType(), M::EmailContentType);

            QTest::keyClicks(m_stage->window.viewport(), text);
            QCOMPARE(m_panel->getAllAddress(), added);
            end(*asked);
            if (text.contains(QLatin1Char('@')))
                added << text;
            QCOMPARE(m_panel->getAllAddress(), added);
            QTRY_VERIFY(!asked);
        }
    }

    void dialogOutlivesThePanel()
    {
        const QPointer<InputDialog> asked(askForAddress());
        delete m_panel;
        QVERIFY(asked);
        QTest::keyClicks(m_stage->window.viewport(), "late"_s);
        QTest::keyClick(m_stage->window.viewport(), Qt::Key_Return);
        QTRY_VERIFY(!asked);
    }

    void windowClosesRightAfterTheDialog()
    {
        const QPointer<InputDialog> asked(askForAddress());
        QTest::keyClick(m_stage->window.viewport(), Qt::Key_Return);
        m_stage.reset();
        QVERIFY(!asked);
    }

private:
    QVector<MButton *> recipients() const
    {
        QVector<MButton *> found = only<MButton>(m_panel->widget()->childItems());
        found.removeOne(addButton());
        return found;
    }

    MButton *addButton() const
    {
        // The second item of the panel, after the caption.
        return qobject_cast<MButton *>(m_panel->widget()->childItems().at(1)->toGraphicsObject());
    }

    InputDialog *askForAddress()
    {
        QCoreApplication::processEvents();
        tap(addButton());
        InputDialog *dialog = only<InputDialog>(m_stage->window.scene()->items()).value(0);
        return dialog && QTest::qWaitFor([dialog] { return dialog->hasAppeared(); }) ? dialog : nullptr;
    }

    // Near the edge: neighbours that react around themselves must not reach in there.
    void tap(QGraphicsWidget *widget) { tap(widget->mapToScene(widget->rect().bottomRight() - QPointF(5, 3))); }
    void tap(const QPointF &position) { m_stage->finger.tap(position); }

    std::unique_ptr<Stage> m_stage;
    AddressWidget *m_panel = nullptr;
};

PORTAL_TEST_MAIN(tst_AddressWidget)
#include "tst_addresswidget.moc"
