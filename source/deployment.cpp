// SPDX-License-Identifier: MIT
#include "globaldefine.h"

// Compiled once for each deployment, with its own VANTU_SERVICE_ROOT and VANTU_LOGIN_FILE.

#ifndef VANTU_WAY_OUT_DELAY
#define VANTU_WAY_OUT_DELAY 3000
#endif
const int K_WAY_OUT_DELAY = VANTU_WAY_OUT_DELAY;

#ifndef VANTU_POST_TIMEOUT
#define VANTU_POST_TIMEOUT 30000
#endif
const int K_POST_TIMEOUT = VANTU_POST_TIMEOUT;

const char K_SERVICE_ROOT[] = VANTU_SERVICE_ROOT;
const char K_LOGIN_FILE[] = VANTU_LOGIN_FILE;

// The links of the service.
const char K_LINK_LOGIN[256] = VANTU_SERVICE_ROOT "/vantu/login";
const char K_LINK_SEND_MESSAGE[256] = VANTU_SERVICE_ROOT "/vantu/messages/send-message/android_uid/";
const char K_LINK_MESSAGE_SENT[256] = VANTU_SERVICE_ROOT "/vantu/messages/sent/";
const char K_LINK_RECOMMEND_EMAIL[256] = VANTU_SERVICE_ROOT "/vantu/games/recommend-via-mail/id/";
const char K_LINK_ADD_FRIENDS[256] = VANTU_SERVICE_ROOT "/vantu/friends/add-friends/";
const char K_LINK_SHOW_INVITE_MAIL[256] = VANTU_SERVICE_ROOT "/vantu/friends/show-invite-email";
const char K_LINK_SHOW_FRIENDS[256] = VANTU_SERVICE_ROOT "/vantu/friends/?select=yes";
const char K_LINK_MESSAGES_INDEX[256] = VANTU_SERVICE_ROOT "/vantu/messages/index";
const char K_LINK_FRIENDS[256] = VANTU_SERVICE_ROOT "/vantu/friends";
const char K_LINK_GAMES[256] = VANTU_SERVICE_ROOT "/vantu/games";
const char K_LINK_INFO[256] = VANTU_SERVICE_ROOT "/vantu/info/";
const char K_LINK_CHALLENGE[256] = VANTU_SERVICE_ROOT "/vantu/challenges/create-challenge?challenged_user_id=";
const char K_LINK_COMPARE[256] = VANTU_SERVICE_ROOT "/vantu/games/compare/uid/";
const char K_LINK_DELETE_FRIEND[256] = VANTU_SERVICE_ROOT "/vantu/friends/delete-friend/uid/";
const char K_LINK_ADD_FRIEND[256] = VANTU_SERVICE_ROOT "/vantu/account/add-friend/uid/";
const char K_LINK_RATE_FRIEND[256] = VANTU_SERVICE_ROOT "/vantu/friends/evaluate/fid/FRIEND_ID/value/";
const char K_LINK_EDIT_ACCOUNT[256] = VANTU_SERVICE_ROOT "/vantu/account";
const char K_LINK_NOTIFY_TROPHY[256] = VANTU_SERVICE_ROOT "/vantu/index/add-trophy";
const char K_LINK_VANTU_TEMPLATE[512] = VANTU_SERVICE_ROOT
    "/vantu/?lg=LANG&country=COUNTRY_DETECTED&d=DEVICE_ANDROID&f=FIRMWARE_ANDROID&udid=UDIDPHONE&KVB=KVBGAME"
    "&username=USER_NAME&pass=PASSWORD&remember_me=AUTOLOGIN&type=MEEGO&width=SCREEN_WIDTH&height=SCREEN_HEIGHT&fb=1";
const char K_LINK_VANTU[256] = VANTU_SERVICE_ROOT "/vantu/";
const char K_LINK_RECOMMEND_TWITTER[256] = VANTU_SERVICE_ROOT "/vantu/games/recommend-via-twitter/id/";
const char K_LINK_RECOMMEND_FACEBOOK[256] = VANTU_SERVICE_ROOT "/vantu/games/show-game/gid/GAMEID/fb_send/yes";

// Further addresses that the page recognises or builds.
const char K_URL_START_PREFIX[] = VANTU_SERVICE_ROOT "/vantu/?";
const char K_URL_LOGIN_INDEX_PREFIX[] = VANTU_SERVICE_ROOT "/vantu/login/index";
const char K_URL_LOGIN_DELETED_PREFIX[] = VANTU_SERVICE_ROOT "/vantu/login?iDelete=";
const char K_URL_FRIENDS_SLASH[] = VANTU_SERVICE_ROOT "/vantu/friends/";
const char K_URL_FRIENDS_DELETED[] = VANTU_SERVICE_ROOT "/vantu/friends?iDelete";
const char K_URL_FRIENDS_PAGE[] = VANTU_SERVICE_ROOT "/vantu/friends/index/page";
const char K_URL_PROFILE_PREFIX[] = VANTU_SERVICE_ROOT "/vantu/account/index/uid/";
const char K_URL_GAME_PREFIX[] = VANTU_SERVICE_ROOT "/vantu/games/show-game/";
const char K_URL_RECOMMEND_EMAIL_PREFIX[] = VANTU_SERVICE_ROOT "/vantu/games/recommend-via-mail/id";
const char K_URL_TROPHIES_PREFIX[] = VANTU_SERVICE_ROOT "/vantu/games/trophies/gid/";
const char K_URL_TWITTER_SENT_PREFIX[] = VANTU_SERVICE_ROOT "/vantu/games/signal-twitter-send/gid/";
