{{%AUTOESCAPE context="HTML"}}
<form class="card search" method="post" action="/vantu/friends/add-friends/"><input type="text" name="q" value="{{QUERY}}" placeholder="{{SEARCH_FOR}}"><button class="button" type="submit">{{SEARCH}}</button></form>
{{#HAS_ROWS}}<h2>{{HEADING}}</h2>{{/HAS_ROWS}}
<div class="list">{{#PLAYER}}<div class="row"><a href="/vantu/account/index/uid/{{UID}}"><span class="avatar h{{HUE}}">{{INITIALS}}</span></a>
<a class="text" href="/vantu/account/index/uid/{{UID}}"><b>{{NAME}}</b><small>{{CITY}}</small></a>
{{#CAN_ADD}}<a class="button small" href="/vantu/account/add-friend/uid/{{UID}}">{{ADD}}</a>{{/CAN_ADD}}{{#IS_FRIEND}}<span class="tag">{{YOUR_FRIEND}}</span>{{/IS_FRIEND}}</div>{{/PLAYER}}</div>
{{#EMPTY}}<p class="empty">{{NOBODY_FOUND}}</p>{{/EMPTY}}
<div class="list"><a class="row short" href="/vantu/friends/show-invite-email"><span class="text">{{T_INVITATIONS}}</span><i class="chevron"></i></a></div>
