// SPDX-License-Identifier: MIT
#include "servicerequests.h"

#include "globaldefine.h"

#include <utility>

namespace {

constexpr int trophyBits = 64;

/// Appends "key=value" to a form body. Keys are our own and go out as they stand.
void appendItem(QByteArray &body, const char *key, const QString &value)
{
    if (!body.isEmpty())
        body += '&';
    body += key;
    body += '=';
    body += QUrl::toPercentEncoding(value);
}

} // namespace

QString startUrl(const StartValues &values)
{
    // The size is that of the device's screen, deliberately not the part of it that the layout uses.
    const std::pair<const char *, QString> replacements[] = {
        {"LANG", values.language},
        {"COUNTRY_DETECTED", values.country},
        {"DEVICE_ANDROID", values.deviceModel},
        {"FIRMWARE_ANDROID", values.firmware},
        {"UDIDPHONE", values.deviceId},
        {"KVBGAME", QString::number(values.game)},
        {"USER_NAME", values.username},
        {"PASSWORD", values.password},
        {"AUTOLOGIN", values.rememberMe ? QStringLiteral("1") : QStringLiteral("0")},
        {"SCREEN_WIDTH", QStringLiteral("480")},
        {"SCREEN_HEIGHT", QStringLiteral("854")},
    };
    QString url = QLatin1String(K_LINK_VANTU_TEMPLATE);
    for (const auto &[placeholder, value] : replacements)
        url.replace(QLatin1String(placeholder), value);
    return url;
}

QByteArray messageBody(const QStringList &recipients, const QString &message)
{
    QByteArray body;
    for (const QString &recipient : recipients)
        appendItem(body, "user_id[]", recipient);
    appendItem(body, "message", message);
    return body;
}

QByteArray invitationBody(const QStringList &addresses)
{
    QByteArray body;
    for (const QString &address : addresses) {
        appendItem(body, "name[]", address);
        appendItem(body, "email[]", address);
    }
    return body;
}

QByteArray trophyBody(quint64 trophies)
{
    QByteArray body;
    for (int bit = 0; bit < trophyBits; ++bit) {
        if (trophies >> bit & 1U)
            appendItem(body, "trophy_id[]", QString::number(bit));
    }
    return body;
}

QUrl messageUrl(const QString &game, const QString &user)
{
    return QUrl(QLatin1String(K_LINK_SEND_MESSAGE) + game + user);
}

QUrl invitationUrl(const QString &game, const QString &user)
{
    return QUrl(QLatin1String(K_LINK_RECOMMEND_EMAIL) + game + QLatin1String("/android_uid/") + user);
}

QUrl trophyUrl(const QString &shownGame, const QString &user, int launchingGame)
{
    return QUrl(QLatin1String(K_LINK_NOTIFY_TROPHY) + shownGame + QLatin1String("/android_uid/") + user
                + QLatin1String("/kvb_game/") + QString::number(launchingGame));
}

QUrl rateUrl(const QString &user, int value)
{
    return QUrl(QString(QLatin1String(K_LINK_RATE_FRIEND)).replace(QLatin1String("FRIEND_ID"), user)
                + QString::number(value));
}

QUrl facebookUrl(const QString &game)
{
    return QUrl(QString(QLatin1String(K_LINK_RECOMMEND_FACEBOOK)).replace(QLatin1String("GAMEID"), game));
}
