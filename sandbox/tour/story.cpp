// SPDX-License-Identifier: MIT
#include "story.h"

#include "globaldefine.h"
#include "tour.h"

#include <QHostAddress>
#include <QNetworkProxy>
#include <QTcpSocket>
#include <QUrl>

#include <csignal>

namespace {

using namespace Story;

const QString homePath = QStringLiteral("/vantu/");
const QString inboxPath = QStringLiteral("/vantu/messages/index");
const QString friendsPath = QStringLiteral("/vantu/friends");
const QString gamesPath = QStringLiteral("/vantu/games");
const QString accountPath = QStringLiteral("/vantu/account");

QString conversationWith(const QString &player)
{
    return QStringLiteral("/vantu/messages/index/uid/") + player;
}

QString profileOf(const QString &player)
{
    return QStringLiteral("/vantu/account/index/uid/") + player;
}

QString gamePage()
{
    return QStringLiteral("/vantu/games/show-game/gid/") + game;
}

QString trophiesPage()
{
    return QStringLiteral("/vantu/games/trophies/gid/") + game;
}

QString linkTo(const QString &path)
{
    return QStringLiteral("a[href='%1']").arg(path);
}

/// The number that a row of the home page shows; 0 for a row that is not there.
int homeNumber(const Tour &tour, const QString &path)
{
    return tour.elementText(linkTo(path) + QLatin1String(" .badge")).toInt();
}

void expectBadgesOfHome(const Tour &tour)
{
    const Badges badges = tour.badges();
    tour.expect(badges.inbox == homeNumber(tour, inboxPath) && badges.friends == homeNumber(tour, friendsPath)
                    && badges.games == homeNumber(tour, gamesPath),
                QStringLiteral("the tabs show other numbers than the page"));
}

void openHome(Tour &tour)
{
    tour.loads(homePath, [&] { tour.tap(Tab::Home); });
}

void openGame(Tour &tour)
{
    tour.loads(gamesPath, [&] { tour.tap(Tab::Games); });
    tour.loads(gamePage(), [&] { tour.tapElement(linkTo(gamePage())); });
}

void openRecommend(Tour &tour)
{
    tour.tap(Command::Recommend);
    tour.waitForDialog();
}

void typeLogin(Tour &tour, const QString &name, const QString &password)
{
    tour.clickElement(QStringLiteral("#username"));
    tour.press(Qt::Key_A, Qt::ControlModifier);
    tour.type(name);
    tour.press(Qt::Key_Tab);
    tour.type(password);
}

void signIn(Tour &tour)
{
    tour.show(QStringLiteral("start"), QStringLiteral("The start page asks who is playing"), {Command::Quit});
    typeLogin(tour, playerName, playerPassword);
    tour.show(QStringLiteral("sign-in"), QStringLiteral("Name and password are typed in"), {Command::Quit});
    tour.loads(homePath, [&] { tour.posts([&] { tour.press(Qt::Key_Return); }); });
    expectBadgesOfHome(tour);
    tour.show(QStringLiteral("home"), QStringLiteral("Home; the tabs show what is unread"),
              {Command::Info, Command::Quit});
    tour.dragIntoSight(QStringLiteral(".list:last-of-type a:last-child"));
    tour.show(QStringLiteral("news"), QStringLiteral("A finger drags the page"), {Command::Info, Command::Quit});
    tour.loads(QStringLiteral("/vantu/info/"), [&] { tour.tap(Command::Info); });
    tour.show(QStringLiteral("info"), QStringLiteral("About the service"), {Command::Back});
    tour.loads(homePath, [&] { tour.tap(Command::Back); });
    expectBadgesOfHome(tour);
}

void readMessage(Tour &tour)
{
    tour.loads(inboxPath, [&] { tour.tap(Tab::Inbox); });
    tour.show(QStringLiteral("inbox"), QStringLiteral("The inbox"), {Command::NewMessage});
    const int unread = tour.badges().inbox;
    tour.loads(conversationWith(recipientId), [&] { tour.tapElement(linkTo(conversationWith(recipientId))); });
    tour.expect(tour.badges().inbox == unread - 1, QStringLiteral("the inbox's number does not fall"));
    tour.show(QStringLiteral("conversation"), QStringLiteral("A message is read, and the inbox's number falls"),
              {Command::Back, Command::NewMessage});
}

void pickFriend(Tour &tour, const QString &player)
{
    const bool isFirst = tour.recipients().isEmpty();
    tour.loads(friendsPath, [&] { tour.tapAddRecipient(); });
    if (isFirst)
        tour.show(QStringLiteral("pick"), QStringLiteral("The list of friends to pick from"), {});
    tour.loads(profileOf(player), [&] { tour.tapElement(linkTo(profileOf(player))); });
}

void writeMessage(Tour &tour)
{
    tour.tap(Command::NewMessage);
    tour.show(QStringLiteral("composer"), QStringLiteral("The composer for a new message"),
              {Command::Cancel, Command::Send});
    tour.tap(Command::Send);
    tour.waitForDialog();
    tour.show(QStringLiteral("no-recipient"), QStringLiteral("Nobody to send it to yet"),
              {Command::Cancel, Command::Send});
    tour.tapDialogButton();
    pickFriend(tour, recipientId);
    tour.show(QStringLiteral("picked"), QStringLiteral("The first friend is picked"), {Command::Cancel, Command::Send});
    tour.tapMessage();
    tour.type(message);
    pickFriend(tour, secondRecipientId);
    tour.expect(tour.recipients().size() == 2, QStringLiteral("there are not two recipients"));
    tour.expect(tour.message() == message, QStringLiteral("the text is not what was typed"));
    tour.show(QStringLiteral("written"), QStringLiteral("A second friend is picked, and the text is still there"),
              {Command::Cancel, Command::Send});
    tour.loads(conversationWith(recipientId), [&] { tour.posts([&] { tour.tap(Command::Send); }); });
    tour.loads(inboxPath, [&] { tour.tap(Tab::Inbox); });
    const QString sent = QStringLiteral("/vantu/messages/sent/");
    tour.loads(sent, [&] { tour.tapElement(linkTo(sent)); });
    tour.show(QStringLiteral("sent"), QStringLiteral("The message stands among those sent"), {Command::Back});
}

int thumbsUp(const Tour &tour)
{
    return tour.elementText(QStringLiteral(".thumbs span")).toInt();
}

void openInteract(Tour &tour)
{
    tour.tap(Command::Interact);
    tour.waitForDialog();
}

void rateAndCompare(Tour &tour)
{
    tour.loads(friendsPath, [&] { tour.tap(Tab::Friends); });
    tour.show(QStringLiteral("friends"), QStringLiteral("The friends"), {Command::Add});
    tour.loads(profileOf(ratedId), [&] { tour.tapElement(linkTo(profileOf(ratedId))); });
    tour.show(QStringLiteral("profile"), QStringLiteral("A friend's page"), {Command::Back, Command::Interact});
    const int before = thumbsUp(tour);
    openInteract(tour);
    tour.show(QStringLiteral("interact"), QStringLiteral("What can be done with this friend"),
              {Command::Back, Command::Interact});
    tour.tapRow(localized(TXT_RATE));
    tour.waitForDialog();
    tour.show(QStringLiteral("rate"), QStringLiteral("Thumbs up or down"), {Command::Back, Command::Interact});
    tour.loads(profileOf(ratedId), [&] { tour.pickRow(localized(TXT_RATE_UP)); });
    tour.expect(thumbsUp(tour) == before + 1, QStringLiteral("the rating does not count"));
    tour.show(QStringLiteral("rated"), QStringLiteral("The rating counts"), {Command::Back, Command::Interact});
    openInteract(tour);
    tour.loads(QStringLiteral("/vantu/games/compare/uid/") + ratedId,
               [&] { tour.tapRow(localized(TXT_COMPARE_GAMES)); });
    tour.show(QStringLiteral("compare"), QStringLiteral("The games of both, compared"), {Command::Back});
    tour.loads(profileOf(ratedId), [&] { tour.tap(Command::Back); });
}

void seeTrophies(Tour &tour)
{
    tour.loads(gamesPath, [&] { tour.tap(Tab::Games); });
    tour.show(QStringLiteral("games"), QStringLiteral("The games"), {});
    tour.loads(gamePage(), [&] { tour.tapElement(linkTo(gamePage())); });
    tour.show(QStringLiteral("game"), QStringLiteral("A game"), {Command::Back, Command::Recommend});
    tour.loads(trophiesPage(), [&] { tour.tapElement(linkTo(trophiesPage())); });
    tour.show(QStringLiteral("trophies"), QStringLiteral("Its trophies; back leads to the game, and to all games"),
              {Command::Back});
    tour.loads(gamePage(), [&] { tour.tap(Command::Back); });
    tour.loads(gamesPath, [&] { tour.tap(Command::Back); });
}

void recommendByMail(Tour &tour)
{
    openGame(tour);
    openRecommend(tour);
    tour.show(QStringLiteral("recommend"), QStringLiteral("Ways to recommend a game"),
              {Command::Back, Command::Recommend});
    tour.loads(QStringLiteral("/vantu/games/recommend-via-mail/id/") + game,
               [&] { tour.tapRow(localized(TXT_EMAIL)); });
    tour.tapAddRecipient();
    tour.waitForDialog();
    tour.type(addresses.first());
    tour.show(QStringLiteral("address"), QStringLiteral("An e-mail address is typed in"),
              {Command::Cancel, Command::Send});
    tour.tapDialogButton();
    tour.tapAddRecipient();
    tour.waitForDialog();
    tour.type(addresses.last());
    tour.press(Qt::Key_Return);
    tour.waitUntil([&] { return tour.recipients() == addresses; }, QStringLiteral("both addresses"));
    tour.show(QStringLiteral("invitation"), QStringLiteral("Both addresses, and what their owners will read"),
              {Command::Cancel, Command::Send});
    tour.loads(gamesPath, [&] { tour.posts([&] { tour.tap(Command::Send); }); });
}

void recommendOnFacebook(Tour &tour)
{
    const QString facebook = QStringLiteral("/vantu/facebook/share/gid/") + game;
    openGame(tour);
    openRecommend(tour);
    tour.loads(facebook, [&] { tour.tapRow(QStringLiteral("Facebook")); });
    tour.show(QStringLiteral("facebook"), QStringLiteral("Sharing on Facebook"), {Command::Back});
    tour.loads(gamePage(), [&] { tour.tapElement(QStringLiteral("button[type=submit]")); });
    tour.show(QStringLiteral("shared"), QStringLiteral("Shared, and back at the game"),
              {Command::Back, Command::Recommend});
    openRecommend(tour);
    tour.loads(facebook, [&] { tour.tapRow(QStringLiteral("Facebook")); });
    // Without sharing, back leads to the game's page or beyond it.
    tour.loads(
        gamesPath, [](const QString &path) { return path.startsWith(gamesPath); }, [&] { tour.tap(Command::Back); });
}

void recommendOnTwitter(Tour &tour)
{
    openGame(tour);
    openRecommend(tour);
    tour.loads(QStringLiteral("/vantu/games/recommend-via-twitter/id/") + game,
               [&] { tour.tapRow(QStringLiteral("Twitter")); });
    tour.show(QStringLiteral("twitter"), QStringLiteral("Sharing on Twitter"), {Command::Back});
    tour.loads(QStringLiteral("/vantu/games/signal-twitter-send/gid/") + game,
               [&] { tour.tapElement(QStringLiteral("button[type=submit]")); });
    tour.show(QStringLiteral("tweeted"), QStringLiteral("Shared; back leads to the trophies, and to the game"),
              {Command::Back});
    tour.loads(trophiesPage(), [&] { tour.tap(Command::Back); });
    tour.loads(gamePage(), [&] { tour.tap(Command::Back); });
}

void editAccount(Tour &tour)
{
    openHome(tour);
    tour.loads(accountPath, [&] { tour.tapElement(linkTo(accountPath)); });
    tour.show(QStringLiteral("account"), QStringLiteral("The player's account"), {Command::Back, Command::Edit});
    const QString invitations = QStringLiteral("/vantu/friends/show-invite-email");
    tour.loads(invitations, [&] { tour.tapElement(linkTo(invitations)); });
    tour.show(QStringLiteral("invited"), QStringLiteral("Who has been invited"), {Command::Back});
    tour.loads(accountPath, [&] { tour.tap(Command::Back); });
    tour.loads(accountPath + QLatin1String("/edit"), [&] { tour.tap(Command::Edit); });
    tour.tapElement(QStringLiteral("#motto"));
    tour.press(Qt::Key_A, Qt::ControlModifier);
    tour.type(motto);
    tour.show(QStringLiteral("edit"), QStringLiteral("The account is edited"), {Command::Back});
    tour.loads(accountPath, [&] { tour.tapElement(QStringLiteral("button[type=submit]")); });
    tour.show(QStringLiteral("saved"), QStringLiteral("The changes are saved"), {Command::Back, Command::Edit});
}

void quitToGame(Tour &tour)
{
    openHome(tour);
    expectBadgesOfHome(tour);
    tour.show(QStringLiteral("goodbye"), QStringLiteral("Home once more, with the new motto; then back to the game"),
              {Command::Info, Command::Quit});
    tour.ends([&] { tour.tap(Command::Quit); });
}

void playSender(Tour &tour)
{
    signIn(tour);
    readMessage(tour);
    writeMessage(tour);
    rateAndCompare(tour);
    seeTrophies(tour);
    recommendByMail(tour);
    recommendOnFacebook(tour);
    recommendOnTwitter(tour);
    editAccount(tour);
    quitToGame(tour);
}

/// The stored login still holds; then somebody else signs in on the same device.
void playRecipient(Tour &tour)
{
    tour.show(QStringLiteral("signed-in-again"), QStringLiteral("The stored login signs the player in"),
              {Command::Quit});
    expectBadgesOfHome(tour);
    openHome(tour);
    tour.loads(accountPath, [&] { tour.tapElement(linkTo(accountPath)); });
    tour.loads(QStringLiteral("/vantu/login?iDelete=1"),
               [&] { tour.tapElement(linkTo(QStringLiteral("/vantu/logout"))); });
    tour.show(QStringLiteral("signed-out"), QStringLiteral("Signed out"), {Command::Quit});
    typeLogin(tour, recipientName, recipientPassword);
    tour.loads(homePath, [&] { tour.clickElement(QStringLiteral("button[type=submit]")); });
    expectBadgesOfHome(tour);
    tour.show(QStringLiteral("recipient"), QStringLiteral("One of the recipients has signed in"),
              {Command::Info, Command::Quit});
    tour.loads(inboxPath, [&] { tour.tap(Tab::Inbox); });
    tour.loads(conversationWith(playerId), [&] { tour.clickElement(linkTo(conversationWith(playerId))); });
    const QString text
        = tour.ofElement(QStringLiteral(".bubble.theirs"), QStringLiteral("element.firstChild.textContent")).toString();
    tour.expect(text == message, QStringLiteral("the recipient reads something else: ") + text);
    tour.show(QStringLiteral("received"), QStringLiteral("The message has arrived as it was typed"),
              {Command::Back, Command::NewMessage});
    tour.ends([&] { tour.closeWindow(); });
}

bool answers(const QNetworkProxy &proxy)
{
    const QUrl root{QLatin1String(K_SERVICE_ROOT)};
    const bool isDirect = proxy.type() != QNetworkProxy::HttpProxy;
    QTcpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(isDirect ? root.host() : proxy.hostName(), isDirect ? root.port(80) : proxy.port());
    return socket.waitForConnected(1000);
}

/// The service goes while a message is being written: what was typed stays, and there is a way back to the game.
void playOutage(Tour &tour, qint64 service)
{
    typeLogin(tour, playerName, playerPassword);
    tour.loads(homePath, [&] { tour.posts([&] { tour.press(Qt::Key_Return); }); });
    tour.loads(inboxPath, [&] { tour.tap(Tab::Inbox); });
    tour.tap(Command::NewMessage);
    tour.tapMessage();
    tour.type(message);
    kill(static_cast<pid_t>(service), SIGTERM);
    tour.waitUntil([] { return !answers(QNetworkProxy::applicationProxy()); }, QStringLiteral("the service's end"));
    tour.failsToLoad([&] { tour.tapAddRecipient(); });
    tour.expect(tour.message() == message, QStringLiteral("the text is lost"));
    tour.show(QStringLiteral("service-gone"), QStringLiteral("The service is gone; what was typed is still there"),
              {Command::Cancel, Command::Send});
    tour.failsToLoad([&] { tour.tap(Command::Cancel); });
    tour.show(QStringLiteral("way-out"), QStringLiteral("There is a way back to the game"), {Command::Quit});
    tour.ends([&] { tour.tap(Command::Quit); });
}

} // namespace

QStringList Story::parts()
{
    return {QStringLiteral("sender"), QStringLiteral("recipient"), QStringLiteral("outage")};
}

void Story::play(Tour &tour, const QString &part, qint64 service)
{
    tour.waitForStartPage();
    if (part == QLatin1String("sender"))
        playSender(tour);
    else if (part == QLatin1String("recipient"))
        playRecipient(tour);
    else
        playOutage(tour, service);
}
