// SPDX-License-Identifier: MIT
#include "runningservice.h"
#include "visitor.h"

#include <memory>

using L1 = QLatin1String;

namespace {

const char variableNames[]
    = "sUserUid iInboxMessages iGamesMessages iFriendsMessages iGameId sSubject bIsFriend bShowAdd "
      "bShowEvaluate iUserId sUserName sTitle strUserName strPassword blnRememberMe";

const L1 messagePath("/vantu/messages/send-message/android_uid/7u102");
const L1 trophyPath("/vantu/index/add-trophy7/android_uid/u101/kvb_game/7");
const L1 invitePath("/vantu/games/recommend-via-mail/id/7/android_uid/u101");

// A file that lies beside this one.
QByteArray contents(const char *name)
{
    QFile file(QFINDTESTDATA(name));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

// What a page says, with "WHEN" for days and times, which pass.
QString words(const Visitor &visitor)
{
    static const QRegularExpression moment(L1("(\\d\\d [A-Z][a-z]{2}, )?\\d\\d:\\d\\d|\\d\\d [A-Z][a-z]{2}(?=\\W|$)"));
    return visitor.text().simplified().replace(moment, L1("WHEN"));
}

} // namespace

/// The pages as a player meets them in the companion's web engine, the variables that the companion fetches, and what
/// it posts by itself. Each test function has a service of its own, its rows share it, and emma is signed in anew for
/// each of them. The service complains of nothing.
class ServicePages : public QObject {
    Q_OBJECT

private slots:
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

    void startUrl_data()
    {
        const Table<QString, QString, QString, QString> row("login", "password", "remember", "player");
        row("nobody", {}, {}, L1("0"), {});
        row("luca", L1("luca"), L1("luca123"), L1("1"), L1("u102"));
        row("capitals", L1("LUCA"), L1("luca123"), L1("1"), L1("u102"));
        row("not to be remembered", L1("luca"), L1("luca123"), L1("0"), {});
        row("another's password", L1("luca"), L1("emma123"), L1("1"), {});
        row("no password", L1("luca"), {}, L1("1"), {});
        row("quotes", L1("luca' or 1=1 --"), L1("luca123"), L1("1"), {});
    }
    void startUrl()
    {
        QFETCH(QString, login);
        QFETCH(QString, password);
        QFETCH(QString, remember);
        QFETCH(QString, player);
        Visitor visitor(m_service->root());
        QVERIFY(visitor.start(L1("DE"), login, password, remember));
        // The page stands at the start URL itself: nothing there may lead back.
        QVERIFY(visitor.path().startsWith(L1("/vantu/?lg=DE")));
        QCOMPARE(visitor.variables("sUserUid sTitle strUserName blnRememberMe iGameId"),
                 player.isEmpty() ? L1(",Anmelden,,,7") : player + L1(",Home,luca,1,7"));
        QCOMPARE(visitor.ledBy(L1("/vantu/friends")), player.isEmpty() ? L1("/vantu/login") : L1("/vantu/friends"));
        QCOMPARE(visitor.variable(L1("iGameId")), L1("7"));
    }

    void signInForm()
    {
        Visitor visitor(m_service->root());
        visitor.start(L1("IT"));
        QCOMPARE(visitor.submit(L1("/vantu/login"), "username=luca&password=wrong&remember_me=1"), L1("/vantu/login"));
        QVERIFY(visitor.holds(L1("Nome utente o password errati.")));
        QCOMPARE(visitor.evaluate(L1("document.getElementById('username').value")).toString(), L1("luca"));
        QCOMPARE(visitor.submit(L1("/vantu/login"), "username=luca&password=luca123&remember_me=0"), L1("/vantu/"));
        QVERIFY(!visitor.holds(L1("errati")));
        QCOMPARE(visitor.variables("sUserUid strPassword blnRememberMe"), L1("u102,,"));
    }

    void storedLoginIsATokenThatSigningOutEnds()
    {
        const QString token = m_emma->variable(L1("strPassword"));
        QCOMPARE(token.size(), 64);
        Visitor again(m_service->root());
        QVERIFY(again.start(L1("EN"), L1("emma"), token));
        QCOMPARE(again.variable(L1("strPassword")), token);
        QVERIFY(!again.start(L1("EN"), L1("luca"), token) || again.variable(L1("sUserUid")) == L1("u101"));
        QVERIFY(again.ledBy(L1("/vantu/logout")).startsWith(L1("/vantu/login?iDelete=")));
        QVERIFY(again.holds(L1("You are signed out.")));
        QCOMPARE(again.variable(L1("strPassword")), L1(""));
        QVERIFY(again.start(L1("EN"), L1("emma"), token));
        QCOMPARE(again.variable(L1("sUserUid")), L1(""));
    }

