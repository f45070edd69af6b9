// SPDX-License-Identifier: MIT
#include "pages.h"

namespace {

constexpr char head[] = R"(<!DOCTYPE html><html><head><meta charset="utf-8"><title>Friends</title><style>
body { margin: 0; background: #11181d; color: #e8edf0; font: 14px sans-serif; }
h1 { margin: 0; padding: 10px 12px; font-size: 18px; background: linear-gradient(#6e94a8, #35505e); }
li { list-style: none; padding: 8px 12px 8px 60px; border-bottom: 1px solid #2a3a44; position: relative; }
ul { margin: 0; padding: 0; }
b { display: block; }
i { position: absolute; left: 12px; top: 8px; width: 36px; height: 36px; border-radius: 8px;
    background: linear-gradient(#7fb2cc, #2d5468); }
small { color: #93a7b2; }
em { float: right; background: #b3261e; color: white; border-radius: 9px; padding: 1px 8px; font-style: normal; }
</style><script>
var sUserUid = "1042", iInboxMessages = "3", iGamesMessages = "0", iFriendsMessages = "12", iGameId = "7";
var sSubject = "Torvane", bIsFriend = "1", bShowAdd = "0", bShowEvaluate = "1", iUserId = "2077";
var sUserName = "Mirella", sTitle = "Friends", strUserName = "ada", strPassword = "secret", blnRememberMe = "1";
</script></head><body onload="new Image().src = '/loaded'"><h1>Friends</h1><ul>)";

} // namespace

QByteArray listPage(int rows)
{
    QByteArray html = head;
    for (int row = 1; row <= rows; ++row) {
        const QByteArray number = QByteArray::number(row);
        html += "<li><i></i><em>" + QByteArray::number(row % 9) + "</em><b><a href='/vantu/friends/show/uid/" + number
            + "'>Player number " + number + "</a></b><small>Last seen " + number
            + " minutes ago with a score of 12,480 points</small></li>";
    }
    return html + "</ul></body></html>";
}
