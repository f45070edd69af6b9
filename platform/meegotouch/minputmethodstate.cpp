// SPDX-License-Identifier: MIT
#include "minputmethodstate.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QGuiApplication>
#include <QInputMethod>

MInputMethodState *MInputMethodState::instance()
{
    static MInputMethodState state;
    return &state;
}

void MInputMethodState::closeSoftwareInputPanel()
{
    QGuiApplication::inputMethod()->hide();
    instance()->want(false);
}

void MInputMethodState::requestSoftwareInputPanel()
{
    QGuiApplication::inputMethod()->show();
    instance()->want(true);
}

/// A tap on the next field takes the keyboard away and asks for it again: only the last word counts.
void MInputMethodState::want(bool visible)
{
    m_isWanted = visible;
    if (m_isAskingSoon || (!visible && !m_wasShellAsked) || qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return;
    m_isAskingSoon = true;
    QMetaObject::invokeMethod(this, &MInputMethodState::askShell, Qt::QueuedConnection);
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
