// SPDX-License-Identifier: MIT
#include "portal.h"

#include "mainwindow.h"
#include "retrybutton.h"
#include "servicerequests.h"

#include <QMouseEvent>
#include <QRandomGenerator>

/// A player who taps anywhere, twice at times, and types, at a service that fails now and then. The service hears of
/// exactly what the player saw under the finger, and there is always a way out.
///
/// VANTU_MONKEY_SEED and VANTU_MONKEY_ACTIONS repeat or lengthen a run (3,000 take longer than QTEST_FUNCTION_TIMEOUT
/// allows by itself).
class MonkeyTest : public PortalTest {
    Q_OBJECT

private slots:
    void sendsWhatWasChosenAndAlwaysHasAWayOut()
    {
        const QString seed = qEnvironmentVariable("VANTU_MONKEY_SEED", "1"_s);
        const int actions = qEnvironmentVariable("VANTU_MONKEY_ACTIONS", "100"_s).toInt();
        random.seed(seed.toUInt());
        offerPages();
        int i = 0;
        for (; (i < actions || chosen.size() < 3) && !QTest::currentTestFailed(); ++i) {
            act();
            settle();
        }
        leave();
        qInfo("seed %s: %d actions, %d requests", qPrintable(seed), i, int(chosen.size()));
    }

private:
    void offerPages()
    {
        QByteArray html
            = "<script>sUserUid = 'me'; iGameId = 7; bShowEvaluate = bIsFriend = 1; address = location.pathname;"
              "if (address.indexOf('/uid/') > 0) iUserId = sUserName = address.slice(-2)</script>";
        for (const char *path : {"/vantu/account/index/uid/p1", "/vantu/account/index/uid/p2",
                                 "/vantu/games/show-game/gid/7", "/nothing", "/vantu/slow"})
            html += QByteArrayLiteral("<a style='font-size:40px' href='") + path + "'>Link</a><br>";
        for (const char *path : {"/vantu/", "/vantu/friends", "/vantu/friends/", "/vantu/messages/index",
                                 "/vantu/account/index/uid/p1", "/vantu/account/index/uid/p2", "/vantu/games",
                                 "/vantu/games/show-game/gid/7", "/vantu/games/recommend-via-mail/id/7", "/vantu/slow"})
            service->answer(QLatin1String(path), {html, 200, {}, QByteArray(path).endsWith("slow") ? 300 : 0});
        service->answer("/nothing"_s, {{}, 204});
        for (const QString &player : {"p1"_s, "p2"_s}) {
            commands["Delete Friend"_s + player] = "/vantu/friends/delete-friend/uid/"_s + player;
            commands["Thumbs up"_s + player] = rateUrl(player, 1).path();
            commands["Thumbs down"_s + player] = rateUrl(player, 0).path();
        }
        commands["Twitter7"_s] = "/vantu/games/recommend-via-twitter/id/7"_s;
        commands["Facebook7"_s] = facebookUrl("7"_s).path();
        for (const QString &path : std::as_const(commands))
            service->answer(path, {{}, 302, "/vantu/games"});
    }

    /// What a press there is for; a button's margin counts as the button.
    QGraphicsItem *targetAt(const QPointF &position) const
    {
        const QList<QGraphicsItem *> items = window->scene()->items(position);
        const auto takes = [](const QGraphicsItem *item) { return item->acceptedMouseButtons() != Qt::NoButton; };
        QGraphicsItem *item = *std::find_if(items.begin(), items.end(), takes); // The page itself, at least.
        return dynamic_cast<MButton *>(item->parentItem()) ? item->parentItem() : item;
    }

    static QPointF centre(const MButton *button) { return button->mapToScene(button->rect().center()); }

    QVector<MButton *> buttons() const
    {
        QVector<MButton *> result = only<MButton>(window->scene()->items());
        const auto isCovered = [this](const MButton *button) { return targetAt(centre(button)) != button; };
        result.erase(std::remove_if(result.begin(), result.end(), isCovered), result.end());
        return result;
    }

