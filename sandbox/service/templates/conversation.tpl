{{%AUTOESCAPE context="HTML"}}
<div class="list"><a class="row" href="/vantu/account/index/uid/{{UID}}"><span class="avatar h{{HUE}}">{{INITIALS}}</span>
<span class="text"><b>{{NAME}}</b><small>{{MOTTO}}</small></span><i class="chevron"></i></a></div>
{{#MESSAGE}}<div class="bubble {{SIDE}}">{{TEXT:pre_escape}}<time>{{MOMENT}}</time></div>{{/MESSAGE}}
{{#EMPTY}}<p class="empty">{{NO_MESSAGES}}</p>{{/EMPTY}}
