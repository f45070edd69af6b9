// SPDX-License-Identifier: MIT
#include "loginfile.h"
#include "runningservice.h"
#include "story.h"
#include "testing.h"

#include <QImage>
#include <SQLiteCpp/SQLiteCpp.h>

using L1 = QLatin1String;

namespace {

/// One run of the companion with the tour in it, started by the game as players start it.
struct Run {
    QByteArray output;
    QByteArray errors;
    int status;

    QStringList heard() const { return QString::fromUtf8(output).split(QLatin1Char('\n')).filter(L1("game heard: ")); }
};

/// A service with its database and a folder with the login file: all that lasts from run to run.
class World {
public:
    World()
        : service({L1("--database"), file(L1("vantu.db"))})
        , m_database(file(L1("vantu.db")).toStdString(), SQLite::OPEN_READONLY, 2000)
    {
    }

    QString file(const QString &name) const { return m_folder.filePath(name); }

    Run play(const QString &part, int language, bool withPictures = false)
    {
        QStringList arguments{L1("--companion"), L1(TOUR_PROGRAM),
                              L1("--part"),      part,
                              L1("--proxy"),     "127.0.0.1:%1"_s.arg(service.port()),
                              L1("--service"),   QString::number(service.processId())};
        if (withPictures)
            arguments << L1("--pictures") << m_folder.path();
        // The trophies are bits 0, 5 and 63.
        arguments << Story::game << QString::number(language) << L1("9223372036854775841");
        QProcess game;
        game.setWorkingDirectory(m_folder.path());
        game.start(L1(GAME_PROGRAM), arguments);
        if (!game.waitForFinished(60000)) {
            game.terminate();
            game.waitForFinished(10000);
        }
        Run run{game.readAllStandardOutput(), game.readAllStandardError(),
                game.exitStatus() == QProcess::NormalExit ? game.exitCode() : -1};
        if (run.status != 0)
            qWarning("%s\n%s", run.output.constData(), run.errors.constData());
        return run;
    }

    /// The rows that @p sql selects, their values joined by blanks.
    QStringList select(const QString &sql) const
    {
        QStringList rows;
        SQLite::Statement statement(m_database, sql.toStdString());
        while (statement.executeStep()) {
            QStringList values;
            for (int i = 0; i < statement.getColumnCount(); ++i)
                values << QString::fromStdString(statement.getColumn(i).getString());
            rows << values.join(QLatin1Char(' '));
        }
        return rows;
    }

    /// The posts so far whose address begins with @p path.
    QStringList posts(const QString &path) { return service.log().filter(L1("POST ") + path); }

private:
    QTemporaryDir m_folder;

public:
    RunningService service;

private:
    SQLite::Database m_database;
};

const QString resumeMessage = "game heard: RESUMEGAME"_s;

} // namespace

/// The service, the game and the companion together, through a whole story.
class StoryTest : public QObject {
    Q_OBJECT

private slots:
    void isPlayedAndLasts_data()
    {
        const Table<int, QString, bool> row("language", "code", "withPictures");
        row("English", 0, "EN"_s, true);
        row("German", 2, "DE"_s, false);
    }

    void isPlayedAndLasts()
    {
        QFETCH(int, language);
        QFETCH(QString, code);
        QFETCH(bool, withPictures);
        World world;
        const QStringList unread
            = world.select("SELECT 'inbox ' || (SELECT count(*) FROM delivery WHERE recipient = '%1' AND "
                           "read = 0) || ', friends ' || (SELECT count(*) FROM friendship WHERE player = "
                           "'%1' AND seen = 0)"_s.arg(Story::playerId));

        const Run sender = world.play(L1("sender"), language, withPictures);
        QCOMPARE(sender.status, 0);
        QCOMPARE(sender.heard(), QStringList(resumeMessage));
        const int home = sender.output.indexOf("Home; ");
        QVERIFY(sender.output.mid(home, sender.output.indexOf('\n', home) - home).contains(unread.first().toUtf8()));
        checkSender(world, code);
        checkDatabase(world);
        const auto login = loadLogin(world.file(L1("vantu_Torvane.dat")));
        QVERIFY(login);
        QCOMPARE(login->username, Story::playerName);
        QVERIFY(!login->rememberMe.isEmpty());

        const Run recipient = world.play(L1("recipient"), language, withPictures);
        QCOMPARE(recipient.status, 0);
        QCOMPARE(recipient.heard(), QStringList("game heard: QUIT"_s));
        const QStringList signedIn = world.service.log().filter(L1("&username=emma&pass=***&remember_me=1&"));
        QCOMPARE(signedIn.size(), 1);
        QCOMPARE(loadLogin(world.file(L1("vantu_Torvane.dat")))->password, login->password);
        if (withPictures)
            checkPictures(world);
    }