    /// The topmost one, which fills the scene.
    MDialog *dialog() const { return dynamic_cast<MDialog *>(targetAt(QPointF(1, 1))); }

    /// Null if there is none.
    QPointF wayOut() const
    {
        const QVector<MButton *> touchable = buttons();
        if (dialog())
            return touchable.isEmpty() ? QPointF(1, 1) : centre(touchable.first());
        const QList<MButton *> ways{page->btnStopPicking, page->btnCancel, page->btnBack, page->btnHome, page->btnQuit};
        const auto way = std::find_if(ways.begin(), ways.end(), [&](MButton *b) { return touchable.contains(b); });
        return way == ways.end() ? QPointF() : centre(*way);
    }

    /// The rows of the list on display.
    std::map<QString, QRectF> rowsOnDisplay() const
    {
        std::map<QString, QRectF> result;
        const auto *list = dynamic_cast<MPopupList *>(dialog());
        for (int row = 0; list && row < list->itemModel()->rowCount(); ++row)
            result[list->itemModel()->index(row, 0).data().toString()] = list->rowArea(row);
        return result;
    }

    /// Anywhere, but keen on sending something.
    QPointF aim()
    {
        QList<QPointF> places{QPointF(random.bounded(480), random.bounded(814))};
        const auto add = [&](const QPointF &place, int times) { places += QVector<QPointF>(times, place).toList(); };
        const QPointF link(30 + random.bounded(100), 60 + random.bounded(300));
        add(link, page->webView->isVisible() && !dialog() ? 6 : 1);
        for (const MButton *button : buttons()) {
            const bool isKeen = dialog() || button == page->btnInteract || button == page->btnRecommend
                || button == page->btnNewMessage || (button == page->btnSend && !message().isEmpty())
                || (page->addrWidget->getRecipientsCount() == 0 && page->addrWidget->isAncestorOf(button));
            add(centre(button), isKeen ? 8 : 1);
        }
        for (const auto &[text, area] : rowsOnDisplay())
            add(area.center(), 8);
        return places.at(random.bounded(int(places.size())));
    }

    /// What the service is to hear of when the player taps there. Remembers whom the player asks for by that tap.
    QString meaning(const QPointF &position)
    {
        const QString address = QUrl(shownUrl()).path();
        const QString shown = address.section(QLatin1Char('/'), -1);
        for (const auto &[text, area] : rowsOnDisplay()) {
            if (!dialog()->hasAppeared() || !area.contains(position))
                continue;
            recipients = QStringList{shown};
            return commands.value(text + shown);
        }
        const QGraphicsItem *target = targetAt(position);
        if (target == page->btnNewMessage)
            recipients.clear();
        // On the line between two links the engine may take either.
        for (int y = -1; y <= 1 && target == page->webView && page->state == SendMessageState; y += 2) {
            const QPointF at = page->webView->mapFromScene(position) / page->webView->zoomFactor();
            const QVariant link = evaluate("document.elementFromPoint(%1,%2).href"_s.arg(at.x()).arg(at.y() + y));
            recipients << link.toString().section(QLatin1Char('/'), -1);
        }
        if (dynamic_cast<const RetryButton *>(target) && !commands.key(address).isEmpty())
            return address;
        return target == page->btnSend ? message() : QString();
    }

    /// What the composer shows, but for recipients whom the player has not asked for.
    QString message() const
    {
        QStringList asked;
        for (const QString &recipient : page->addrWidget->getAllAddress()) {
            if (recipients.contains(recipient))
                asked << recipient;
        }
        const QString text = page->txtMessage->text();
        if (asked.isEmpty() || (page->state == SendMessageState && text.isEmpty()))
            return {};
        return page->state == SendEmailState
            ? invitationUrl("7"_s, "me"_s).path() + QLatin1String(invitationBody(asked))
            : messageUrl("7"_s, "me"_s).path() + QLatin1String(messageBody(asked, text));
    }

