// SPDX-License-Identifier: MIT
#include "navigationrules.h"

#include "globaldefine.h"

#include <QtTest>

class NavigationRulesTest : public QObject {
    Q_OBJECT

private slots:
    void backLeadsUpOneLevel_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("target");
        const auto row = [](const char *path, const char *target) {
            QTest::newRow(path) << QString::fromLatin1(path) << QString::fromLatin1(target);
        };
        row("/vantu/games/show-game/gid/7", "/vantu/games");
        row("/vantu/games/show-game/gid/7/fb_send/yes", "/vantu/games");
        row("/vantu/games/show-game/gid", "/vantu/games");
        row("/vantu/games/show-game/7", "");
        row("/vantu/games/trophies/gid/5", "/vantu/games/show-game/gid/42");
        row("/vantu/games/Trophies/gid/5", "");
        row("/vantu/games/signal-twitter-send/gid/5", "/vantu/games/trophies/gid/42");
        row("/vantu/games/compare/uid/p7", "");
        row("/vantu/friends", "");
    }

    void backLeadsUpOneLevel()
    {
        QFETCH(QString, path);
        QFETCH(QString, target);
        const QString root = QLatin1String(K_SERVICE_ROOT);
        QCOMPARE(backTarget(root + path, QStringLiteral("42")), target.isEmpty() ? QString() : root + target);
    }

    void oneLookRulesOutErrorSentences_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("mayHoldOne");
        for (const char *sentence : errorSentences)
            QTest::newRow(sentence) << QString::fromUtf8(sentence) << true;
        QTest::newRow("capitals") << QStringLiteral("AN ERROR HAS OCCURRED") << true;
        QTest::newRow("accents") << QStringLiteral("An \u00e9rr\u00f8r has occurred") << true;
        QTest::newRow("hyphens that are not seen") << QStringLiteral("ein Feh\u00ad\u200bler ist") << true;
        QTest::newRow("letters of double width") << QStringLiteral("\uff25rror") << true;
        QTest::newRow("no word of it") << QStringLiteral("Ana has er, ror and f\u00e9hle; r.\nOh\u00e9 !") << false;
        QTest::newRow("nothing") << QString() << false;
    }

    void oneLookRulesOutErrorSentences()
    {
        QFETCH(QString, text);
        QTEST(mayHoldErrorSentence(text), "mayHoldOne");
    }

    void sharingSitesAreKnownByAWord()
    {
        QVERIFY(isTwitterUrl(QStringLiteral("https://Twitter.test/share?x=1")));
        QVERIFY(!isTwitterUrl(QStringLiteral("http://vantu.test/vantu/")));
        QVERIFY(isFacebookUrl(QStringLiteral("http://m.FaceBook.test/")));
        QVERIFY(!isFacebookUrl(QLatin1String(K_LINK_RECOMMEND_FACEBOOK)));
    }

    void theServiceIsKnownByItsRoot()
    {
        const QString root = QLatin1String(K_SERVICE_ROOT);
        for (const char *own : {"", "/", ":80/vantu/", "/vantu/?pass=x#y"})
            QVERIFY2(isServiceUrl(QUrl(root + QLatin1String(own))), own);
        for (const char *other : {"https://vantu.test/", "http://vantu.test:8080/", "http://vantu.test.other.test/",
                                  "http://www.vantu.test/", "http://vantu.test@other.test/", "data:text/html,x",
                                  "about:blank", "blob:http://vantu.test/1", "/vantu/", ""})
            QVERIFY2(!isServiceUrl(QUrl(QLatin1String(other))), other);
    }
};

QTEST_APPLESS_MAIN(NavigationRulesTest)
#include "tst_navigationrules.moc"