    void endsWellWithoutTheService()
    {
        World world;
        const Run run = world.play(L1("outage"), 0);
        QCOMPARE(run.status, 0);
        QCOMPARE(run.heard(), QStringList(resumeMessage));
        QVERIFY(world.service.endsWith(0));
        QCOMPARE(world.posts(L1("/vantu/messages/")), QStringList());
    }

private:
    /// What went over the wire, each just once.
    static void checkSender(World &world, const QString &language)
    {
        const QString start = world.service.log().first();
        QVERIFY2(start.startsWith(L1("GET /vantu/?lg=") + language + L1("&country=")), qPrintable(start));
        QVERIFY2(start.endsWith(L1("&KVB=7&username=&pass=***&remember_me=0&type=MEEGO&width=480&height=854&fb=1 200")),
                 qPrintable(start));
        const QString trophies
            = QStringLiteral(R"(POST /vantu/index/add-trophy7/android_uid/%1/kvb_game/7 200 trophy_id[]="0" )"
                             R"(trophy_id[]="5" trophy_id[]="63")");
        QCOMPARE(world.posts(L1("/vantu/index/")), QStringList(trophies.arg(Story::playerId)));
        QCOMPARE(world.posts(L1("/vantu/messages/send-message/android_uid/")).size(), 1);
        const QStringList invitations = world.posts(L1("/vantu/games/recommend-via-mail/"));
        QCOMPARE(
            invitations,
            QStringList(QStringLiteral(R"(POST /vantu/games/recommend-via-mail/id/7/android_uid/%1 200 name[]="%2" )"
                                       R"(email[]="%2" name[]="%3" email[]="%3")")
                            .arg(Story::playerId, Story::addresses.first(), Story::addresses.last())));
    }

    static void checkDatabase(const World &world)
    {
        const QString id = Story::playerId;
        QCOMPARE(world.select("SELECT text FROM message WHERE id = (SELECT max(id) FROM message)"_s),
                 QStringList(Story::message));
        QCOMPARE(world.select("SELECT recipient FROM delivery WHERE message = (SELECT max(id) FROM message) "
                              "ORDER BY position"_s),
                 QStringList({Story::recipientId, Story::secondRecipientId}));
        QCOMPARE(world.select("SELECT up FROM rating WHERE rater = '%1' AND rated = '%2'"_s.arg(id, Story::ratedId)),
                 QStringList(L1("1")));
        QCOMPARE(world.select("SELECT address FROM invitation WHERE sender = '%1' AND game = 7 ORDER BY id"_s.arg(id)),
                 Story::addresses + QStringList({L1("Facebook"), L1("Twitter")}));
        QCOMPARE(world.select("SELECT bit FROM won WHERE player = '%1' AND game = 7 ORDER BY bit"_s.arg(id)),
                 QStringList({L1("0"), L1("1"), L1("5"), L1("63")}));
        QCOMPARE(world.select("SELECT motto FROM player WHERE id = '%1'"_s.arg(id)), QStringList(Story::motto));
    }

    /// Each step has left a picture of the whole screen, numbered through both runs.
    static void checkPictures(const World &world)
    {
        const QStringList pictures = QDir(world.file(QString())).entryList({L1("*.png")}, QDir::Files, QDir::Name);
        QVERIFY(pictures.size() > 30);
        for (int i = 0; i < pictures.size(); ++i) {
            QCOMPARE(pictures[i].section(QLatin1Char('-'), 0, 0).toInt(), i + 1);
            QCOMPARE(QImage(world.file(pictures[i])).size(), QSize(480, 814));
        }
    }
};

QTEST_GUILESS_MAIN(StoryTest)
#include "tst_story.moc"
