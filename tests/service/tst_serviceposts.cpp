// SPDX-License-Identifier: MIT
#include "servicetest.h"

namespace {

const L1 messagePath("/vantu/messages/send-message/android_uid/7u102");
const L1 trophyPath("/vantu/index/add-trophy7/android_uid/u101/kvb_game/7");
const L1 invitePath("/vantu/games/recommend-via-mail/id/7/android_uid/u101");

} // namespace

/// What the companion posts by itself: messages, invitations, the trophy notice.
class ServicePosts : public ServiceTest {
    Q_OBJECT

private slots:
    void answersByWhatIsPosted_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("status");

        const auto row = [](const char *name, const QString &path, const QByteArray &body, int status) {
            QTest::newRow(name) << path << body << status;
        };
        const QString message = messagePath;
        const QString send = QStringLiteral("/vantu/messages/send-message/android_uid/");
        row("message", message, "user_id[]=u101&message=Hi", 200);
        row("message of a game with two digits", send + L1("12u102"), "user_id[]=u101&message=Hi", 200);
        row("no recipient", message, "message=Hi", 400);
        row("one recipient unknown", message, "user_id[]=u101&user_id[]=u999&message=Hi", 400);
        row("not UTF-8", message, "user_id[]=u101&message=%C3%28", 400);
        row("a NUL", message, "user_id[]=u101&message=a%00b", 400);
        row("nothing", message, "", 400);
        row("unknown sender", send + L1("7u999"), "user_id[]=u101&message=Hi", 404);
        row("unknown game", send + L1("99u102"), "user_id[]=u101&message=Hi", 404);
        row("no sender", send + L1("7"), "user_id[]=u101&message=Hi", 404);

        const QString invite = invitePath;
        row("invitation", invite, "name[]=a&email[]=a&name[]=b&email[]=b", 200);
        row("invitation to no game", L1("/vantu/games/recommend-via-mail/id//android_uid/u101"), "name[]=a&email[]=a",
            200);
        row("nobody invited", invite, "", 400);
        row("an address without its name", invite, "name[]=a&email[]=a&email[]=b", 400);

        const QString trophy = trophyPath;
        row("trophies", trophy, "trophy_id[]=0&trophy_id[]=63", 200);
        row("trophies before any page named a game", L1("/vantu/index/add-trophy/android_uid/u101/kvb_game/7"),
            "trophy_id[]=0", 200);
        row("a trophy beyond the mask", trophy, "trophy_id[]=64", 400);
        row("a trophy that is no number", trophy, "trophy_id[]=first", 400);
        row("trophies of an unknown game", L1("/vantu/index/add-trophy7/android_uid/u101/kvb_game/0"), "", 404);
        row("elsewhere", L1("/vantu/friends/post"), "a=b", 404);
        row("too much", message, "user_id[]=u101&message=" + QByteArray(1100000, 'x'), 413);
    }
    void answersByWhatIsPosted()
    {
        QFETCH(QString, path);
        QFETCH(QByteArray, body);
        QFETCH(int, status);
        const int before = m_emma->variable(L1("iInboxMessages")).toInt();
        QCOMPARE(m_service->post(path, body), status);
        const bool isForEmma = path.contains(L1("send-message")) && status == 200 && body.contains("u101");
        QVERIFY(m_emma->open(L1("/vantu/messages/index")));
        QCOMPARE(m_emma->variable(L1("iInboxMessages")).toInt(), before + (isForEmma ? 1 : 0));
    }

    void messageArrivesUnchanged_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<QString>("text");

        const QByteArray form("application/x-www-form-urlencoded");
        const QString odd = QStringLiteral("a&b=c+d%e \"é\" <b>ß</b> 😀 'x' {{NAME}}");
        const QByteArray encoded = QUrl::toPercentEncoding(odd);
        QTest::newRow("bare brackets") << "user_id[]=u101&message=" + encoded << form << odd;
        QTest::newRow("encoded brackets") << "user_id%5b%5D=u101&message=" + encoded << form + "; charset=UTF-8" << odd;
        QTest::newRow("another content type") << "user_id[]=u101&message=" + encoded << QByteArray("text/plain") << odd;
        QTest::newRow("lines") << QByteArray("user_id[]=u101&message=one+1%0D%0Atwo%0Athree") << form
                               << "one 1\ntwo\nthree";
        QTest::newRow("stray percent signs") << QByteArray("user_id[]=u101&message=100%&x=%4") << form << "100%";
    }
    void messageArrivesUnchanged()
    {
        QFETCH(QByteArray, body);
        QFETCH(QByteArray, type);
        QFETCH(QString, text);
        QCOMPARE(m_service->post(messagePath, body, type), 200);
        QVERIFY(m_emma->open(L1("/vantu/messages/index/uid/u102")));
        QCOMPARE(
            m_emma->evaluate(L1("document.querySelector('.bubble').firstChild.data.replace(/\\r/g, '')")).toString(),
            text);
    }

    void wonTrophiesAreNewUntilLookedAt()
    {
        QCOMPARE(m_service->post(trophyPath, "trophy_id[]=0&trophy_id%5B%5D=5&trophy_id[]=63&trophy_id[]=33"), 200);
        QVERIFY(m_emma->open(L1("/vantu/")));
        QCOMPARE(m_emma->variable(L1("iGamesMessages")), L1("3"));
        QVERIFY(m_emma->open(L1("/vantu/games/trophies/gid/7")));
        QCOMPARE(m_emma->evaluate(L1("document.querySelectorAll('.row:not(.open)').length")).toInt(), 4);
        QCOMPARE(m_emma->variable(L1("iGamesMessages")), L1("0"));
        // The next run of the companion tells of them again.
        QCOMPARE(m_service->post(trophyPath, "trophy_id[]=0&trophy_id[]=63"), 200);
        QVERIFY(m_emma->open(L1("/vantu/games")));
        QCOMPARE(m_emma->variable(L1("iGamesMessages")), L1("0"));
    }
};

QTEST_MAIN(ServicePosts)
#include "tst_serviceposts.moc"
