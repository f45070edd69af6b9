{{%AUTOESCAPE context="HTML"}}
<div class="card hero"><span class="avatar big h{{HUE}}">{{INITIALS}}</span><div class="text"><h1>{{NAME}}</h1><span class="quiet">{{LOGIN}}<br>{{CITY}}</span></div></div>
<div class="card">{{MOTTO}}</div>
<h2>{{STANDING}}</h2>
<div class="card thumbs"><span><svg><use xlink:href="#up"/></svg>{{UP}}</span><span class="down"><svg><use xlink:href="#up"/></svg>{{DOWN}}</span></div>
<div class="list">
<a class="row short" href="/vantu/account/index/uid/{{UID}}"><span class="text">{{HOW_OTHERS_SEE_YOU}}</span><i class="chevron"></i></a>
<a class="row short" href="/vantu/messages/sent/"><span class="text">{{T_SENT}}</span><i class="chevron"></i></a>
<a class="row short" href="/vantu/friends/show-invite-email"><span class="text">{{T_INVITATIONS}}</span><i class="chevron"></i></a>
</div>
<a class="button plain" href="/vantu/logout">{{SIGN_OUT}}</a>
