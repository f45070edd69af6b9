// SPDX-License-Identifier: MIT
#include "globaldefine.h"

int g_KVB = 0;
int g_languageIdx = 0;
quint64 g_trophyIdx = 0;

int g_nScreenWidth = 480;
int g_nScreenHeight = 814;
float g_ZoomFactor = 1.5F;

// clang-format off
char k_imgName[K_IMAGE_COUNT][20] = {
    /*  0 */ "add",
    /*  1 */ "add_new",
    /*  2 */ "add_on",
    /*  3 */ "back",
    /*  4 */ "back_button",
    /*  5 */ "back_button_on",
    /*  6 */ "back_on",
    /*  7 */ "badge3",
    /*  8 */ "badge3_blue",
    /*  9 */ "close_but",
    /* 10 */ "close_but_on",
    /* 11 */ "friends",
    /* 12 */ "games",
    /* 13 */ "home",
    /* 14 */ "inbox",
    /* 15 */ "inbox_new_msg",
    /* 16 */ "inbox_new_msg_on",
    /* 17 */ "info",
    /* 18 */ "info_on",
    /* 19 */ "interact_new",
    /* 20 */ "interact_new_on",
    /* 21 */ "loading_but",
    /* 22 */ "recommend",
    /* 23 */ "recommend_on",
    /* 24 */ "selected",
    /* 25 */ "selected_check",
    /* 26 */ "send_butt",
    /* 27 */ "unselected",
    /* 28 */ "button",
    /* 29 */ "button_on",
};
// clang-format on