    void everyPageInEveryLanguage_data()
    {
        const Table<QString> row("error");
        row("EN", "An error has occurred inside the application"_s);
        row("FR", "Une erreur est survenue dans l'application"_s);
        row("DE", "In der Anwendung ist ein Fehler aufgetreten"_s);
        row("IT", "Si è verificato un errore nell'applicazione"_s);
        row("SP", "Ha ocurrido un error en la aplicación"_s);
    }
    void everyPageInEveryLanguage()
    {
        QFETCH(QString, error);
        m_emma->start(L1(QTest::currentDataTag()));
        const QString faintTexts = QString::fromUtf8(contents("fainttexts.js"));
        const QByteArray paths = "/vantu/ /vantu/login /vantu/login/index /vantu/login?iDelete=1 /vantu/messages/index "
                                 "/vantu/messages/index/uid/u103 /vantu/messages/sent/ /vantu/friends /vantu/friends/ "
                                 "/vantu/friends/?select=yes /vantu/friends/index/page/2 /vantu/friends/add-friends/ "
                                 "/vantu/friends/show-invite-email /vantu/account "
                                 "/vantu/account/edit /vantu/account/index/uid/u101 /vantu/account/index/uid/u112 "
                                 "/vantu/games /vantu/games/show-game/gid/12 /vantu/games/trophies/gid/7 "
                                 "/vantu/games/compare/uid/u102 /vantu/games/recommend-via-mail/id/ "
                                 "/vantu/games/recommend-via-mail/id/7 /vantu/games/recommend-via-twitter/id/7 "
                                 "/vantu/games/signal-twitter-send/gid/7 /vantu/games/show-game/gid/7/fb_send/yes "
                                 "/vantu/info/ /vantu/error /vantu/slow?ms=0 /vantu/none";
        for (const QByteArray &path : paths.split(' ')) {
            QVERIFY2(m_emma->open(L1(path)), path);
            QCOMPARE(m_emma->holds(error), path == "/vantu/error");
            for (const QByteArray &name : QByteArray(variableNames).split(' '))
                QVERIFY2(!m_emma->variable(L1(name)).isNull(), (path + ": " + name).constData());
            const QString title = m_emma->variable(L1("sTitle"));
            QVERIFY2(!title.isEmpty() && title.size() <= 18, qPrintable(title));
            QCOMPARE(m_emma->evaluate(L1("document.title")).toString(), title);
            // Only a profile may name a player: any page that does so can become a recipient.
            QCOMPARE(!m_emma->variable(L1("iUserId")).isEmpty(), path.contains("/account/index/"));
            QVERIFY2(!m_emma->text().contains(L1("{{")), path);
            QVERIFY2(m_emma->evaluate(L1("document.body.scrollWidth <= 320")).toBool(), path);
            QCOMPARE(m_emma->evaluate(faintTexts).toString(), L1("none"));
        }
    }

    // What emma reads in the world as it begins: pages.txt holds address and text of each page.
    void everyPageSaysWhatIsSo()
    {
        const QString pages = QString::fromUtf8(contents("pages.txt"));
        for (const QString &page : pages.trimmed().split(L1("\n\n"))) {
            QVERIFY2(m_emma->open(page.section(QLatin1Char('\n'), 0, 0)), qPrintable(page));
            QCOMPARE(words(*m_emma), page.section(QLatin1Char('\n'), 1));
        }
        // A message has one time, wherever it stands.
        const auto sent = [this](const char *path) {
            m_emma->open(L1(path));
            static const QRegularExpression moment(L1("win :-\\) (\\d\\d(:\\d\\d| [A-Z][a-z]{2}))"));
            return moment.match(m_emma->text().simplified()).captured(1);
        };
        QVERIFY(!sent("/vantu/messages/sent/").isEmpty());
        QCOMPARE(sent("/vantu/messages/index"), sent("/vantu/messages/sent/"));
    }

