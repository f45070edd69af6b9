{{%AUTOESCAPE context="HTML"}}
{{#SELECTING}}<h2>{{CHOOSE_FRIEND}}</h2>{{/SELECTING}}
<div class="list">{{#FRIEND}}<a class="row" href="/vantu/account/index/uid/{{UID}}"><span class="avatar h{{HUE}}">{{INITIALS}}</span>
<span class="text"><b>{{NAME}}</b><small>{{MOTTO}}</small></span>{{#FRESH}}<span class="badge">{{NEW}}</span>{{/FRESH}}<i class="chevron"></i></a>{{/FRIEND}}</div>
{{#EMPTY}}<p class="empty">{{NO_FRIENDS}}</p><a class="button plain" href="/vantu/friends/add-friends/">{{T_ADD_FRIENDS}}</a>{{/EMPTY}}
<div class="pages">{{#BACKWARD}}<a class="button plain" href="/vantu/friends/index/page/{{BACKWARD}}">{{PREVIOUS}}</a>{{/BACKWARD}}{{#FORWARD}}<a class="button plain" href="/vantu/friends/index/page/{{FORWARD}}">{{NEXT}}</a>{{/FORWARD}}</div>
