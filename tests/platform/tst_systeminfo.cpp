// SPDX-License-Identifier: MIT
#include "deviceidentity.h"
#include "mobilecountry.h"
#include "modem.h"
#include "testing.h"

#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusObjectPath>

using Interfaces = QMap<QString, QVariantMap>;
using ManagedObjects = QMap<QDBusObjectPath, Interfaces>;
Q_DECLARE_METATYPE(Interfaces)
Q_DECLARE_METATYPE(ManagedObjects)

namespace {

/// A second modem, which is a phone's: the first is a fax machine's and registers nowhere.
class ModemManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.DBus.ObjectManager")

public slots:
    ManagedObjects GetManagedObjects() const
    {
        const QString inGeneral = "org.freedesktop.ModemManager1.Modem"_s;
        const QVariantMap phone{{"Imei"_s, "490154203237518"_s}, {"OperatorCode"_s, "26201"_s}};
        return {{QDBusObjectPath("/Modem/0"_s), {{inGeneral, {{"Model"_s, "Fax"_s}}}}},
                {QDBusObjectPath("/Modem/1"_s), {{inGeneral, {}}, {inGeneral + ".Modem3gpp"_s, phone}}}};
    }
};

} // namespace

class SystemInfoTest : public QObject {
    Q_OBJECT

    static void writeFile(const QString &path, const QByteArray &content)
    {
        if (content.isEmpty())
            return;
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

private slots:
    void countryOfALocale()
    {
        QCOMPARE(DeviceIdentity::countryOfLocale("de_CH"_s), "CH"_s);
        QCOMPARE(DeviceIdentity::countryOfLocale("sr_Latn_RS"_s), "RS"_s);
        QCOMPARE(DeviceIdentity::countryOfLocale("en_001"_s), QString()); // a region, no country
    }

    void countryOfAMobileNetwork()
    {
        QCOMPARE(countryOfMobileCode("202"_s), "GR"_s);
        QCOMPARE(countryOfMobileCode("316"_s), "US"_s);
        QCOMPARE(countryOfMobileCode("203"_s), QString());
        QCOMPARE(countryOfMobileCode("abc"_s), QString());
    }

    void identityOfTheModem()
    {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));
        qDBusRegisterMetaType<Interfaces>();
        qDBusRegisterMetaType<ManagedObjects>();
        // On the connection that asks, or the one that waits for the answer could not give it.
        QDBusConnection bus = QDBusConnection::systemBus();
        ModemManager manager;
        QVERIFY(bus.registerObject("/org/freedesktop/ModemManager1"_s, &manager, QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService("org.freedesktop.ModemManager1"_s));
        QCOMPARE(currentModem().imei, "490154203237518"_s);
        QCOMPARE(currentModem().operatorCode, "26201"_s);
    }

    void modelOfTheHardware()
    {
        const auto model = [](const QByteArray &deviceTree, const QByteArray &dmi) {
            const QTemporaryDir root;
            writeFile(root.filePath("firmware/devicetree/base/model"_s), deviceTree);
            writeFile(root.filePath("devices/virtual/dmi/id/product_name"_s), dmi);
            return DeviceIdentity::hardwareModel(root.path());
        };
        QCOMPARE(model(QByteArray("Board 4 Rev 1.2\0", 16), {}), "Board 4 Rev 1.2"_s);
        QCOMPARE(model({}, "Book  14\n"), "Book 14"_s);
        QCOMPARE(model({}, "To Be Filled By O.E.M.\n"), QString());
        QCOMPARE(model({}, {}), QString());
    }

    void derivedIdTellsNothingOfTheMachineId()
    {
        const QByteArray machine = "0123456789abcdef0123456789abcdef";
        // By another tool: printf APPLICATION | openssl dgst -sha256 -hmac MACHINE
        QCOMPARE(DeviceIdentity::appSpecificId(machine), "0b200c2298e7c573d5f45e0390cb6635"_s);
        QCOMPARE(DeviceIdentity::appSpecificId(QByteArray()), QString());
    }
};

QTEST_MAIN(SystemInfoTest)
#include "tst_systeminfo.moc"
