// SPDX-License-Identifier: MIT
#include "minputmethodstate.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QGuiApplication>
#include <QInputMethod>
#include <QTimer>

namespace {

constexpr int closingDelay = 100; // milliseconds

} // namespace

MInputMethodState *MInputMethodState::instance()
{
    static MInputMethodState state;
    return &state;
}

void MInputMethodState::closeSoftwareInputPanel()
{
    instance()->m_isClosingDue = instance()->m_isFingerDown;
    if (instance()->m_isClosingDue)
        return;
    QGuiApplication::inputMethod()->hide();
    instance()->want(false);
}

void MInputMethodState::requestSoftwareInputPanel()
{
    instance()->m_isClosingDue = false;
    QGuiApplication::inputMethod()->show();
    instance()->want(true);
}

void MInputMethodState::setFingerDown(bool down)
{
    instance()->m_isFingerDown = down;
    if (!down && instance()->m_isClosingDue)
        closeSoftwareInputPanel();
}

/// A tap on the next field takes the keyboard away and asks for it again, at once or once a page has answered: only the
/// last word counts.
void MInputMethodState::want(bool visible)
{
    m_isWanted = visible;
    if (m_isAskingSoon || (!visible && !m_wasShellAsked) || qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return;
    m_isAskingSoon = true;
    QTimer::singleShot(visible ? 0 : closingDelay, this, &MInputMethodState::askShell);
}

void MInputMethodState::askShell()
{
    m_isAskingSoon = false;
    if (!m_wasShellAsked) {
        // The shell does not notice who is gone.
        connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
            m_isWanted = false;
            askShell();
        });
        m_wasShellAsked = true;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("sm.puri.OSK0"), QStringLiteral("/sm/puri/OSK0"),
                                                       QStringLiteral("sm.puri.OSK0"), QStringLiteral("SetVisible"));
    call << m_isWanted;
    call.setAutoStartService(false);
    auto *answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, isShown = m_isWanted] {
        answer->deleteLater();
        setVisible(isShown && !answer->isError());
    });
}

void MInputMethodState::setVisible(bool visible)
{
    if (visible == m_isVisible)
        return;
    m_isVisible = visible;
    emit shellPanelVisibleChanged();
}
