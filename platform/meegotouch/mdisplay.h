// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Finds the display for the application object: made before that and destroyed when it is there.
///
/// Qt by itself asks one kind of display only, often the wrong one, and aborts where there is none. This has it ask
/// all that the environment speaks of, the session's own first, and in the end take a platform that shows nothing, so
/// that the application object exists whatever happens. Qt's warnings about displays that it could not open are not
/// printed. What the user asks for goes before everything: a -platform on the command line, or a QT_QPA_PLATFORM.
class MDisplay {
public:
    /// Changes the value of a -platform among the arguments, which Qt takes out when the application object is made.
    MDisplay(int argc, char **argv);
    ~MDisplay();

    /// Why there is no display, in one English sentence without a full stop; empty if there is one. To be asked while
    /// the application object exists.
    QString problem() const;

private:
    Q_DISABLE_COPY(MDisplay)

    const QByteArray m_userPlatform;
    QByteArray m_platformOption; // with a way out
    QString m_wish; // of the user's own
};
