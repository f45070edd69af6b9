// SPDX-License-Identifier: MIT
#include "addresswidget.h"
#include "globaldefine.h"

#include "mapplication.h"
#include "mapplicationpage.h"
#include "mapplicationwindow.h"
#include "mtextedit.h"

#include <QGraphicsScene>
#include <QPointer>
#include <QtTest>

#include <functional>

namespace {

const QRectF panelPlace(10, 65, 460, 170);

} // namespace

using End = std::function<void(InputDialog &)>;
Q_DECLARE_METATYPE(End)

/// The recipient panel and its dialog, in a window and used by mouse and keys.
class tst_AddressWidget : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_window.reset(new MApplicationWindow);
        m_page.reset(new MApplicationPage);
        m_page->appear(m_window.data());
        m_panel = new AddressWidget;
        m_panel->setParentItem(m_page->centralWidget());
        m_panel->setGeometry(panelPlace);
        m_panel->show(AddressWidget::EMAIL);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
    }

    void cleanup()
    {
        m_page.reset();
        m_window.reset();
        g_languageIdx = 0;
    }

    void addressesAreKeptAsTyped()
    {
        const QStringList addresses = {QStringLiteral("b@x.org"), QStringLiteral(" a b "), QStringLiteral("b@x.org"),
                                       QStringLiteral("&\u00E9%")};
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
        m_panel->addNewUIDAddress(QStringLiteral("bob"), QStringLiteral("9"));
        m_panel->addNewUIDAddress(QStringLiteral("bob"), QStringLiteral("8"));
        m_panel->addNewAddress(QStringLiteral("typed@x.org"));
        m_panel->addNewUIDAddress(QStringLiteral("Bob"), QStringLiteral("9"));
        QCOMPARE(m_panel->getAllAddress(), QStringList({QStringLiteral("9"), QStringLiteral("9")}));
        QCOMPARE(m_panel->getRecipientsCount(), 3);
    }

    void emptyTextsAddNothing()
    {
        m_panel->addNewAddress(QString());
        m_panel->on_dlgInputNameClosed(QString());
        m_panel->addNewUIDAddress(QStringLiteral("bob"), QString());
        m_panel->addNewUIDAddress(QString(), QStringLiteral("7"));
        QCOMPARE(m_panel->getRecipientsCount(), 0);
    }

    void buttonSizeFollowsTheText()
    {
        m_panel->addNewAddress(QStringLiteral("12345"));
        m_panel->addNewUIDAddress(QStringLiteral("al"), QStringLiteral("7"));
        QCoreApplication::processEvents();
        QCOMPARE(recipients().at(0)->size(), QSizeF(110, 40));
        QCOMPARE(recipients().at(1)->size(), QSizeF(56, 40));
        // Side by side below the caption's line, ten pixels apart.
        QCOMPARE(recipients().at(0)->pos(), QPointF(0, 40));
        QCOMPARE(recipients().at(1)->pos(), QPointF(120, 40));
    }

    void longAddressKeepsToThePanel()
    {
        m_panel->addNewAddress(QString(1000, QLatin1Char('m')));
        m_panel->addNewAddress(QStringLiteral("next"));
        QCoreApplication::processEvents();
        QCOMPARE(recipients().at(0)->size(), QSizeF(440, 40)); // up to where the add button ends
        QCOMPARE(recipients().at(1)->pos(), QPointF(0, 90));
        QCOMPARE(m_panel->getAllAddress().first().length(), 1000);
    }

    void manyRecipientsCanAllBeReached()
    {
        m_panel->show(AddressWidget::MESSAGE);
        for (int i = 0; i < 500; ++i)
            m_panel->addNewUIDAddress(QStringLiteral("friend %1").arg(i), QString::number(i));
        QVERIFY(panelPlace.contains(recipients().last()->sceneBoundingRect()));
        tap(recipients().last());
        QCOMPARE(m_panel->getRecipientsCount(), 499);
        QCOMPARE(m_panel->getAllAddress().last(), QStringLiteral("498"));
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
        QCOMPARE(m_panel->getAllAddress(), QStringList({QStringLiteral("first"), QStringLiteral("third")}));
        QTRY_VERIFY(!doomed);
        // The next one takes its place.
        QCOMPARE(recipients().at(1)->pos(), QPointF(120, 40));
    }

    void dialogAddsWhatWasTyped_data()
    {
        QTest::addColumn<End>("end");
        QTest::addColumn<QStringList>("added");
        const auto row = [](const char *name, const End &end, bool adds) {
            QTest::newRow(name) << end << (adds ? QStringList(QStringLiteral("ann@example.org")) : QStringList());
        };
        const auto key = [this](Qt::Key key) {
            return [this, key](InputDialog &) { QTest::keyClick(m_window->viewport(), key); };
        };
        row("Return", key(Qt::Key_Return), true);
        // Unless the player does not want it: what was typed is not lost.
        row(
            "dismissed", [](InputDialog &dialog) { dialog.dismiss(); }, true);
        row("Escape", key(Qt::Key_Escape), false);
        row(
            "tap beside it",
            [this](InputDialog &) {
                tap({20, 20});
            },
            false);
    }
    void dialogAddsWhatWasTyped()
    {
        QFETCH(End, end);
        g_languageIdx = 2;
        const QPointer<InputDialog> asked(askForAddress());
        QVERIFY(asked);
        QCOMPARE(asked->title(), QStringLiteral("E-Mail-Adresse"));
        const auto *input = qobject_cast<MTextEdit *>(asked->centralWidget());
        QVERIFY(input);
        QCOMPARE(input->contentType(), M::EmailContentType);

        QTest::keyClicks(m_window->viewport(), QStringLiteral("ann@example.org"));
        QCOMPARE(m_panel->getRecipientsCount(), 0);
        end(*asked);
        QTEST(m_panel->getAllAddress(), "added");
        QTRY_VERIFY(!asked);
    }

    void dialogOutlivesThePanel()
    {
        const QPointer<InputDialog> asked(askForAddress());
        delete m_panel;
        QVERIFY(asked);
        QTest::keyClicks(m_window->viewport(), QStringLiteral("late"));
        QTest::keyClick(m_window->viewport(), Qt::Key_Return);
        QTRY_VERIFY(!asked);
    }

    void windowClosesRightAfterTheDialog()
    {
        const QPointer<InputDialog> asked(askForAddress());
        QTest::keyClick(m_window->viewport(), Qt::Key_Return);
        m_page.reset();
        m_window.reset();
        QVERIFY(!asked);
    }

    void usersArePickedElsewhere()
    {
        m_panel->show(AddressWidget::MESSAGE);
        QSignalSpy asked(m_panel, &AddressWidget::btnAddressClicked);
        QVERIFY(!askForAddress());
        QCOMPARE(asked.count(), 1);
    }

private:
    QList<MButton *> recipients() const
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

    MButton *addButton() const
    {
        // The second item of the panel, after the caption.
        return qobject_cast<MButton *>(m_panel->widget()->childItems().at(1)->toGraphicsObject());
    }

    InputDialog *askForAddress()
    {
        QCoreApplication::processEvents();
        tap(addButton());
        const QList<QGraphicsItem *> items = m_window->scene()->items();
        for (QGraphicsItem *item : items) {
            auto *dialog = qobject_cast<InputDialog *>(item->toGraphicsObject());
            if (dialog && QTest::qWaitFor([dialog] { return dialog->hasAppeared(); }))
                return dialog;
        }
        return nullptr;
    }

    void tap(QGraphicsWidget *widget) { tap(widget->mapToScene(widget->rect().center())); }
    void tap(const QPointF &position)
    {
        QTest::mouseClick(m_window->viewport(), Qt::LeftButton, {}, m_window->mapFromScene(position));
    }

    QScopedPointer<MApplicationWindow> m_window;
    QScopedPointer<MApplicationPage> m_page;
    AddressWidget *m_panel = nullptr;
};

int main(int argc, char *argv[])
{
    MApplication application(argc, argv);
    tst_AddressWidget test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_addresswidget.moc"
