// SPDX-License-Identifier: MIT
#include "portal.h"

#include "addresswidget.h"
#include "mybutton.h"

#include "mbutton.h"
#include "mlabel.h"
#include "mprogressindicator.h"
#include "mtextedit.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QEventLoop>

namespace {

/// Something on the bus of the screen readers.
struct Thing {
    QString service;
    QString path;
};

/// A screen reader: sees of the companion what it says on the bus, and nothing else.
class Reader {
public:
    Reader()
    {
        const QDBusMessage address
            = call(QDBusConnection::sessionBus(), {QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus")},
                   QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
        m_bus = QDBusConnection::connectToBus(address.arguments().value(0).toString(), QStringLiteral("reader"));
    }

    /// The companion's window; with an empty path as long as it is not there.
    Thing window() const
    {
        const Thing registry{QStringLiteral("org.a11y.atspi.Registry"),
                             QStringLiteral("/org/a11y/atspi/accessible/root")};
        const Thing application = children(registry).value(0);
        return application.path.isEmpty() ? application : children(application).value(0);
    }

    /// Everything in @p thing, a line each: role, name, what is special about its state, its text.
    QStringList tree(const Thing &thing, int depth = 0) const
    {
        QStringList lines;
        const auto all = children(thing);
        for (const Thing &child : all) {
            lines << QString(2 * depth, QLatin1Char(' ')) + describe(child);
            lines << tree(child, depth + 1);
        }
        return lines;
    }

    /// The first thing of that name in @p thing.
    Thing find(const Thing &thing, const QString &name) const
    {
        const auto all = children(thing);
        for (const Thing &child : all) {
            const Thing found = nameOf(child) == name ? child : find(child, name);
            if (!found.path.isEmpty())
                return found;
        }
        return {};
    }

    void press(const Thing &thing) const { ask(thing, QStringLiteral("Action"), QStringLiteral("DoAction"), {0}); }

    void write(const Thing &thing, const QString &text) const
    {
        ask(thing, QStringLiteral("EditableText"), QStringLiteral("SetTextContents"), {text});
    }

private:
    // In this thread runs what answers, so nothing may wait without its event loop.
    static QDBusMessage call(const QDBusConnection &bus, const Thing &thing, const QString &interface,
                             const QString &method, const QVariantList &arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(thing.service, thing.path, interface, method);
        message.setArguments(arguments);
        QDBusPendingCallWatcher watcher(bus.asyncCall(message));
        QEventLoop loop;
        QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
        if (!watcher.isFinished())
            loop.exec();
        return watcher.reply();
    }

    QVariant ask(const Thing &thing, const QString &interface, const QString &method,
                 const QVariantList &arguments = {}) const
    {
        const QDBusMessage answer = call(m_bus, thing, QLatin1String("org.a11y.atspi.") + interface, method, arguments);
        return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0) : QVariant();
    }

    QVector<Thing> children(const Thing &thing) const
    {
        QVector<Thing> found;
        const QVariant answer = ask(thing, QStringLiteral("Accessible"), QStringLiteral("GetChildren"));
        if (!answer.canConvert<QDBusArgument>())
            return found;
        const auto list = answer.value<QDBusArgument>();
        list.beginArray();
        while (!list.atEnd()) {
            Thing child;
            QDBusObjectPath path;
            list.beginStructure();
            list >> child.service >> path;
            list.endStructure();
            child.path = path.path();
            found.append(child);
        }
        list.endArray();
        return found;
    }

    QString nameOf(const Thing &thing) const
    {
        const QDBusMessage answer
            = call(m_bus, thing, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                   {QStringLiteral("org.a11y.atspi.Accessible"), QStringLiteral("Name")});
        return answer.arguments().value(0).value<QDBusVariant>().variant().toString();
    }

    QString describe(const Thing &thing) const
    {
        static const QPair<int, QString> states[] = {{3, QStringLiteral("busy")},
                                                     {7, QStringLiteral("editable")},
                                                     {12, QStringLiteral("focused")},
                                                     {16, QStringLiteral("modal")},
                                                     {23, QStringLiteral("selected")}};
        const QString role = ask(thing, QStringLiteral("Accessible"), QStringLiteral("GetRoleName")).toString();
        QString line = role + QLatin1String(" \"") + nameOf(thing) + QLatin1Char('"');
        const auto bits = qdbus_cast<QList<uint>>(
            ask(thing, QStringLiteral("Accessible"), QStringLiteral("GetState")).value<QDBusArgument>());
        for (const auto &[bit, name] : states) {
            if (bits.value(0) & (1U << bit))
                line += QLatin1Char(' ') + name;
        }
        const QString text = ask(thing, QStringLiteral("Text"), QStringLiteral("GetText"), {0, -1}).toString();
        return text.isEmpty() ? line : line + QLatin1String(": ") + text.simplified();
    }

    QDBusConnection m_bus{QString()};
};

} // namespace

/// What a stranger with a screen reader finds, asked for over the bus as screen readers do.
class AccessibilityTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_portal = std::make_unique<Portal>();
        QVERIFY(QTest::qWaitForWindowActive(&m_portal->window));
        QTRY_VERIFY(!(m_window = m_reader.window()).path.isEmpty());
    }
    void cleanupTestCase() { m_portal.reset(); }

    void pageWithItsChrome()
    {
        page().progressIndicator->hide();
        m_portal->loadPage(QStringLiteral("/vantu/messages/index"),
                           {{QStringLiteral("sTitle"), QStringLiteral("'Your inbox'")},
                            {QStringLiteral("iInboxMessages"), QStringLiteral("3")}},
                           QStringLiteral("Hello <b>Emma</b>"));
        QCOMPARE(tree(),
                 expected({"heading 'Your inbox'", "push button 'New message'", "web document 'page title': Hello Emma",
                           "page tab list ''", "  page tab 'Home'", "  page tab 'Inbox, 3' selected",
                           "  page tab 'Friends'", "  page tab 'Games'"}));
        page().progressIndicator->show();
        QVERIFY(tree().contains(expected({"progress bar 'Loading...' busy"}).first()));
        page().progressIndicator->hide();

        m_portal->service.answer(QStringLiteral("/vantu/games"), {TestService::page({})});
        press("Games");
        QTRY_COMPARE(m_portal->shownUrl(), Portal::url(QStringLiteral("/vantu/games")));
    }

    void list()
    {
        page().on_SelectButtonClicked(5);
        QCOMPARE(tree(),
                 expected({"popup menu 'Interact' focused modal", "  menu item 'Send Message'",
                           "  menu item 'Add as friend'", "  menu item 'Compare Games'"}));
        QTest::keyClick(&m_portal->window, Qt::Key_Down);
        QCOMPARE(tree().mid(0, 2),
                 expected({"popup menu 'Interact' modal", "  menu item 'Send Message' focused selected"}));
        press("Send Message");
        QTRY_COMPARE(page().state, SendMessageState);
    }

    void composer()
    {
        page().openSendMessagePage();
        page().addrWidget->addNewUIDAddress(QStringLiteral("Ben"), QStringLiteral("7"));
        m_reader.write(m_reader.find(m_window, QStringLiteral("Message")), QStringLiteral("Hi Ben"));
        QCOMPARE(page().txtMessage->text(), QStringLiteral("Hi Ben"));
        page().txtMessage->setFocus(Qt::TabFocusReason);
        QCOMPARE(tree(),
                 expected({"heading 'Send Message'", "push button 'Send'", "push button 'Cancel'", "label 'To: '",
                           "push button 'Add recipient'", "push button 'Remove Ben'",
                           "text 'Message' editable focused: Hi Ben"}));
        press("Remove Ben");
        QTRY_COMPARE(page().addrWidget->getRecipientsCount(), 0);
    }

    void box()
    {
        press("Send");
        const QStringList shown = expected({"alert message 'Please select at least one recipient' focused modal",
                                            "  label 'Please select at least one recipient'", "  push button 'OK'"});
        QTRY_COMPARE(tree(), shown);
        press("OK");
        QTRY_VERIFY(tree().size() > shown.size());
        page().closeSendMessagePage();
    }

    void dialog()
    {
        page().openSendEmailPage();
        press("Add recipient");
        QTRY_COMPARE(tree(),
                     expected({"dialog 'Email' modal", "  text 'Email' editable focused", "  push button 'OK'"}));
        const QString name = QStringLiteral("Email");
        m_reader.write(m_reader.find(m_reader.find(m_window, name), name), QStringLiteral("ben@example.org"));
        press("OK");
        QTRY_COMPARE(page().addrWidget->getAllAddress(), QStringList(QStringLiteral("ben@example.org")));
        page().closeSendEmailPage();
    }

    void pictureInThePlaceOfAPage()
    {
        QSignalSpy finished(page().webView, &QGraphicsWebView::loadFinished);
        m_portal->service.goSilent();
        page().webView->setUrl(QUrl(Portal::url(QStringLiteral("/vantu/friends"))));
        QVERIFY(finished.wait());
        QVERIFY(tree().contains(expected({"  push button 'Connection Error: try again' focused"}).first()));
    }

private:
    TestPage &page() { return *m_portal->page; }
    QStringList tree() const { return m_reader.tree(m_window); }

    void press(const char *name) { m_reader.press(m_reader.find(m_window, QString::fromLatin1(name))); }

    /// Lines of a tree, with single quotes around the names.
    static QStringList expected(std::initializer_list<const char *> lines)
    {
        QStringList all;
        for (const char *line : lines)
            all << QString::fromLatin1(line).replace(QLatin1Char('\''), QLatin1Char('"'));
        return all;
    }

    std::unique_ptr<Portal> m_portal;
    Reader m_reader;
    Thing m_window;
};

PORTAL_TEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
