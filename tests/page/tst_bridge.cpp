// SPDX-License-Identifier: MIT
#include "portal.h"

// First: the notice goes out once a process.

class BridgeTest : public PortalTest {
    Q_OBJECT

private slots:
    void trophyNoticeIsSentOnceASignedInPageShows()
    {
        g_trophyIdx = Q_UINT64_C(1) << 63 | 33;
        g_KVB = 7;
        service->answer("/vantu/index/add-trophy/android_uid/p12/kvb_game/7"_s, {"ok"});
        loadPage("/vantu/login"_s, "sUserUid = '', iGameId = ''"_s);
        loadPage("/vantu/"_s, "sUserUid = 'p12', iGameId = '7'"_s);
        loadPage("/vantu/friends"_s, "sUserUid = 'p12'"_s);
        QTRY_COMPARE(posts().size(), 1);
        loadPage("/vantu/games"_s, "sUserUid = 'p12'"_s);
        QCOMPARE(posts().size(), 1);
        QCOMPARE(posts().first().url, url("/vantu/index/add-trophy/android_uid/p12/kvb_game/7"_s));
        QCOMPARE(posts().first().body, QByteArray("trophy_id[]=0&trophy_id[]=5&trophy_id[]=63"));
        QCOMPARE(posts().first().contentType, QByteArray("application/x-www-form-urlencoded"));
    }

    void everyValueArrives()
    {
        loadPage("/vantu/games/show-game/gid/7"_s,
                 "sUserUid = 'p12', iInboxMessages = 3, iGamesMessages = '12', iFriendsMessages = 123, iGameId = 7,"
                 "sSubject = 'Spiel für dich', bIsFriend = 1, bShowAdd = 1, bShowEvaluate = 1, iUserId = 'p3',"
                 "sUserName = 'Zoë', sTitle = 'Schöne Spiele', strUserName = 'alice', strPassword = 'p%w',"
                 "blnRememberMe = '1'"_s);
        const QStringList texts{page->userID,           page->strFriendsMessages, page->strGamesMessages,
                                page->recommendGameId,  page->recommendSubject,   page->_currentUserUid,
                                page->_currentUserName, page->_username,          page->_password,
                                page->_rememberMe};
        QCOMPARE(texts,
                 QStringList({"p12"_s, "123"_s, "12"_s, "7"_s, "Spiel für dich"_s, "p3"_s, "Zoë"_s, "alice"_s, "p%w"_s,
                              "1"_s}));
        QCOMPARE(page->btnInbox->m_badgeNumber, 3);
        QCOMPARE(page->btnGame->m_badgeNumber, 12);
        QCOMPARE(page->btnFriend->m_badgeNumber, 123);
        QCOMPARE(page->lblSubject->text(), "Subject: Spiel für dich"_s);
        QCOMPARE(page->lblWebTitle->text(), "Schöne Spiele"_s);
        QVERIFY(page->_isFriend && page->_showAdd && page->_showRate);
    }

    void whatAPageDoesNotDefineStays()
    {
        loadPage("/vantu/friends"_s, "sUserUid = 'p12', sUserName = 'Ann', sTitle = 'Ann'"_s);
        // One script fails, those behind it still run.
        loadPage("/vantu/games"_s, "sTitle = 'Games'"_s);
        QCOMPARE(page->userID, "p12"_s);
        QCOMPARE(page->_currentUserName, "Ann"_s);
        QCOMPARE(page->lblWebTitle->text(), "Games"_s);
    }

    void counts()
    {
        for (const auto &[text, number] : {std::pair("3", 3), {"-2", -2}, {"3a", 0}, {"", 0}, {"99999999999", 0}}) {
            page->btnInbox->m_badgeNumber = 77;
            page->getInboxMessages(QLatin1String(text));
            QVERIFY2(page->btnInbox->m_badgeNumber == number, text);
            QCOMPARE(page->strInboxMessages, QLatin1String(text));
        }
    }

    void flags()
    {
        for (const QString &text : "1 2 -1 0  true yes 1.0 0x1"_s.split(QLatin1Char(' '))) {
            const bool flag = "1 2 -1"_s.split(QLatin1Char(' ')).contains(text);
            page->_isFriend = page->_showAdd = page->_showRate = !flag;
            page->checkIsFriend(text);
            page->showAddFriendOption(text);
            page->showRateOption(text);
            QVERIFY2(page->_isFriend == flag && page->_showAdd == flag && page->_showRate == flag, qPrintable(text));
        }
    }

    void titleGivesWayToTheComposer()
    {
        g_languageIdx = 2;
        page->showTitle("Freunde"_s);
        QCOMPARE(page->lblWebTitle->text(), "Freunde"_s);
        for (const VantuState state : {SendMessageState, SendEmailState}) {
            page->state = state;
            page->showTitle("Freunde"_s);
            QCOMPARE(page->lblWebTitle->text(), "Neue Nachricht"_s);
        }
        page->getSubject("x"_s);
        QCOMPARE(page->lblSubject->text(), "Betreff: x"_s);
    }
};

PORTAL_TEST_MAIN(BridgeTest)
#include "tst_bridge.moc"
