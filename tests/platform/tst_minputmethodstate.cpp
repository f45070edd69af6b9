// SPDX-License-Identifier: MIT
#include "minputmethodstate.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

/// The keyboard of a phone's shell, on a bus connection of its own.
class ShellKeyboard : public QDBusVirtualObject {
public:
    ShellKeyboard()
    {
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
        bus.registerVirtualObject(QStringLiteral("/sm/puri/OSK0"), this, QDBusConnection::SingleNode);
        bus.registerService(QStringLiteral("sm.puri.OSK0"));
    }
    ~ShellKeyboard() override { QDBusConnection::disconnectFromBus(connectionName); }

    QString introspect(const QString &) const override { return QString(); }

    bool handleMessage(const QDBusMessage &call, const QDBusConnection &connection) override
    {
        if (call.interface() != QLatin1String("sm.puri.OSK0") || call.member() != QLatin1String("SetVisible"))
            return false;
        wishes << call.arguments().value(0).toBool();
        connection.send(call.createReply());
        return true;
    }

    QList<bool> wishes;

private:
    const QString connectionName = QStringLiteral("shell");
};

} // namespace

/// The keyboard of the phone's shell, which is spoken to over D-Bus.
class InputMethodTest : public QObject {
    Q_OBJECT

    const MInputMethodState *const m_state = MInputMethodState::instance();

private slots:
    void init() { qputenv("WAYLAND_DISPLAY", "wayland-of-a-phone"); }

    void closingBeforeAnyRequestAsksNobody()
    {
        ShellKeyboard shell;
        MInputMethodState::closeSoftwareInputPanel();
        MInputMethodState::requestSoftwareInputPanel();
        QTRY_VERIFY(m_state->isShellPanelVisible());
        MInputMethodState::closeSoftwareInputPanel();
        QTRY_VERIFY(!m_state->isShellPanelVisible());
        QCOMPARE(shell.wishes, QList<bool>({true, false}));
    }

    void onlyTheLastWordCounts()
    {
        ShellKeyboard shell;
        const QSignalSpy changes(m_state, &MInputMethodState::shellPanelVisibleChanged);
        MInputMethodState::requestSoftwareInputPanel();
        QTRY_VERIFY(m_state->isShellPanelVisible());
        MInputMethodState::closeSoftwareInputPanel();
        MInputMethodState::requestSoftwareInputPanel();
        QTRY_COMPARE(shell.wishes, QList<bool>({true, true}));
        QCOMPARE(changes.count(), 1);
    }

    void sameWayOutForEveryEnd()
    {
        ShellKeyboard shell;
        MInputMethodState::requestSoftwareInputPanel();
        QTRY_VERIFY(m_state->isShellPanelVisible());
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
        QTRY_COMPARE(shell.wishes, QList<bool>({true, false}));
    }

    void noShellNoKeyboard()
    {
        MInputMethodState::requestSoftwareInputPanel();
        ShellKeyboard shell;
        qunsetenv("WAYLAND_DISPLAY");
        MInputMethodState::requestSoftwareInputPanel();
        qputenv("WAYLAND_DISPLAY", "wayland-of-a-phone");
        MInputMethodState::closeSoftwareInputPanel();
        QTRY_COMPARE(shell.wishes.count(false), 1);
        QVERIFY(!m_state->isShellPanelVisible());
    }
};

QTEST_MAIN(InputMethodTest)
#include "tst_minputmethodstate.moc"
