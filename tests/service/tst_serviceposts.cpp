#include "runningservice.h"
#include "visitor.h"

#include <memory>
#include <QtTest>

using L1 = QLatin1String;

namespace {

const L1 messagePath("/vantu/messages/send-message/android_uid/7u102");
const L1 trophyPath("/vantu/index/add-trophy7/android_uid/u101/kvb_game/7");
const L1 invitePath("/vantu/games/recommend-via-mail/id/7/android_uid/u101");

} // namespace

/// What the companion posts by itself: messages, invitations, the trophy notice.
class ServicePosts : public QObject {
    Q_OBJECT

private slots:
    // Each test function has a service of its own, and its rows share it.
    void init()
    {
        if (m_function != QTest::currentTestFunction()) {
            m_function = QTest::currentTestFunction();
            m_service = std::make_unique<RunningService>();
        }
        m_emma = std::make_unique<Visitor>(m_service->root());
        QVERIFY(m_emma->start(L1("EN"), L1("emma"), L1("emma123")));
    }
    void cleanup() { QCOMPARE(m_service->errors(), QString()); }

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
        row("message of no game", send + L1("u102"), "user_id[]=u101&message=Hi", 200);
        row("message of a game with two digits", send + L1("12u102"), "user_id[]=u101&message=Hi", 200);
        row("message of spaces", message, "user_id[]=u101&message=++", 200);
        row("message to oneself", message, "user_id[]=u102&message=Hi", 200);
        row("no message", message, "user_id[]=u101", 400);
        row("empty message", message, "user_id[]=u101&message=", 400);
        row("no recipient", message, "message=Hi", 400);
        row("one recipient unknown", message, "user_id[]=u101&user_id[]=u999&message=Hi", 400);
        row("not UTF-8", message, "user_id[]=u101&message=%C3%28", 400);
        row("a NUL", message, "user_id[]=u101&message=a%00b", 400);
        row("nothing", message, "", 400);
        row("unknown sender", send + L1("7u999"), "user_id[]=u101&message=Hi", 404);
        row("unknown game", send + L1("99u102"), "user_id[]=u101&message=Hi", 404);
        row("a game beyond all numbers", send + L1("99999999999999999999u102"), "user_id[]=u101&message=Hi", 404);
        row("no sender", send + L1("7"), "user_id[]=u101&message=Hi", 404);
        row("no id at all", send, "user_id[]=u101&message=Hi", 404);
        row("SQL for a sender", send + L1("7u102'--"), "user_id[]=u101&message=Hi", 404);

        const QString invite = invitePath;
        row("invitation", invite, "name[]=a&email[]=a&name[]=b&email[]=b", 200);
        row("invitation to no game", L1("/vantu/games/recommend-via-mail/id//android_uid/u101"), "name[]=a&email[]=a",
            200);
        row("nobody invited", invite, "", 400);
        row("an address without its name", invite, "name[]=a&email[]=a&email[]=b", 400);
        row("an empty address", invite, "name[]=&email[]=", 400);
        row("invitation by nobody", L1("/vantu/games/recommend-via-mail/id/7/android_uid/u9"), "name[]=a&email[]=a",
            404);

        const QString trophy = trophyPath;
        row("trophies", trophy, "trophy_id[]=0&trophy_id[]=63", 200);
        row("no trophies", trophy, "", 200);
        row("trophies before any page named a game", L1("/vantu/index/add-trophy/android_uid/u101/kvb_game/7"),
            "trophy_id[]=0", 200);
        row("a trophy the game does not know", trophy, "trophy_id[]=33", 200);
        row("a trophy beyond the mask", trophy, "trophy_id[]=64", 400);
        row("a trophy below the mask", trophy, "trophy_id[]=-1", 400);
        row("a trophy that is no number", trophy, "trophy_id[]=first", 400);
        row("trophies of an unknown game", L1("/vantu/index/add-trophy7/android_uid/u101/kvb_game/0"), "", 404);
        row("trophies of nobody", L1("/vantu/index/add-trophy7/android_uid/u9/kvb_game/7"), "", 404);
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
        QTest::newRow("encoded brackets") << "user_id%5B%5D=u101&message=" + encoded << form << odd;
        QTest::newRow("brackets in small letters") << "user_id%5b%5d=u101&message=" + encoded << form << odd;
        QTest::newRow("another content type") << "user_id[]=u101&message=" + encoded << QByteArray("text/plain") << odd;
        QTest::newRow("a type with a charset")
            << "user_id[]=u101&message=" + encoded << form + "; charset=UTF-8" << odd;
        QTest::newRow("plus for space") << QByteArray("user_id[]=u101&message=one+two") << form << "one two";
        QTest::newRow("lines") << QByteArray("user_id[]=u101&message=one%0D%0Atwo%0Athree") << form
                               << "one\ntwo\nthree";
        QTest::newRow("stray percent signs") << QByteArray("user_id[]=u101&message=100%&x=%4") << form << "100%";
        QTest::newRow("multipart") << QByteArray(
            "--X\r\nContent-Disposition: form-data; name=\"user_id[]\"\r\n\r\nu101\r\n"
            "--X\r\nContent-Disposition: form-data; name=\"message\"\r\n\r\nin parts\r\n"
            "--X--\r\n") << QByteArray("multipart/form-data; boundary=X")
                                   << "in parts";
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

