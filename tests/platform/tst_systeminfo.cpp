#include "deviceidentity.h"
#include "mobilecountry.h"
#include "qsystemdeviceinfo.h"
#include "qsysteminfo.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

class SystemInfoTest : public QObject {
    Q_OBJECT

    static void writeFile(const QString &path, const QByteArray &content)
    {
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

private slots:
    void countryOfALocale_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("country");
        QTest::newRow("Switzerland") << QStringLiteral("de_CH") << QStringLiteral("CH");
        QTest::newRow("with a script") << QStringLiteral("sr_Latn_RS") << QStringLiteral("RS");
        QTest::newRow("a region, no country") << QStringLiteral("en_001") << QString();
        QTest::newRow("none") << QStringLiteral("C") << QString();
        QTest::newRow("empty") << QString() << QString();
    }

    void countryOfALocale()
    {
        QFETCH(QString, locale);
        QTEST(DeviceIdentity::countryOfLocale(locale), "country");
    }

    void countryOfAMobileNetwork_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("country");
        QTest::newRow("first") << QStringLiteral("202") << QStringLiteral("GR");
        QTest::newRow("last") << QStringLiteral("750") << QStringLiteral("FK");
        QTest::newRow("one of several") << QStringLiteral("316") << QStringLiteral("US");
        QTest::newRow("ships and satellites") << QStringLiteral("901") << QString();
        QTest::newRow("gap") << QStringLiteral("203") << QString();
        QTest::newRow("no number") << QStringLiteral("abc") << QString();
        QTest::newRow("empty") << QString() << QString();
    }

    void countryOfAMobileNetwork()
    {
        QFETCH(QString, code);
        QTEST(countryOfMobileCode(code), "country");
    }

    void modelOfTheHardware_data()
    {
        QTest::addColumn<QByteArray>("deviceTree");
        QTest::addColumn<QByteArray>("dmi");
        QTest::addColumn<QString>("model");
        QTest::newRow("board") << QByteArray("Board 4 Rev 1.2\0", 16) << QByteArray()
                               << QStringLiteral("Board 4 Rev 1.2");
        QTest::newRow("laptop") << QByteArray() << QByteArray("Book  14\n") << QStringLiteral("Book 14");
        QTest::newRow("place-holder") << QByteArray() << QByteArray("To Be Filled By O.E.M.\n") << QString();
        QTest::newRow("empty") << QByteArray() << QByteArray("\n") << QString();
        QTest::newRow("neither") << QByteArray() << QByteArray() << QString();
    }

    void modelOfTheHardware()
    {
        QFETCH(QByteArray, deviceTree);
        QFETCH(QByteArray, dmi);
        QTemporaryDir root;
        if (!deviceTree.isEmpty())
            writeFile(root.filePath(QStringLiteral("firmware/devicetree/base/model")), deviceTree);
        if (!dmi.isEmpty())
            writeFile(root.filePath(QStringLiteral("devices/virtual/dmi/id/product_name")), dmi);
        QTEST(DeviceIdentity::hardwareModel(root.path()), "model");
    }

    void derivedIdTellsNothingOfTheMachineId()
    {
        const QByteArray machine = "0123456789abcdef0123456789abcdef";
        // By another tool: printf APPLICATION | openssl dgst -sha256 -hmac MACHINE
        QCOMPARE(DeviceIdentity::appSpecificId(machine), QStringLiteral("0b200c2298e7c573d5f45e0390cb6635"));
        QCOMPARE(DeviceIdentity::appSpecificId(QByteArray()), QString());
    }

    void valuesOfThisMachineHaveTheirForm()
    {
        const QString country = QSystemInfo().currentCountryCode();
        QVERIFY(QRegularExpression(QStringLiteral("^([A-Z]{2})?$")).match(country).hasMatch());
        const QString firmware = QSystemInfo().version(QSystemInfo::Firmware);
        QVERIFY2(firmware != QSysInfo::kernelVersion(), "the kernel is no firmware");
        const QString id = QSystemDeviceInfo().imei();
        QVERIFY(QRegularExpression(QStringLiteral("^([0-9]{15}|[0-9a-f]{32})?$")).match(id).hasMatch());
        QVERIFY(id.isEmpty() || id != QString::fromLatin1(QSysInfo::machineUniqueId()));
        QCOMPARE(QSystemDeviceInfo().imei(), id);
    }
};

QTEST_MAIN(SystemInfoTest)
#include "tst_systeminfo.moc"
