// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

class Tour;

/// What is played, and the words in it that others can look for afterwards.
namespace Story {

inline const QString playerName = QStringLiteral("emma");
inline const QString playerPassword = QStringLiteral("emma123");
inline const QString playerId = QStringLiteral("u101");
inline const QString recipientName = QStringLiteral("luca");
inline const QString recipientPassword = QStringLiteral("luca123");
inline const QString recipientId = QStringLiteral("u102");
inline const QString secondRecipientId = QStringLiteral("u103");
inline const QString ratedId = QStringLiteral("u105");
inline const QString game = QStringLiteral("7");

inline const QString message = QStringLiteral(u"Samedi à 18 h ? Crêpes & limonade = ♥\n100 % süß + ¡olé!");
inline const QStringList addresses{QStringLiteral("nonna+vantu@example.net"), QStringLiteral("zoe@example.org")};
inline const QString motto = QStringLiteral(u"Zügig & élégante = moi");

/// The parts, in the order in which they make one story. Each is one run of the companion.
QStringList parts();

/// Plays @p part, one of parts(). @p service is the process of the service, which the last part ends.
void play(Tour &tour, const QString &part, qint64 service);

} // namespace Story