    void longMessageToManyRecipients()
    {
        QByteArray body;
        for (int i = 0; i < 200; ++i)
            body += "user_id%5B%5D=u" + QByteArray::number(101 + i % 12) + '&';
        const QString text = QString(QStringLiteral("é😀&=\n")).repeated(2500);
        body += "message=" + QUrl::toPercentEncoding(text);
        QCOMPARE(m_service->post(messagePath, body), 200);
        QVERIFY(m_emma->open(L1("/vantu/messages/index/uid/u102")));
        QCOMPARE(m_emma->evaluate(L1("document.querySelector('.bubble').firstChild.data")).toString(), text);
        QVERIFY(m_emma->open(L1("/vantu/messages/index")));
        QCOMPARE(m_emma->variable(L1("iInboxMessages")), L1("2"));
    }

    void sentMessageStandsInTheSendersList()
    {
        QCOMPARE(m_service->post(L1("/vantu/messages/send-message/android_uid/7u101"),
                                 "user_id[]=u104&user_id[]=u102&user_id[]=u104&message=to+both"),
                 200);
        QVERIFY(m_emma->open(L1("/vantu/messages/sent/")));
        QVERIFY2(m_emma->holds(QStringLiteral("To: Jonas Müller, Luca Bianchi")), qPrintable(m_emma->text()));
        QVERIFY(m_emma->holds(L1("to both")));
    }

    void invitationsAreKeptAsSent()
    {
        QCOMPARE(m_service->post(invitePath,
                                 "name[]=a%40b.org&email[]=a%40b.org&name[]=Zo%C3%AB&email[]=%3Czoe%2Bx@c.org%3E"),
                 200);
        QVERIFY(m_emma->open(L1("/vantu/friends/show-invite-email")));
        QVERIFY(m_emma->holds(L1("a@b.org")));
        QVERIFY(m_emma->holds(L1("<zoe+x@c.org>")));
    }

    void wonTrophiesAreNewUntilLookedAt()
    {
        QCOMPARE(m_service->post(trophyPath, "trophy_id[]=0&trophy_id%5B%5D=5&trophy_id[]=63&trophy_id[]=33"), 200);
        QVERIFY(m_emma->open(L1("/vantu/")));
        QCOMPARE(m_emma->variable(L1("iGamesMessages")), L1("3"));
        QVERIFY(m_emma->open(L1("/vantu/games/show-game/gid/7")));
        QVERIFY(m_emma->holds(L1("4 / 6")));
        QCOMPARE(m_emma->variable(L1("iGamesMessages")), L1("3"));
        QVERIFY(m_emma->open(L1("/vantu/games/trophies/gid/7")));
        QCOMPARE(m_emma->evaluate(L1("document.querySelectorAll('.won').length")).toInt(), 4);
        QVERIFY(m_emma->holds(L1("Master of the towers")));
        QCOMPARE(m_emma->variable(L1("iGamesMessages")), L1("0"));
        // The next run of the companion tells of them again.
        QCOMPARE(m_service->post(trophyPath, "trophy_id[]=0&trophy_id[]=63"), 200);
        QVERIFY(m_emma->open(L1("/vantu/games")));
        QCOMPARE(m_emma->variable(L1("iGamesMessages")), L1("0"));
    }

private:
    QByteArray m_function;
    std::unique_ptr<RunningService> m_service;
    std::unique_ptr<Visitor> m_emma;
};

QTEST_MAIN(ServicePosts)
#include "tst_serviceposts.moc"
