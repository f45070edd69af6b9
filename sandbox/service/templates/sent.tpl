{{%AUTOESCAPE context="HTML"}}
<div class="list">{{#MESSAGE}}<a class="row" href="/vantu/messages/index/uid/{{UID}}"><span class="avatar h{{HUE}}">{{INITIALS}}</span>
<span class="text"><b>{{TO_LABEL}}{{COLON}} {{RECIPIENTS}}</b><small>{{EXCERPT}}</small></span><span class="end">{{DAY}}</span></a>{{/MESSAGE}}</div>
{{#EMPTY}}<p class="empty">{{NO_MESSAGES}}</p>{{/EMPTY}}
