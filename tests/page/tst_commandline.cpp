// SPDX-License-Identifier: MIT
#include "commandline.h"

#include <QtTest>

#include <limits>

class CommandLineTest : public QObject {
    Q_OBJECT

private slots:
    void numbers_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("number");
        QTest::newRow("plain") << QByteArray("12") << 12;
        QTest::newRow("blanks, sign, rest") << QByteArray(" \t-7up") << -7;
        QTest::newRow("word") << QByteArray("abc") << 0;
        QTest::newRow("empty") << QByteArray("") << 0;
        QTest::newRow("above 32 bits") << QByteArray("4294967303") << std::numeric_limits<int>::max();
        QTest::newRow("below 64 bits") << QByteArray("-99999999999999999999") << std::numeric_limits<int>::min();
    }

    void numbers()
    {
        QFETCH(QByteArray, text);
        QTEST(toInt(text.constData()), "number");
    }

    void languages_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("language");
        QTest::newRow("Spanish") << QByteArray("4") << 4;
        QTest::newRow("above") << QByteArray("5") << 0;
        QTest::newRow("negative") << QByteArray("-1") << 0;
        QTest::newRow("huge") << QByteArray("8589934594") << 0;
        QTest::newRow("word") << QByteArray("fr") << 0;
    }

    void languages()
    {
        QFETCH(QByteArray, text);
        QTEST(toLanguage(text.constData()), "language");
    }

    void masks_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<quint64>("mask");
        QTest::newRow("above 32 bits") << QByteArray("4294967297") << Q_UINT64_C(4294967297);
        QTest::newRow("all bits") << QByteArray("18446744073709551615") << ~Q_UINT64_C(0);
        QTest::newRow("all bits, negative") << QByteArray(" -1") << ~Q_UINT64_C(0);
        QTest::newRow("highest bit, negative") << QByteArray("-9223372036854775808") << (Q_UINT64_C(1) << 63);
        QTest::newRow("too large") << QByteArray("18446744073709551616") << ~Q_UINT64_C(0);
        QTest::newRow("too small") << QByteArray("-9223372036854775809") << (Q_UINT64_C(1) << 63);
        QTest::newRow("word") << QByteArray("many") << Q_UINT64_C(0);
    }

    void masks()
    {
        QFETCH(QByteArray, text);
        QTEST(toMask(text.constData()), "mask");
    }
};

QTEST_APPLESS_MAIN(CommandLineTest)
#include "tst_commandline.moc"
