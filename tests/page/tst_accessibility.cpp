// SPDX-License-Identifier: MIT
#include "buspeer.h"
#include "minputmethodstate.h"
#include "portal.h"

#include <QAccessible>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

namespace {

/// Something on the bus of the screen readers: the service and the path there.
using Thing = QPair<QString, QDBusObjectPath>;

/// A screen reader: sees of the companion what it says on the bus, and nothing else.
class Reader {
public:
    Reader()
    {
        const QDBusMessage address
            = call(QDBusConnection::sessionBus(), {"org.a11y.Bus"_s, QDBusObjectPath("/org/a11y/bus"_s)},
                   "org.a11y.Bus"_s, "GetAddress"_s);
        m_bus = QDBusConnection::connectToBus(address.arguments().value(0).toString(), "reader"_s);
    }

    static bool exists(const Thing &thing) { return !thing.first.isEmpty(); }

    /// The companion's window, once it is there.
    Thing window() const
    {
        const Thing registry{"org.a11y.atspi.Registry"_s, QDBusObjectPath("/org/a11y/atspi/accessible/root"_s)};
        const Thing application = children(registry).value(0);
        return exists(application) ? children(application).value(0) : application;
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
            if (exists(found))
                return found;
        }
        return {};
    }

    void press(const Thing &thing) const { ask(thing, "Action"_s, "DoAction"_s, {0}); }

    void write(const Thing &thing, const QString &text) const
    {
        ask(thing, "EditableText"_s, "SetTextContents"_s, {text});
    }

private:
    // In this thread runs what answers, so nothing may wait without its event loop.
    static QDBusMessage call(const QDBusConnection &bus, const Thing &thing, const QString &interface,
                             const QString &method, const QVariantList &arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(thing.first, thing.second.path(), interface, method);
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
        const QDBusMessage answer = call(m_bus, thing, "org.a11y.atspi."_s + interface, method, arguments);
        return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0) : QVariant();
    }

    QList<Thing> children(const Thing &thing) const
    {
        const QVariant answer = ask(thing, "Accessible"_s, "GetChildren"_s);
        return answer.canConvert<QDBusArgument>() ? qdbus_cast<QList<Thing>>(answer.value<QDBusArgument>())
                                                  : QList<Thing>();
    }

    QString nameOf(const Thing &thing) const
    {
        const QDBusMessage answer = call(m_bus, thing, "org.freedesktop.DBus.Properties"_s, "Get"_s,
                                         {"org.a11y.atspi.Accessible"_s, "Name"_s});
        return answer.arguments().value(0).value<QDBusVariant>().variant().toString();
    }

    QString describe(const Thing &thing) const
    {
        static const QPair<int, QString> states[]
            = {{3, "busy"_s},   {7, "editable"_s},    {11, "focusable"_s},  {12, "focused"_s},
               {16, "modal"_s}, {17, "multi-line"_s}, {22, "selectable"_s}, {23, "selected"_s}};
        const QString role = ask(thing, "Accessible"_s, "GetRoleName"_s).toString();
        QString line = role + " \""_s + nameOf(thing) + QLatin1Char('"');
        const auto bits = qdbus_cast<QList<uint>>(ask(thing, "Accessible"_s, "GetState"_s).value<QDBusArgument>());
        for (const auto &[bit, name] : states) {
            if (bits.value(0) & (1U << bit))
                line += QLatin1Char(' ') + name;
        }
        const QString text = ask(thing, "Text"_s, "GetText"_s, {0, -1}).toString();
        return text.isEmpty() ? line : line + ": "_s + text.simplified();
    }

    QDBusConnection m_bus{QString()};
};

} // namespace

