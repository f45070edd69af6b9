// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

/// The game's name on the session bus.
inline const QString gameServiceName = QStringLiteral("com.quelmora.QtDBus.Torvane");

/// Tells the game what the player did last: "QUIT" or "RESUMEGAME".
///
/// Blocks until the game has answered or the bus library's own time-out has passed (25 seconds for a game that
/// hangs, and as long again when it does not even describe itself). Every failure is a line on the console and
/// nothing more: the caller goes on whether or not the game has heard.
void sendMessage(QString message);

/// As sendMessage(), over a connection of its own: for a thread that speaks while the one that has used the session bus
/// so far hangs.
void sendMessageApart(const QString &message);

/// Looks whether the session bus speaks, and takes one that accepts and keeps silent for a second out of this process's
/// environment: Qt's own parts (accessibility, the desktop's theme, input methods) wait for it for 25 seconds each
/// before the first window shows. To be called before the application object is made. A bus in good health costs a
/// fraction of a millisecond.
void avoidSilentBus();

/// Takes the game's name on the session bus and answers the companion's calls there, through a ServiceHandler that
/// lives for the process and is the object registered at "/". Always returns 0, also without a bus or when somebody
/// else owns the name.
int registerService();

/// Whether somebody owns the game's name on the session bus. False without a bus.
bool isRunning();

/// The game's end of the link: its slots are the methods that the game offers on the bus.
class ServiceHandler : public QObject {
    Q_OBJECT

public slots:
    /// Writes one debug line with @p message, whatever it holds. Answers without a value, so a caller that asks for
    /// a string takes the reply for an error; that is how the two have always met. The spelling is the bus name.
    void recive(const QString &message);

signals:
    /// Deliberately more than the bus knows of: lets a game in this process hear @p message too.
    void received(const QString &message);
};
