#include "globaldefine.h"

#include <QtTest>
#include <QUrl>

namespace {

const QLatin1String ROOT(VANTU_SERVICE_ROOT);

} // namespace

/// The addresses of the service.
class tst_Links : public QObject {
    Q_OBJECT

private slots:
    void linkIsTheRootWithItsPath_data();
    void linkIsTheRootWithItsPath();
    void allLoginPagesContainTheLoginLink();
    void mailPrefixMatchesWithAndWithoutSlash();
    void startPageHasEveryPlaceholderOnceInOrder();
};

void tst_Links::linkIsTheRootWithItsPath_data()
{
    QTest::addColumn<QByteArray>("link");
    QTest::addColumn<QString>("path");
    const auto row = [](const char(&link)[256], const char *path) {
        QTest::newRow(path) << QByteArray(link) << QString::fromLatin1(path);
    };
    row(K_LINK_LOGIN, "/vantu/login");
    row(K_LINK_SEND_MESSAGE, "/vantu/messages/send-message/android_uid/");
    row(K_LINK_RECOMMEND_EMAIL, "/vantu/games/recommend-via-mail/id/");
    row(K_LINK_MESSAGES_INDEX, "/vantu/messages/index");
    row(K_LINK_FRIENDS, "/vantu/friends");
    row(K_LINK_GAMES, "/vantu/games");
    row(K_LINK_RATE_FRIEND, "/vantu/friends/evaluate/fid/FRIEND_ID/value/");
    row(K_LINK_EDIT_ACCOUNT, "/vantu/account");
    row(K_LINK_NOTIFY_TROPHY, "/vantu/index/add-trophy");
    row(K_LINK_VANTU, "/vantu/");
    row(K_LINK_RECOMMEND_FACEBOOK, "/vantu/games/show-game/gid/GAMEID/fb_send/yes");
}

void tst_Links::linkIsTheRootWithItsPath()
{
    QFETCH(QByteArray, link);
    QFETCH(QString, path);
    QCOMPARE(QString::fromLatin1(link), ROOT + path);
    QVERIFY(QUrl(QString::fromLatin1(link), QUrl::StrictMode).isValid());
}

void tst_Links::allLoginPagesContainTheLoginLink()
{
    for (const char *page : {K_LINK_LOGIN, K_URL_LOGIN_INDEX_PREFIX, K_URL_LOGIN_DELETED_PREFIX})
        QVERIFY2(QByteArray(page).contains(K_LINK_LOGIN), page);
}

void tst_Links::mailPrefixMatchesWithAndWithoutSlash()
{
    QVERIFY(QByteArray(K_LINK_RECOMMEND_EMAIL) == QByteArray(K_URL_RECOMMEND_EMAIL_PREFIX) + '/');
    QVERIFY(QByteArray(K_URL_FRIENDS_SLASH) == QByteArray(K_LINK_FRIENDS) + '/');
}

void tst_Links::startPageHasEveryPlaceholderOnceInOrder()
{
    static_assert(sizeof K_LINK_VANTU_TEMPLATE == 512);
    const QByteArray start(K_LINK_VANTU_TEMPLATE);
    QVERIFY(start.startsWith(K_URL_START_PREFIX));
    int last = 0;
    for (const char *placeholder :
         {"lg=LANG", "country=COUNTRY_DETECTED", "d=DEVICE_ANDROID", "f=FIRMWARE_ANDROID", "udid=UDIDPHONE",
          "KVB=KVBGAME", "username=USER_NAME", "pass=PASSWORD", "remember_me=AUTOLOGIN", "type=MEEGO",
          "width=SCREEN_WIDTH", "height=SCREEN_HEIGHT", "fb=1"}) {
        const QByteArray word(QByteArray(placeholder).split('=').last());
        QVERIFY2(start.indexOf(placeholder) > last, placeholder);
        last = start.indexOf(placeholder);
        QVERIFY2(word == "1" || start.count(word) == 1, placeholder);
    }
}

QTEST_APPLESS_MAIN(tst_Links)
#include "tst_links.moc"