    void variablesTellWhatIsShown()
    {
        for (const auto &[path, expected] :
             {std::pair("/vantu/", ",,0,0,0,7,Play Torvane with me"),
              {"/vantu/account/index/uid/u103", "u103,Marie Lefèvre,1,0,1,7,Play Torvane with me"},
              {"/vantu/account/index/uid/u108", "u108,Mateusz Kowalski,0,1,0,7,Play Torvane with me"},
              {"/vantu/account/index/uid/u101", "u101,Emma Lindqvist,0,0,0,7,Play Torvane with me"},
              {"/vantu/games/show-game/gid/11", ",,0,0,0,11,Play Night Tram with me"},
              {"/vantu/games/recommend-via-mail/id/3", ",,0,0,0,3,Play Kite Harbour with me"},
              {"/vantu/games/signal-twitter-send/gid/15", ",,0,0,0,15,Play Deep Lantern with me"}}) {
            QVERIFY(m_emma->open(L1(path)));
            QCOMPARE(m_emma->variables("iUserId sUserName bIsFriend bShowAdd bShowEvaluate iGameId sSubject"),
                     QString::fromUtf8(expected));
        }
    }

    void badgesFallAsThingsAreSeen()
    {
        QCOMPARE(m_emma->variables("iInboxMessages iFriendsMessages"), L1("3,1"));
        QCOMPARE(m_emma->variable(L1("iInboxMessages"), L1("/vantu/messages/index")), L1("3"));
        QCOMPARE(m_emma->variable(L1("iInboxMessages"), L1("/vantu/messages/index/uid/u102")), L1("2"));
        QVERIFY(m_emma->open(L1("/vantu/friends/?select=yes")));
        QVERIFY(m_emma->text().startsWith(L1("CHOOSE A FRIEND")));
        QCOMPARE(m_emma->variable(L1("iFriendsMessages")), L1("0"));
        // Luca's message went to others too, who have not read it.
        Visitor marie(m_service->root());
        QVERIFY(marie.start(L1("EN"), L1("marie"), L1("marie123")));
        QCOMPARE(marie.variable(L1("iInboxMessages")), L1("2"));
    }

    void findingAddingAndDeletingAFriend()
    {
        QCOMPARE(m_emma->submit(L1("/vantu/friends/add-friends/"), "q=MATEUSZ"),
                 L1("/vantu/friends/add-friends/?found=1"));
        QCOMPARE(words(*m_emma), "Search FOUND MK Mateusz Kowalski Łódź Add Invitations"_s);
        QCOMPARE(m_emma->evaluate(L1("document.querySelector('input').value")).toString(), L1("MATEUSZ"));
        m_emma->submit(L1("/vantu/friends/add-friends/"), "q=_");
        QCOMPARE(words(*m_emma), L1("Search Nobody of that name. Invitations"));

        QCOMPARE(m_emma->ledBy(L1("/vantu/account/add-friend/uid/u108")), L1("/vantu/account/index/uid/u108"));
        QVERIFY(m_emma->holds(L1("Mateusz Kowalski is now your friend.")));
        QCOMPARE(m_emma->variables("bIsFriend iFriendsMessages"), L1("1,1"));
        Visitor mateusz(m_service->root());
        QVERIFY(mateusz.start(L1("EN"), L1("mateusz"), L1("mateusz123")));
        QCOMPARE(mateusz.variable(L1("iFriendsMessages")), L1("1"));
        QCOMPARE(mateusz.ledBy(L1("/vantu/friends/delete-friend/uid/u101")), L1("/vantu/friends?iDelete=1"));
        QVERIFY(mateusz.holds(L1("Emma Lindqvist is no longer on your list.")));
        QVERIFY(!mateusz.text().contains(L1("EL")));
        QCOMPARE(m_emma->variable(L1("bShowAdd"), L1("/vantu/account/index/uid/u108")), L1("1"));
        QCOMPARE(m_emma->ledBy(L1("/vantu/account/add-friend/uid/u101")), L1("/vantu/account/index/uid/u101"));
    }

    void aRaterHasOneVote()
    {
        const auto thumbs
            = [this] { return m_emma->evaluate(L1("document.querySelector('.thumbs').textContent")).toString(); };
        QVERIFY(m_emma->open(L1("/vantu/account/index/uid/u104")));
        QCOMPARE(thumbs(), L1("21"));
        QCOMPARE(m_emma->ledBy(L1("/vantu/friends/evaluate/fid/u104/value/0")), L1("/vantu/account/index/uid/u104"));
        QVERIFY(m_emma->holds(L1("counts")));
        QCOMPARE(thumbs(), L1("12"));
        QVERIFY(m_emma->open(L1("/vantu/friends/evaluate/fid/u104/value/1")));
        QVERIFY(m_emma->open(L1("/vantu/friends/evaluate/fid/u104/value/1")));
        QCOMPARE(thumbs(), L1("21"));
    }

