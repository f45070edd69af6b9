{{%AUTOESCAPE context="HTML"}}
<div class="list">{{#CONVERSATION}}<a class="row {{#FRESH}}unread{{/FRESH}}" href="/vantu/messages/index/uid/{{UID}}"><span class="avatar h{{HUE}}">{{INITIALS}}</span>
<span class="text"><b>{{NAME}}</b><small>{{#MINE}}{{YOU}}{{COLON}} {{/MINE}}{{EXCERPT}}</small></span>
<span class="end">{{DAY}}<br>{{#FRESH}}<span class="badge">{{FRESH}}</span>{{/FRESH}}</span></a>{{/CONVERSATION}}</div>
{{#EMPTY}}<p class="empty">{{NO_MESSAGES}}</p>{{/EMPTY}}
<div class="list"><a class="row short" href="/vantu/messages/sent/"><span class="text">{{T_SENT}}</span><i class="chevron"></i></a></div>
