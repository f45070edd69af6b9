// SPDX-License-Identifier: MIT
#include "portal.h"

#include "mainwindow.h"

#include <QMouseEvent>
#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <utility>

/// Somebody who taps anywhere, twice at times, and types anything, at a service that fails now and then. Nothing may be
/// sent that was not on the screen when the finger went down, and there is always a way out.
///
/// VANTU_MONKEY_SEED and VANTU_MONKEY_ACTIONS repeat or lengthen a run.
class MonkeyTest : public PortalTest {
    Q_OBJECT

private slots:
    void nothingUnwantedAndAlwaysAWayOut()
    {
        const QString seed = qEnvironmentVariable("VANTU_MONKEY_SEED", "1"_s);
        const int actions = qEnvironmentVariable("VANTU_MONKEY_ACTIONS", "150"_s).toInt();
        qInfo("seed %s, %d actions", qPrintable(seed), actions);
        random.seed(seed.toUInt());
        offerPages();
        connect(page->webView, &QGraphicsWebView::loadStarted, this, [&] { loads << page->webView->url().path(); });
        for (int i = 0; i < actions && !QTest::currentTestFailed(); ++i) {
            act();
            judge();
            settle();
        }
        qInfo("%d sent on purpose", sent);
        QVERIFY(actions < 1000 || sent > 0);
    }

private:
    struct Choice {
        bool send = false; ///< Send could be tapped
        bool row = false; ///< a popup was on display
        bool quit = false;
    };

    void offerPages()
    {
        const QString list = "<a href='/vantu/account/index/uid/p%1' style='font-size:40px'>Friend %1</a><br>"_s;
        const QString player = "sUserUid = 'me', iGameId = 7, bShowEvaluate = 1, bIsFriend = 1"_s;
        for (const char *path : {"/vantu/", "/vantu/friends", "/vantu/friends/", "/vantu/messages/index"})
            service->answer(QLatin1String(path), {TestService::page(player, list.arg(1) + list.arg(2) + list.arg(3))});
        for (int i = 1; i <= 3; ++i) {
            const QString variables = player + ", iUserId = 'p%1', sUserName = 'Friend %1'"_s.arg(i);
            service->answer("/vantu/account/index/uid/p%1"_s.arg(i), {TestService::page(variables)});
        }
        const QByteArray game
            = TestService::page(player,
                                "<a href='/vantu/games/show-game/gid/7' style='font-size:60px'>Game</a><br>"
                                "<a href='/nothing' style='font-size:60px'>Nothing</a><br>"
                                "<a href='/vantu/slow' style='font-size:60px'>Slow</a>"_s);
        for (const char *path :
             {"/vantu/games", "/vantu/games/show-game/gid/7", "/vantu/games/recommend-via-mail/id/7"})
            service->answer(QLatin1String(path), {game});
        service->answer("/nothing"_s, {{}, 204});
        service->answer("/vantu/slow"_s, {game, 200, {}, 300});
    }

    bool isPopupOpen() const
    {
        return page->popupInteract.isVisible() || page->popupRate.isVisible() || page->popupRecommend.isVisible();
    }

    Choice choiceAt(const QPointF &position) const
    {
        const auto isAt = [&](const MButton *button) {
            return button->isVisible() && button->mapRectToScene(button->rect()).contains(position);
        };
        return {isAt(page->btnSend), isPopupOpen(), isAt(page->btnQuit)};
    }

    void tap(const QPointF &position, bool isDouble)
    {
        QWidget *viewport = window->viewport();
        const QPoint at = window->mapFromScene(position);
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

    void act()
    {
        QList<const MButton *> buttons;
        for (const MButton *button : std::initializer_list<const MButton *>{
                 page->btnBack, page->btnInfo, page->btnNewMessage, page->btnRecommend, page->btnInteract, page->btnAdd,
                 page->btnEdit, page->btnCancel, page->btnSend, page->btnHome, page->btnInbox, page->btnFriend,
                 page->btnGame}) {
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
                const MButton *button
                    = buttons.at(static_cast<int>(random.bounded(static_cast<quint32>(buttons.size()))));
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
            action = "typing"_s;
            page->txtMessage->setText("hello"_s);
        } else if (kind < 92) {
            action = "Escape"_s;
            QTest::keyClick(window.get(), Qt::Key_Escape);
        } else if (kind < 93) {
            action = "silence"_s;
            service->goSilent();
        } else {
            action = "service"_s;
            service->comeBack();
        }
    }

    void settle()
    {
        // A load that takes its time is left alone now and then, so that taps meet pages under way.
        if (random.bounded(4U) == 0) {
            QTest::qWait(static_cast<int>(random.bounded(30)));
            return;
        }
        QTRY_VERIFY(!isLoading());
        const bool hasButton = page->btnQuit->isVisible() || page->btnBack->isVisible() || page->btnCancel->isVisible()
            || page->btnHome->isVisible();
        // While a recipient is picked the way out comes after a while.
        QTRY_VERIFY2(hasButton || page->btnCancel->isVisible() || page->btnStopPicking->isVisible(),
                     qPrintable(action));
    }

    /// To be called before the event loop runs: what was sent by the last action is still under way.
    void judge()
    {
        for (QNetworkReply *post : page->nwAccessMgr->findChildren<QNetworkReply *>()) {
            const QString path = post->url().path();
            if (post->property("judged").toBool() || path.contains("add-trophy"_s))
                continue;
            post->setProperty("judged", true);
            QVERIFY2(choice.send, qPrintable(action + QLatin1Char(' ') + path));
            ++sent;
        }
        for (const QString &path : std::exchange(loads, {})) {
            if (!path.contains("/evaluate/"_s) && !path.contains("delete-friend"_s))
                continue;
            QVERIFY2(choice.row, qPrintable(action + QLatin1Char(' ') + path));
            ++sent;
        }
        QVERIFY2(!is_Send_Resume, qPrintable(action)); // It never aims at Quit.
    }

    QRandomGenerator random;
    Choice choice; ///< what the action under way was aimed at
    QString action;
    ulong now = 10000; ///< of the mouse, in milliseconds
    QStringList loads; ///< paths
    int sent = 0;
};

PORTAL_TEST_MAIN(MonkeyTest)
#include "tst_monkey.moc"