    void tap(const QPointF &position, bool isDouble)
    {
        QWidget *viewport = window->viewport();
        const QPoint at = window->mapFromScene(position);
        const auto press = [&](QEvent::Type type) {
            for (const QEvent::Type part : {type, QEvent::MouseButtonRelease}) {
                QMouseEvent event(part, at, viewport->mapToGlobal(at), Qt::LeftButton,
                                  part == type ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
                event.setTimestamp(now);
                QCoreApplication::sendEvent(viewport, &event);
            }
        };
        action = "%1 at %2,%3"_s.arg(isDouble ? 2 : 1).arg(position.x()).arg(position.y());
        now += 1000;
        if (const QString request = meaning(position); !request.isEmpty())
            chosen << request;
        press(QEvent::MouseButtonPress);
        if (!isDouble)
            return;
        now += 300;
        QTest::qWait(random.bounded(4U) == 0 ? 200 : random.bounded(60));
        press(QEvent::MouseButtonDblClick);
    }

    void type()
    {
        if (dialog() && !dynamic_cast<InputDialog *>(dialog()))
            return;
        action = "hello"_s;
        QTest::keyClicks(window.get(), action);
        if (!dialog())
            return;
        QTRY_VERIFY(dialog()->hasAppeared());
        recipients << action;
        QTest::keyClick(window.get(), Qt::Key_Return);
    }

    void act()
    {
        const quint32 kind = random.bounded(100U);
        const QPointF position = aim();
        if (page->state != Normal && kind < 30)
            type();
        else if (kind < 90 && targetAt(position) != page->btnQuit)
            tap(position, random.bounded(3U) == 0);
        else if (kind < 92)
            QTest::keyClick(window.get(), Qt::Key_Escape);
        else if (kind < 94)
            leave();
        else if (kind < 95)
            service->isSilent = true;
        else
            service->isSilent = false;
    }

    /// Reads on in what the service has heard.
    int heardSoFar()
    {
        for (const TestService::Request &request : service->requests().mid(requestsRead)) {
            ++requestsRead;
            const QString path = QUrl(request.url).path();
            const bool isPost = request.method == QLatin1String("POST") && !path.contains(QLatin1String("add-trophy"));
            if (isPost || !commands.key(path).isEmpty())
                heard << path + QLatin1String(request.body);
        }
        return heard.size();
    }

    void settle()
    {
        QTRY_VERIFY2(heardSoFar() >= chosen.size(), qPrintable(action));
        QVERIFY2(heard == chosen, qPrintable(action + heard.join(QLatin1Char('\n'))));
        QVERIFY2(!is_Send_Resume, qPrintable(action)); // It never aims at Quit.
        if (random.bounded(4U) == 0) // Taps meet pages, and dialogs, that are only coming.
            return QTest::qWait(random.bounded(30));
        QTRY_VERIFY2(!isLoading(), qPrintable(action));
        QTRY_VERIFY2(!dialog() || dialog()->hasAppeared(), qPrintable(action));
        QVERIFY2(page->isPickingFriend || !wayOut().isNull(), qPrintable(action));
    }

    /// Whatever there is, a few taps on what can be seen lead out of it.
    void leave()
    {
        for (int taps = 0; taps < 5 && (page->state != Normal || dialog()); ++taps) {
            QTRY_VERIFY(!wayOut().isNull() && (!dialog() || dialog()->hasAppeared()));
            tap(wayOut(), false);
        }
        QVERIFY(page->state == Normal && !dialog());
    }

    QRandomGenerator random;
    QString action;
    ulong now = 10000; ///< of the mouse, in milliseconds
    QHash<QString, QString> commands; ///< what rows ask for, by their text and the player or game on display
    QStringList recipients; ///< whom the player has asked for since the composer opened
    QStringList chosen; ///< what the service is to hear of
    QStringList heard;
    int requestsRead = 0;
};

PORTAL_TEST_MAIN(MonkeyTest)
#include "tst_monkey.moc"
