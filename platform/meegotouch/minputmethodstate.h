// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// The software keyboard: that of Qt's input method and, in a Wayland session, also that of the phone's shell, which Qt
/// does not always reach.
class MInputMethodState : public QObject {
    Q_OBJECT

public:
    static MInputMethodState *instance();

    /// Takes the keyboard off the screen. The text field that it wrote into keeps the focus, so a real keyboard goes
    /// on writing there. While a finger is down it waits for the finger to lift, and is forgotten when the keyboard is
    /// asked for meanwhile. Harmless where there is no software keyboard.
    static void closeSoftwareInputPanel();

    /// Asks for the keyboard for the text field that has the focus.
    static void requestSoftwareInputPanel();

    /// Whether a finger is on the screen. What is shown moves with the keyboard: a finger would lift from another place
    /// than it touched.
    static void setFingerDown(bool down);

    /// Whether the shell has been asked for its keyboard, and has answered. What Qt's input method shows does not
    /// count.
    bool isShellPanelVisible() const { return m_isVisible; }

signals:
    void shellPanelVisibleChanged();

private:
    void want(bool visible);
    void askShell();
    void setVisible(bool visible);

    bool m_isFingerDown = false;
    bool m_isClosingDue = false; ///< when the finger lifts
    bool m_isWanted = false;
    bool m_isAskingSoon = false;
    bool m_wasShellAsked = false;
    bool m_isVisible = false;
};
