// SPDX-License-Identifier: MIT
#include "portal.h"

#include "addresswidget.h"
#include "mainwindow.h"
#include "mybutton.h"

#include "mbutton.h"
#include "mclosebutton.h"
#include "mprogressindicator.h"
#include "mtextedit.h"

#include <QMouseEvent>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QRandomGenerator>

#include <utility>

/// Somebody who taps anywhere, twice at times, and types anything, at a service that fails now and then. Nothing may be
/// sent that was not on the screen when the finger went down, and there is always a way out.
///
/// VANTU_MONKEY_SEED and VANTU_MONKEY_ACTIONS repeat or lengthen a run.
class MonkeyTest : public QObject {
    Q_OBJECT

private slots:
    void nothingUnwantedAndAlwaysAWayOut();

private:
    struct Choice {
        bool send = false; ///< Send could be tapped
        bool row = false; ///< a popup was on display
        bool quit = false;
    };

    void offerPages();
    bool isPopupOpen() const;
    Choice choiceAt(const QPointF &position) const;
    void act();
    void tap(const QPointF &position, bool isDouble);
    void settle();
    void judge();

    QRandomGenerator random;
    Portal *portal = nullptr;
    Choice choice; ///< what the action under way was aimed at
    QString action;
    ulong now = 10000; ///< of the mouse, in milliseconds
    QStringList loads; ///< paths
    int sent = 0;
};

void MonkeyTest::offerPages()
{
    const QString list
        = QStringLiteral("<a href='/vantu/account/index/uid/p%1' style='font-size:40px'>Friend %1</a><br>");
    const QMap<QString, QString> player{{QStringLiteral("sUserUid"), QStringLiteral("'me'")},
                                        {QStringLiteral("iGameId"), QStringLiteral("7")},
                                        {QStringLiteral("bShowEvaluate"), QStringLiteral("1")},
                                        {QStringLiteral("bIsFriend"), QStringLiteral("1")}};
    for (const char *path : {"/vantu/", "/vantu/friends", "/vantu/friends/", "/vantu/messages/index"})
        portal->service.answer(QLatin1String(path),
                               {TestService::page(player, list.arg(1) + list.arg(2) + list.arg(3))});
    for (int i = 1; i <= 3; ++i) {
        QMap<QString, QString> variables = player;
        variables.insert(QStringLiteral("iUserId"), QStringLiteral("'p%1'").arg(i));
        variables.insert(QStringLiteral("sUserName"), QStringLiteral("'Friend %1'").arg(i));
        portal->service.answer(QStringLiteral("/vantu/account/index/uid/p%1").arg(i), {TestService::page(variables)});
    }
    const QByteArray game
        = TestService::page(player,
                            QStringLiteral("<a href='/vantu/games/show-game/gid/7' style='font-size:60px'>Game</a><br>"
                                           "<a href='/nothing' style='font-size:60px'>Nothing</a><br>"
                                           "<a href='/vantu/slow' style='font-size:60px'>Slow</a>"));
    for (const char *path : {"/vantu/games", "/vantu/games/show-game/gid/7", "/vantu/games/recommend-via-mail/id/7"})
        portal->service.answer(QLatin1String(path), {game});
    portal->service.answer(QStringLiteral("/nothing"), {{}, 204});
    portal->service.answer(QStringLiteral("/vantu/slow"), {game, 200, {}, 300});
}

bool MonkeyTest::isPopupOpen() const
{
    const TestPage &page = *portal->page;
    return page.popupInteract.isVisible() || page.popupRate.isVisible() || page.popupRecommend.isVisible();
}

MonkeyTest::Choice MonkeyTest::choiceAt(const QPointF &position) const
{
    const TestPage &page = *portal->page;
    const auto isAt = [&](const MButton *button) {
        return button->isVisible() && button->mapRectToScene(button->rect()).contains(position);
    };
    return {isAt(page.btnSend), isPopupOpen(), isAt(page.btnQuit)};
}

void MonkeyTest::tap(const QPointF &position, bool isDouble)
{
    QWidget *viewport = portal->window.viewport();
    const QPoint at = portal->window.mapFromScene(position);
    const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, viewport->mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
        event.setTimestamp(now);
        QCoreApplication::sendEvent(viewport, &event);
    };
    now += 1000;
    send(QEvent::MouseButtonPress, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, Qt::NoButton);
    if (!isDouble)
        return;
    now += 100;
    QTest::qWait(static_cast<int>(random.bounded(60)));
    send(QEvent::MouseButtonDblClick, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, Qt::NoButton);
}