/// What a stranger with a screen reader finds, asked for over the bus as screen readers do.
class AccessibilityTest : public PortalTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        PortalTest::init();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTRY_VERIFY(Reader::exists(m_window = m_reader.window()));
    }
    void init() { } // The page is one for all.
    void cleanup() { }
    void cleanupTestCase() { PortalTest::cleanup(); }

    void pageWithItsChrome()
    {
        page->progressIndicator->hide();
        loadPage("/vantu/messages/index"_s, "sTitle = 'Your inbox', iInboxMessages = 3"_s, "Hello <b>Emma</b>"_s);
        QCOMPARE(
            tree(),
            expected({"heading 'Your inbox'", "push button 'New message' focusable",
                      "web document 'page title' focusable multi-line: Hello Emma", "page tab list ''",
                      "  page tab 'Home' focusable selectable", "  page tab 'Inbox, 3' focusable selectable selected",
                      "  page tab 'Friends' focusable selectable", "  page tab 'Games' focusable selectable"}));
        page->progressIndicator->show();
        QVERIFY(tree().contains(expected({"progress bar 'Loading...' busy"}).first()));
        page->progressIndicator->hide();

        service->answer("/vantu/games"_s, {TestService::page({})});
        press("Games");
        QTRY_VERIFY(shownUrl() == url("/vantu/games"_s) && !isLoading());
    }

    void list()
    {
        page->on_SelectButtonClicked(5);
        QCOMPARE(tree(),
                 expected({"popup menu 'Interact' focusable focused modal",
                           "  menu item 'Send Message' focusable selectable",
                           "  menu item 'Add as friend' focusable selectable",
                           "  menu item 'Compare Games' focusable selectable"}));
        QTest::keyClick(window.get(), Qt::Key_Down);
        QCOMPARE(tree().mid(0, 2),
                 expected({"popup menu 'Interact' focusable modal",
                           "  menu item 'Send Message' focusable focused selectable selected"}));
        press("Send Message");
        QTRY_COMPARE(page->state, SendMessageState);
    }

    void composer()
    {
        page->openSendMessagePage();
        page->addrWidget->addNewUIDAddress("Ben"_s, "7"_s);
        m_reader.write(m_reader.find(m_window, "Message"_s), "Hi Ben"_s);
        QCOMPARE(page->txtMessage->text(), "Hi Ben"_s);
        press("Message");
        QTRY_VERIFY(page->txtMessage->hasFocus());
        QCOMPARE(
            tree(),
            expected({"heading 'Send Message'", "push button 'Send' focusable", "push button 'Cancel' focusable",
                      "label 'To: '", "push button 'Add recipient' focusable", "push button 'Remove Ben' focusable",
                      "text 'Message' editable focusable focused multi-line: Hi Ben"}));
        isWrittenInto("Message"_s);
        press("Remove Ben");
        QTRY_COMPARE(page->addrWidget->getRecipientsCount(), 0);
    }

    void box()
    {
        press("Send");
        const QStringList shown
            = expected({"alert message 'Please select at least one recipient' focusable focused modal",
                        "  label 'Please select at least one recipient'", "  push button 'OK' focusable"});
        QTRY_COMPARE(tree(), shown);
        press("OK");
        QTRY_VERIFY(tree().size() > shown.size());
        page->closeSendMessagePage();
    }

    void dialog()
    {
        page->openSendEmailPage();
        press("Add recipient");
        QTRY_COMPARE(tree(),
                     expected({"dialog 'Email' focusable modal", "  text 'Email' editable focusable focused",
                               "  push button 'OK' focusable"}));
        isWrittenInto("Email"_s);
        const QString name = "Email"_s;
        m_reader.write(m_reader.find(m_reader.find(m_window, name), name), "ben@example.org"_s);
        press("OK");
        QTRY_COMPARE(page->addrWidget->getAllAddress(), QStringList("ben@example.org"_s));
        page->closeSendEmailPage();
    }

    void tellsWhatChanges()
    {
        QTRY_VERIFY(!isLoading()); // The composer's last page is on its way still.
        static QStringList told;
        const auto toldBy = [](const auto &change) {
            told.clear();
            change();
            return told.join(QLatin1Char(','));
        };
        QAccessible::installUpdateHandler([](QAccessibleEvent *event) {
            const QString name = event->accessibleInterface()->text(QAccessible::Name);
            told << QLatin1String(qAccessibleEventString(event->type())) + QLatin1Char(' ') + name;
        });
        const auto handled = qScopeGuard([] { QAccessible::installUpdateHandler(nullptr); });
        page->btnHome->setChecked(true);
        QCOMPARE(toldBy([&] { page->btnFriend->setChecked(true); }),
                 "StateChanged Friends,SelectionAdd Friends,StateChanged Home,SelectionRemove Home"_s);
        QCOMPARE(toldBy([&] { page->getInboxMessages("5"_s); }), "NameChanged Inbox, 5"_s);
        QCOMPARE(toldBy([&] { page->showTitle("News"_s); }), "NameChanged News"_s);
        QCOMPARE(toldBy([&] { page->btnAdd->show(); }), "ObjectShow Add friends"_s);
        QCOMPARE(toldBy([&] { page->btnAdd->setFocus(); }), "Focus Add friends"_s);
        QCOMPARE(toldBy([&] { page->btnAdd->hide(); }), "ObjectHide Add friends"_s);
        QCOMPARE(toldBy([&] { page->on_SelectButtonClicked(5); }),
                 "NameChanged Interact,ObjectShow Interact,Focus Interact"_s);
        QCOMPARE(toldBy([&] { QTest::keyClick(window.get(), Qt::Key_Down); }), "Focus Send Message"_s);
        QCOMPARE(toldBy([&] { QTest::keyClick(window.get(), Qt::Key_Escape); }), "ObjectHide Interact"_s);
        QVERIFY(toldBy([&] { load("/vantu/info/"_s, "<title>About</title>"); }).contains("NameChanged About"_s));
    }

    // The display is a phone's.
    void fillsTheScreenButForTheKeyboardOfItsShell()
    {
        QVERIFY(window->isFullScreen() && window->windowFlags().testFlag(Qt::FramelessWindowHint));
        qputenv("WAYLAND_DISPLAY", "wayland-of-a-phone");
        const BusPeer shell("sm.puri.OSK0"_s, "/sm/puri/OSK0"_s);
        MInputMethodState::requestSoftwareInputPanel();
        QTRY_VERIFY(window->isMaximized());
        MInputMethodState::closeSoftwareInputPanel();
        QTRY_VERIFY(window->isFullScreen());
        qunsetenv("WAYLAND_DISPLAY");
    }

    void pictureInThePlaceOfAPage()
    {
        QSignalSpy finished(page->webView, &QGraphicsWebView::loadFinished);
        service->isSilent = true;
        page->webView->setUrl(QUrl(url("/vantu/friends"_s)));
        QVERIFY(finished.wait());
        QVERIFY(tree().contains(expected({"  push button 'Connection Error: try again' focusable focused"}).first()));
    }

