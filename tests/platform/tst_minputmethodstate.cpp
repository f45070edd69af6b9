// SPDX-License-Identifier: MIT
#include "buspeer.h"
#include "minputmethodstate.h"

namespace {

/// The keyboard of a phone's shell.
class ShellKeyboard : public BusPeer {
public:
    ShellKeyboard()
        : BusPeer("sm.puri.OSK0"_s, "/sm/puri/OSK0"_s)
    {
    }

    QList<bool> wishes() const
    {
        QList<bool> all;
        for (const QDBusMessage &call : calls) {
            if (call.interface() == "sm.puri.OSK0"_s && call.member() == "SetVisible"_s)
                all << call.arguments().value(0).toBool();
        }
        return all;
    }
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
        QCOMPARE(shell.wishes(), QList<bool>({true, false}));
    }

    void onlyTheLastWordCounts()
    {
        ShellKeyboard shell;
        const QSignalSpy changes(m_state, &MInputMethodState::shellPanelVisibleChanged);
        MInputMethodState::requestSoftwareInputPanel();
        QTRY_VERIFY(m_state->isShellPanelVisible());
        MInputMethodState::closeSoftwareInputPanel();
        MInputMethodState::requestSoftwareInputPanel();
        QTRY_COMPARE(shell.wishes(), QList<bool>({true, true}));
        QCOMPARE(changes.count(), 1);
    }

    void sameWayOutForEveryEnd()
    {
        ShellKeyboard shell;
        MInputMethodState::requestSoftwareInputPanel();
        QTRY_VERIFY(m_state->isShellPanelVisible());
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
        QTRY_COMPARE(shell.wishes(), QList<bool>({true, false}));
    }

    void noShellNoKeyboard()
    {
        MInputMethodState::requestSoftwareInputPanel();
        ShellKeyboard shell;
        qunsetenv("WAYLAND_DISPLAY");
        MInputMethodState::requestSoftwareInputPanel();
        qputenv("WAYLAND_DISPLAY", "wayland-of-a-phone");
        MInputMethodState::closeSoftwareInputPanel();
        QTRY_COMPARE(shell.wishes().count(false), 1);
        QVERIFY(!m_state->isShellPanelVisible());
    }
};

QTEST_MAIN(InputMethodTest)
#include "tst_minputmethodstate.moc"