    void sharingStandsAmongTheInvitations()
    {
        QCOMPARE(m_service->post(invitePath, "name[]=a&email[]=ann@vantu.test"), 200);
        QCOMPARE(m_emma->submit(L1("/vantu/games/recommend-via-twitter/id/7"), ""),
                 L1("/vantu/games/signal-twitter-send/gid/7"));
        QCOMPARE(m_emma->submit(L1("/vantu/facebook/share/gid/11"), ""), L1("/vantu/games/show-game/gid/11"));
        QVERIFY(m_emma->holds(L1("Shared. Thank you!")));
        QVERIFY(m_emma->open(L1("/vantu/friends/show-invite-email")));
        QCOMPARE(words(*m_emma), L1("Facebook Night Tram WHEN Twitter Torvane WHEN ann@vantu.test Torvane WHEN"));
    }

    void refusals()
    {
        const QByteArray unknown
            = "/vantu/account/index/uid/u999 /vantu/friends/index/page/0 /vantu/friends/index/page/999999999999 "
              "/vantu/games/show-game/gid/7x /vantu/games/show-game/gid/1234567890 "
              "/vantu/messages/send-message/android_uid/7u101";
        const QByteArray wrong = "/vantu/friends/delete-friend/uid/u112 /vantu/friends/evaluate/fid/u112/value/1 "
                                 "/vantu/friends/evaluate/fid/u102/value/2 /vantu/slow?ms=long /vantu/slow?ms=10001";
        for (const QByteArray &path : (unknown + ' ' + wrong).split(' ')) {
            m_emma->open(L1(path));
            const L1 refusal(wrong.contains(path) ? "something in the request is not right" : "There is no such page.");
            QVERIFY2(m_emma->holds(refusal), path + qPrintable(m_emma->text()));
            QCOMPARE(m_emma->variable(L1("sUserUid")), L1("u101"));
        }
    }

    void accountIsEdited()
    {
        const QString name = "</script><b>\"É'\\{{sTitle}}"_s;
        const QByteArray form = "name=" + QUrl::toPercentEncoding(name) + "&city=%26amp%3B&motto=%22%3E%3Cimg%3E";
        QCOMPARE(m_emma->submit(L1("/vantu/account/edit"), form), L1("/vantu/account"));
        QVERIFY(m_emma->holds(L1("Your changes are saved.")));
        QVERIFY(m_emma->open(L1("/vantu/account/index/uid/u101")));
        QVERIFY(!m_emma->holds(L1("saved")));
        QCOMPARE(m_emma->variable(L1("sUserName")), name);
        QCOMPARE(m_emma->evaluate(L1("document.querySelector('h1').textContent")).toString(), name);
        QVERIFY(m_emma->holds(L1("&amp;")));
        QVERIFY(m_emma->open(L1("/vantu/account/edit")));
        QCOMPARE(m_emma->evaluate(L1("document.getElementById('motto').value")).toString(), L1("\"><img>"));
        QCOMPARE(m_emma->evaluate(L1("document.querySelectorAll('img, b').length")).toInt(), 0);
    }

    void accountRefusesWhatDoesNotFitAndKeepsIt()
    {
        const QByteArray longName = "name=" + QByteArray("%C3%A9").repeated(41);
        const QByteArray longTown = "name=a&city=" + QByteArray(101, 'b');
        for (const QByteArray &form :
             {QByteArray("name="), longName, longTown, QByteArray("name=a%0Ab"), QByteArray("name=%FF")}) {
            m_emma->submit(L1("/vantu/account/edit"), form + "&motto=typed");
            const QString found
                = "document.querySelectorAll('.notice').length + document.getElementById('motto').value"_s;
            QVERIFY2(m_emma->evaluate(found).toString() == L1("1typed"), form);
        }
        QVERIFY(m_emma->open(L1("/vantu/account")));
        QVERIFY(m_emma->holds(L1("Emma Lindqvist")));
    }

