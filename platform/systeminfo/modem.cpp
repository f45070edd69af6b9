// SPDX-License-Identifier: MIT
#include "modem.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QMap>
#include <QVariantMap>

namespace {

Modem askModemManager()
{
    constexpr int patience = 500; // milliseconds
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return {};
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.ModemManager1"), QStringLiteral("/org/freedesktop/ModemManager1"),
        QStringLiteral("org.freedesktop.DBus.ObjectManager"), QStringLiteral("GetManagedObjects"));
    call.setAutoStartService(false);
    const QVariant answer = bus.call(call, QDBus::Block, patience).arguments().value(0);
    const auto objects = qdbus_cast<QMap<QDBusObjectPath, QMap<QString, QVariantMap>>>(answer);
    for (const QMap<QString, QVariantMap> &interfaces : objects) {
        const QVariantMap modem = interfaces.value(QStringLiteral("org.freedesktop.ModemManager1.Modem.Modem3gpp"));
        const QString imei = modem.value(QStringLiteral("Imei")).toString();
        if (!imei.isEmpty())
            return {imei, modem.value(QStringLiteral("OperatorCode")).toString()};
    }
    return {};
}

} // namespace

Modem currentModem()
{
    static const Modem modem = askModemManager();
    return modem;
}
