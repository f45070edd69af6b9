// SPDX-License-Identifier: MIT
#include "chromerules.h"

#include "globaldefine.h"

#include <QtTest>

Q_DECLARE_METATYPE(VantuState)

namespace {

QString names(const ChromeVisibility &chrome)
{
    QStringList shown;
    if (chrome.tabs)
        shown << QStringLiteral("tabs");
    const std::pair<Command, const char *> all[]
        = {{Command::Cancel, "cancel"},      {Command::Send, "send"},
           {Command::Info, "info"},          {Command::Quit, "quit"},
           {Command::NewMessage, "message"}, {Command::Back, "back"},
           {Command::Edit, "edit"},          {Command::Add, "add"},
           {Command::Interact, "interact"},  {Command::Recommend, "recommend"}};
    for (const auto &[command, name] : all) {
        if (chrome.shows(command))
            shown << QLatin1String(name);
    }
    return shown.join(QLatin1Char(' '));
}

} // namespace

class ChromeRulesTest : public QObject {
    Q_OBJECT

private slots:
    void commandsOfEachPage_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("commands");
        const auto row = [](const char *path, const char *commands) {
            QTest::newRow(path) << QString::fromLatin1(path) << QString::fromLatin1(commands);
        };
        row("/vantu/", "info quit");
        row("/VANTU/", "info quit");
        row("/vantu/?lg=EN&country=FR", "quit");
        row("/VANTU/?lg=EN", "back");
        row("/vantu", "back");
        row("/vantu/login", "quit");
        row("/vantu/LOGIN", "quit back");
        row("/vantu/login/index", "quit");
        row("/vantu/login/index/again", "quit");
        row("/vantu/login?iDelete=3", "quit");
        row("/vantu/login?other=3", "");
        row("/vantu/login/forgotten", "");
        row("/vantu/messages/index", "message");
        row("/vantu/messages/INDEX", "");
        row("/vantu/messages/index/page/2", "message back");
        row("/vantu/messages/show/id/4", "back");
        row("/vantu/friends", "add");
        row("/vantu/FRIENDS", "add");
        row("/vantu/friends/", "back add");
        row("/vantu/friends?iDelete=p7", "back add");
        row("/vantu/friends/index/page/2", "back add");
        row("/vantu/friends/add-friends/", "back");
        row("/vantu/friends/?select=yes", "back");
        row("/vantu/games", "");
        row("/vantu/games/show-game/gid/7", "back recommend");
        row("/vantu/GAMES/show-game/gid/7", "back");
        row("/vantu/games/recommend-via-mail/id/", "recommend");
        row("/vantu/games/recommend-via-mail/id", "back recommend");
        row("/vantu/games/recommend-via-mail/id/7", "back recommend");
        row("/vantu/games/trophies/gid/7", "back");
        row("/vantu/account", "back edit");
        row("/vantu/Account", "back edit");
        row("/vantu/account/edit", "back");
        row("/vantu/account/index/uid/p7", "back interact");
        row("/VANTU/Account/index/uid/p7", "back interact");
        row("/vantu/info/", "back");
    }

    void commandsOfEachPage()
    {
        QFETCH(QString, path);
        QFETCH(QString, commands);
        const QString shown = names(chromeFor(QLatin1String(K_SERVICE_ROOT) + path, Normal));
        QCOMPARE(shown, (QLatin1String("tabs ") + commands).trimmed());
    }

    void composersShowCancelAndSend_data()
    {
        QTest::addColumn<VantuState>("state");
        QTest::newRow("message") << SendMessageState;
        QTest::newRow("e-mail") << SendEmailState;
    }

    void composersShowCancelAndSend()
    {
        QFETCH(VantuState, state);
        for (const char *link : {K_LINK_VANTU, K_LINK_FRIENDS, K_LINK_MESSAGES_INDEX, K_URL_PROFILE_PREFIX})
            QCOMPARE(names(chromeFor(QLatin1String(link), state)), QStringLiteral("cancel send"));
        QCOMPARE(names(chromeFor(QLatin1String(K_LINK_EDIT_ACCOUNT), state)), QStringLiteral("cancel send edit"));
    }

    void anotherHostGetsBackOnly()
    {
        QCOMPARE(names(chromeFor(QStringLiteral("http://elsewhere.test/vantu/"), Normal)), QStringLiteral("tabs back"));
        // "Contains" takes in the root wherever it stands, and login anywhere hides back.
        const QString quoting = QStringLiteral("http://elsewhere.test/?from=") + QLatin1String(K_LINK_LOGIN);
        QCOMPARE(names(chromeFor(quoting, Normal)), QStringLiteral("tabs"));
    }

    void sectionIsTheFirstPartOfThePath_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<int>("section"); // -1: none
        const auto row = [](const char *path, int section) {
            QTest::newRow(path) << QLatin1String(K_SERVICE_ROOT) + QLatin1String(path) << section;
        };
        row("/vantu", 0);
        row("/vantu/", 0);
        row("/vantu/?lg=EN&from=/vantu/games", 0);
        row("/vantu/messages/index/page/2", 1);
        row("/vantu/friends?iDelete=1", 2);
        row("/vantu/friends/add-friends/", 2);
        row("/vantu/games#top", 3);
        row("/vantu/login", -1);
        row("/vantu/account/index/uid/games", -1);
        row("/vantu/gamesome", -1);
        row("/vantunova/games", -1);
        row("", -1);
        QTest::newRow("elsewhere") << QStringLiteral("http://elsewhere.test/vantu/games") << -1;
    }

    void sectionIsTheFirstPartOfThePath()
    {
        QFETCH(QString, url);
        const std::optional<Tab> section = sectionOf(url);
        QTEST(section ? static_cast<int>(*section) : -1, "section");
    }
};

QTEST_APPLESS_MAIN(ChromeRulesTest)
#include "tst_chromerules.moc"