    void visitorsChangeNothing()
    {
        for (int i = 0; i < 500; ++i)
            QVERIFY(m_service->exchange("GET /vantu/ HTTP/1.0\r\n\r\n").contains("Set-Cookie: vantu_session="));
        QCOMPARE(m_emma->ledBy(L1("/vantu/friends")), L1("/vantu/friends"));
        const auto head
            = "r = new XMLHttpRequest; r.open('HEAD', 'friends/delete-friend/uid/u102', false); r.send();"_s;
        m_emma->evaluate(head);
        QCOMPARE(m_emma->evaluate(L1("r.status")).toInt(), 200);
        QCOMPARE(m_emma->variable(L1("bIsFriend"), L1("/vantu/account/index/uid/u102")), L1("1"));
        QVERIFY(!m_emma->open(L1("/vantu/broken")));
    }

    void answersByWhatIsPosted_data()
    {
        const Table<QString, QByteArray, int> row("path", "body", "status");
        const QString message = messagePath;
        const QString send = "/vantu/messages/send-message/android_uid/"_s;
        row("message of a game with two digits", send + L1("12u102"), "user_id[]=u101&message=Hi", 200);
        row("no recipient", message, "message=Hi", 400);
        row("one recipient unknown", message, "user_id[]=u101&user_id[]=u999&message=Hi", 400);
        row("not UTF-8", message, "user_id[]=u101&message=%C3%28", 400);
        row("a NUL", message, "user_id[]=u101&message=a%00b", 400);
        row("no text", message, "user_id[]=u101", 400);
        row("unknown sender", send + L1("7u999"), "user_id[]=u101&message=Hi", 404);
        row("unknown game", send + L1("99u102"), "user_id[]=u101&message=Hi", 404);
        row("no sender", send + L1("7"), "user_id[]=u101&message=Hi", 404);

        const QString invite = invitePath;
        row("invitation to no game", L1("/vantu/games/recommend-via-mail/id//android_uid/u101"), "name[]=a&email[]=a",
            200);
        row("nobody invited", invite, "", 400);
        row("an address without its name", invite, "name[]=a&email[]=a&email[]=b", 400);

        const QString trophy = trophyPath;
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
        QCOMPARE(m_emma->variable(L1("iInboxMessages"), L1("/vantu/messages/index")).toInt(),
                 before + (isForEmma ? 1 : 0));
    }

    void messageArrivesUnchanged()
    {
        const QByteArray form("application/x-www-form-urlencoded");
        const QString odd = "a&b=c+d%e \"é\" <b>ß</b> 😀 'x' {{NAME}}"_s;
        const QByteArray encoded = QUrl::toPercentEncoding(odd);
        const auto newest = "document.querySelector('.bubble').firstChild.data.replace(/\\r/g, '')"_s;
        for (const auto &[body, type, text] :
             {std::tuple("user_id[]=u101&message=" + encoded, form, odd),
              {"user_id%5b%5D=u101&message=" + encoded, form + "; charset=UTF-8", odd},
              {"user_id[]=u101&message=" + encoded, "text/plain", odd},
              {"user_id[]=u101&message=one+1%0D%0Atwo%0Athree", form, "one 1\ntwo\nthree"_s},
              {"user_id[]=u101&message=100%&x=%4", form, "100%"_s}}) {
            QCOMPARE(m_service->post(messagePath, body, type), 200);
            QVERIFY(m_emma->open(L1("/vantu/messages/index/uid/u102")));
            QCOMPARE(m_emma->evaluate(newest).toString(), text);
        }
    }

    void wonTrophiesAreNewUntilLookedAt()
    {
        QCOMPARE(m_service->post(trophyPath, "trophy_id[]=0&trophy_id%5B%5D=5&trophy_id[]=63&trophy_id[]=33"), 200);
        QCOMPARE(m_emma->variable(L1("iGamesMessages"), L1("/vantu/")), L1("3"));
        QVERIFY(m_emma->open(L1("/vantu/games/trophies/gid/7")));
        QCOMPARE(m_emma->evaluate(L1("document.querySelectorAll('.row:not(.open)').length")).toInt(), 4);
        QCOMPARE(m_emma->variable(L1("iGamesMessages")), L1("0"));
        // The next run of the companion tells of them again.
        QCOMPARE(m_service->post(trophyPath, "trophy_id[]=0&trophy_id[]=63"), 200);
        QCOMPARE(m_emma->variable(L1("iGamesMessages"), L1("/vantu/games")), L1("0"));
    }

private:
    std::unique_ptr<RunningService> m_service;
    std::unique_ptr<Visitor> m_emma;
    QByteArray m_function;
};

QTEST_MAIN(ServicePages)
#include "tst_servicepages.moc"
