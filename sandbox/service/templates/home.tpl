{{%AUTOESCAPE context="HTML"}}
<a class="card hero" href="/vantu/account"><span class="avatar big h{{HUE}}">{{INITIALS}}</span>
<div class="text"><h1>{{HELLO_TEXT}}</h1><span class="quiet">{{MOTTO}}</span></div><i class="chevron"></i></a>
<div class="list">{{#iInboxMessages}}<a class="row short" href="/vantu/messages/index"><span class="text">{{UNREAD_MESSAGES}}</span><span class="badge">{{iInboxMessages}}</span><i class="chevron"></i></a>{{/iInboxMessages}}{{#iFriendsMessages}}<a class="row short" href="/vantu/friends"><span class="text">{{NEW_FRIENDS}}</span><span class="badge">{{iFriendsMessages}}</span><i class="chevron"></i></a>{{/iFriendsMessages}}{{#iGamesMessages}}<a class="row short" href="/vantu/games"><span class="text">{{NEW_TROPHIES}}</span><span class="badge">{{iGamesMessages}}</span><i class="chevron"></i></a>{{/iGamesMessages}}</div>
{{#PLAYING}}<h2>{{NOW_PLAYING}}</h2>
<div class="list"><a class="row" href="/vantu/games/show-game/gid/{{GID}}"><svg class="icon"><use xlink:href="#g{{GID}}"/></svg>
<div class="text"><b>{{GAME}}</b><div class="bar"><i style="width:{{PERCENT}}%"></i></div><small>{{WON}} / {{TROPHIES}} {{TROPHIES_COUNTED}}</small></div><i class="chevron"></i></a></div>{{/PLAYING}}
<h2>{{NEWS_HEADING}}</h2>
<div class="list">{{#NEWS_ROW}}<a class="row" href="/vantu/account/index/uid/{{UID}}"><span class="avatar h{{HUE}}">{{INITIALS}}</span>
<span class="text"><b>{{NAME}}</b><small>{{TROPHY}} · {{GAME}}</small></span><span class="end">{{DAY}}</span></a>{{/NEWS_ROW}}</div>
{{#EMPTY}}<p class="empty">{{NO_NEWS}}</p>{{/EMPTY}}