void MonkeyTest::act()
{
    const TestPage &page = *portal->page;
    QList<const MButton *> buttons;
    for (const MButton *button : std::initializer_list<const MButton *>{
             page.btnBack, page.btnInfo, page.btnNewMessage, page.btnRecommend, page.btnInteract, page.btnAdd,
             page.btnEdit, page.btnCancel, page.btnSend, page.btnHome, page.btnInbox, page.btnFriend, page.btnGame}) {
        if (button->isVisible())
            buttons << button;
    }
    const quint32 kind = random.bounded(100U);
    choice = Choice();
    if (kind < 80) {
        QPointF position(random.bounded(480), random.bounded(814));
        if (kind < 15)
            position = QPointF(20 + random.bounded(200), 70 + random.bounded(130)); // Where the links are.
        else if (kind < 60 && !isPopupOpen() && !buttons.isEmpty()) {
            const MButton *button = buttons.at(static_cast<int>(random.bounded(static_cast<quint32>(buttons.size()))));
            position = button->mapToScene(button->rect().center());
        }
        const bool isDouble = random.bounded(3U) == 0;
        choice = choiceAt(position);
        action = QString::fromLatin1(isDouble ? "double tap at %1,%2" : "tap at %1,%2")
                     .arg(position.x())
                     .arg(position.y());
        if (!choice.quit)
            tap(position, isDouble);
    } else if (kind < 88) {
        action = QStringLiteral("typing");
        page.txtMessage->setText(QStringLiteral("hello"));
    } else if (kind < 92) {
        action = QStringLiteral("Escape");
        QTest::keyClick(&portal->window, Qt::Key_Escape);
    } else if (kind < 93) {
        action = QStringLiteral("silence");
        portal->service.goSilent();
    } else {
        action = QStringLiteral("service");
        portal->service.comeBack();
    }
}

void MonkeyTest::settle()
{
    // A load that takes its time is left alone now and then, so that taps meet pages under way.
    if (random.bounded(4U) == 0) {
        QTest::qWait(static_cast<int>(random.bounded(30)));
        return;
    }
    QTRY_VERIFY(!portal->page->progressIndicator->isVisible());
    const TestPage &page = *portal->page;
    const bool hasButton = page.btnQuit->isVisible() || page.btnBack->isVisible() || page.btnCancel->isVisible()
        || page.btnHome->isVisible();
    // While a recipient is picked the way out comes after a while.
    QTRY_VERIFY2(hasButton || page.btnCancel->isVisible() || page.btnStopPicking->isVisible(), qPrintable(action));
}

/// To be called before the event loop runs: what was sent by the last action is still under way.
void MonkeyTest::judge()
{
    for (QNetworkReply *post : portal->page->nwAccessMgr->findChildren<QNetworkReply *>()) {
        const QString path = post->url().path();
        if (post->property("judged").toBool() || path.contains(QLatin1String("add-trophy")))
            continue;
        post->setProperty("judged", true);
        QVERIFY2(choice.send, qPrintable(action + QLatin1Char(' ') + path));
        ++sent;
    }
    for (const QString &path : std::exchange(loads, {})) {
        if (!path.contains(QLatin1String("/evaluate/")) && !path.contains(QLatin1String("delete-friend")))
            continue;
        QVERIFY2(choice.row, qPrintable(action + QLatin1Char(' ') + path));
        ++sent;
    }
    QVERIFY2(!is_Send_Resume, qPrintable(action)); // It never aims at Quit.
}

void MonkeyTest::nothingUnwantedAndAlwaysAWayOut()
{
    const QString seed = qEnvironmentVariable("VANTU_MONKEY_SEED", QStringLiteral("1"));
    const int actions = qEnvironmentVariable("VANTU_MONKEY_ACTIONS", QStringLiteral("150")).toInt();
    qInfo("seed %s, %d actions", qPrintable(seed), actions);
    random.seed(seed.toUInt());
    Portal place;
    portal = &place;
    offerPages();
    connect(place.page->webView, &QGraphicsWebView::loadStarted, this,
            [&] { loads << place.page->webView->url().path(); });
    for (int i = 0; i < actions && !QTest::currentTestFailed(); ++i) {
        act();
        judge();
        settle();
    }
    qInfo("%d sent on purpose", sent);
    QVERIFY(actions < 1000 || sent > 0);
}

PORTAL_TEST_MAIN(MonkeyTest)
#include "tst_monkey.moc"
