// SPDX-License-Identifier: MIT
#include "servicerequests.h"

#include "globaldefine.h"

#include <QtTest>
#include <QUrlQuery>

namespace {

/// The pairs of a form body as a form parser reads them.
QList<QPair<QString, QString>> decoded(QByteArray body)
{
    const QUrlQuery query(QString::fromLatin1(body.replace('+', "%20")));
    return query.queryItems(QUrl::FullyDecoded);
}

} // namespace

class ServiceRequestsTest : public QObject {
    Q_OBJECT

private slots:
    void startUrlCarriesEverything()
    {
        StartValues values;
        values.language = QStringLiteral("DE");
        values.country = QStringLiteral("AT");
        values.deviceModel = QStringLiteral("Slate 3");
        values.firmware = QStringLiteral("12.9");
        values.deviceId = QStringLiteral("0a1b");
        values.game = -3;
        values.username = QStringLiteral("alice");
        values.password = QStringLiteral("pw1");
        values.rememberMe = true;
        QCOMPARE(
            startUrl(values),
            QLatin1String(K_SERVICE_ROOT)
                + QLatin1String("/vantu/?lg=DE&country=AT&d=Slate 3&f=12.9&udid=0a1b&KVB=-3&username=alice&pass=pw1"
                                "&remember_me=1&type=MEEGO&width=480&height=854&fb=1"));
        QVERIFY(
            startUrl({}).endsWith(QLatin1String("&d=&f=&udid=&KVB=0&username=&pass=&remember_me=0&type=MEEGO&width=480"
                                                "&height=854&fb=1")));
    }

    void startUrlTakesValuesAsTheyAre()
    {
        StartValues values;
        values.username = QStringLiteral("a&b#c+d");
        QVERIFY(startUrl(values).contains(QLatin1String("&username=a&b#c+d&pass=")));
        // A later placeholder inside a value is filled in its turn; an earlier one stays.
        values.username = QStringLiteral("PASSWORD LANG");
        values.password = QStringLiteral("pw");
        values.language = QStringLiteral("IT");
        QVERIFY(startUrl(values).contains(QLatin1String("&username=pw LANG&pass=pw&")));
    }

    void messageBodyListsRecipientsThenText()
    {
        QCOMPARE(messageBody({QStringLiteral("7"), QStringLiteral("9")}, QStringLiteral("Hi")),
                 QByteArray("user_id[]=7&user_id[]=9&message=Hi"));
        QCOMPARE(messageBody({}, QString()), QByteArray("message="));
    }

    void everyTextArrivesUnchanged_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("separators") << QStringLiteral("a&b=c;d");
        QTest::newRow("plus and percent") << QStringLiteral("1+1=2, 100%25 %41");
        QTest::newRow("line ends") << QStringLiteral("one\ntwo\r\n\tthree ");
        QTest::newRow("accents") << QStringLiteral(u"Grüße à l'été, ¿señor?");
        QTest::newRow("emoji") << QString::fromUtf8("\xF0\x9F\x98\x80 \xE2\x82\xAC");
        QTest::newRow("long") << QString(10000, QLatin1Char('&'));
    }

    void everyTextArrivesUnchanged()
    {
        QFETCH(QString, text);
        const QList<QPair<QString, QString>> wanted{{QStringLiteral("user_id[]"), QStringLiteral("p1")},
                                                    {QStringLiteral("message"), text}};
        QCOMPARE(decoded(messageBody({QStringLiteral("p1")}, text)), wanted);
    }

    void invitationNamesEachAddressTwice()
    {
        QCOMPARE(invitationBody({QStringLiteral("a"), QStringLiteral("b")}),
                 QByteArray("name[]=a&email[]=a&name[]=b&email[]=b"));
        QCOMPARE(invitationBody({QStringLiteral("x+y@z.test")}),
                 QByteArray("name[]=x%2By%40z.test&email[]=x%2By%40z.test"));
        QVERIFY(invitationBody({}).isEmpty());
    }

    void trophiesAreListedByBit_data()
    {
        QTest::addColumn<quint64>("mask");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("none") << quint64(0) << QByteArray();
        QTest::newRow("0 and 5") << quint64(33) << QByteArray("trophy_id[]=0&trophy_id[]=5");
        QTest::newRow("highest") << (quint64(1) << 63 | 1) << QByteArray("trophy_id[]=0&trophy_id[]=63");
    }

    void trophiesAreListedByBit()
    {
        QFETCH(quint64, mask);
        QTEST(trophyBody(mask), "body");
    }

    void postAddresses()
    {
        const QString game = QStringLiteral("7");
        const QString user = QStringLiteral("p12");
        const auto path = [](const QUrl &url) { return url.toString().mid(QLatin1String(K_SERVICE_ROOT).size()); };
        QCOMPARE(path(messageUrl(game, user)), QStringLiteral("/vantu/messages/send-message/android_uid/7p12"));
        QCOMPARE(path(invitationUrl(game, user)),
                 QStringLiteral("/vantu/games/recommend-via-mail/id/7/android_uid/p12"));
        QCOMPARE(path(trophyUrl(QString(), user, 7)),
                 QStringLiteral("/vantu/index/add-trophy/android_uid/p12/kvb_game/7"));
        QCOMPARE(path(trophyUrl(game, user, 8)), QStringLiteral("/vantu/index/add-trophy7/android_uid/p12/kvb_game/8"));
        QCOMPARE(path(rateUrl(user, 0)), QStringLiteral("/vantu/friends/evaluate/fid/p12/value/0"));
        QCOMPARE(path(facebookUrl(game)), QStringLiteral("/vantu/games/show-game/gid/7/fb_send/yes"));
    }
};

QTEST_APPLESS_MAIN(ServiceRequestsTest)
#include "tst_servicerequests.moc"