private:
    QStringList tree() const
    {
        agree(QAccessible::queryAccessibleInterface(window.get()));
        return m_reader.tree(m_window);
    }

    /// Whether all beneath @p thing say the same of who is where.
    static void agree(const QAccessibleInterface *thing)
    {
        for (int i = 0; i < thing->childCount(); ++i) {
            const QAccessibleInterface *child = thing->child(i);
            QCOMPARE(child->parent(), thing);
            QCOMPARE(thing->indexOfChild(child), i);
            QCOMPARE(child->window(), thing->window());
            const QRect place = child->rect();
            QVERIFY(!place.isEmpty() && thing->rect().contains(place));
            QCOMPARE(thing->childAt(place.left() + 2, place.top() + 2), child);
            agree(child);
        }
    }

    /// What a screen reader does with the field of that name, which has the focus.
    void isWrittenInto(const QString &name) const
    {
        const QAccessibleInterface *whole = QAccessible::queryAccessibleInterface(window.get());
        QAccessibleInterface *field = whole->focusChild();
        QVERIFY(!whole->state().focused);
        QCOMPARE(field->text(QAccessible::Name), name);
        QAccessibleTextInterface *text = field->textInterface();
        field->editableTextInterface()->replaceText(0, text->characterCount(), "one two"_s);
        text->setSelection(0, 1, 2);
        int start = 0;
        int end = 0;
        text->selection(0, &start, &end);
        QCOMPARE(QVector<int>({text->selectionCount(), start, end, text->cursorPosition()}),
                 QVector<int>({1, 1, 2, 2}));
        text->removeSelection(0);
        QCOMPARE(text->selectionCount(), 0);
        field->editableTextInterface()->deleteText(0, 4);
        field->editableTextInterface()->insertText(3, "s"_s);
        QCOMPARE(field->text(QAccessible::Value), "twos"_s);
        QCOMPARE(text->text(1, 3), "wo"_s);
        QCOMPARE(text->offsetAtPoint(text->characterRect(2).topLeft() + QPoint(1, 3)), 2);
        QCOMPARE(text->offsetAtPoint({-1, -1}), -1);
    }

    void press(const char *name) { m_reader.press(m_reader.find(m_window, QString::fromLatin1(name))); }

    /// Lines of a tree, with single quotes around the names.
    static QStringList expected(std::initializer_list<const char *> lines)
    {
        QStringList all;
        for (const char *line : lines)
            all << QString::fromLatin1(line).replace(QLatin1Char('\''), QLatin1Char('"'));
        return all;
    }

    Reader m_reader;
    Thing m_window;
};

PORTAL_TEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
