// SPDX-License-Identifier: MIT
#include "deviceidentity.h"
#include "mobilecountry.h"

#include <QFile>
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
    }

    void countryOfALocale()
    {
        QFETCH(QString, locale);
        QTEST(DeviceIdentity::countryOfLocale(locale), "country");
    }

    void countryOfAMobileNetwork()
    {
        QCOMPARE(countryOfMobileCode(QStringLiteral("202")), QStringLiteral("GR"));
        QCOMPARE(countryOfMobileCode(QStringLiteral("316")), QStringLiteral("US"));
        QCOMPARE(countryOfMobileCode(QStringLiteral("203")), QString());
        QCOMPARE(countryOfMobileCode(QStringLiteral("abc")), QString());
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
};

QTEST_MAIN(SystemInfoTest)
#include "tst_systeminfo.moc"
