// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

/// What the companion asks of the service: addresses and form bodies, as functions of plain values.

/// The values that the start URL carries. What the device cannot tell is empty.
struct StartValues {
    QString language; ///< two-letter code of the service
    QString country;
    QString deviceModel;
    QString firmware;
    QString deviceId;
    int game = 0;
    QString username;
    QString password;
    bool rememberMe = false;
};

/// Fills the start-URL template. Values go in as they are, without percent-encoding, and in a fixed order, so a value
/// that holds a later placeholder's word is replaced again; both are deliberate.
QString startUrl(const StartValues &values);

/// The form bodies, percent-encoded as UTF-8 so that every value arrives unchanged; keys stand with plain brackets.
QByteArray messageBody(const QStringList &recipients, const QString &message);
/// Each address goes out twice, as name and as address.
QByteArray invitationBody(const QStringList &addresses);
/// One item for each bit set in @p trophies, in ascending order; empty for none.
QByteArray trophyBody(quint64 trophies);

/// Where messages are posted. Game and user stand together without a separator: that is the service's format.
QUrl messageUrl(const QString &game, const QString &user);
QUrl invitationUrl(const QString &game, const QString &user);
/// @p shownGame is the game on display, often empty; @p launchingGame the one that started the companion.
QUrl trophyUrl(const QString &shownGame, const QString &user, int launchingGame);
/// @p value is 1 for thumbs up and 0 for thumbs down.
QUrl rateUrl(const QString &user, int value);
QUrl facebookUrl(const QString &game);
