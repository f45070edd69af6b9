{{%AUTOESCAPE context="HTML"}}
<div class="card hero"><span class="avatar big h{{HUE}}">{{INITIALS}}</span>
<div class="text"><h1>{{NAME}}</h1><span class="quiet">{{CITY}}</span>{{#IS_FRIEND}} <span class="tag">{{YOUR_FRIEND}}</span>{{/IS_FRIEND}}</div></div>
<div class="card">{{MOTTO}}</div>
<h2>{{STANDING}}</h2>
<div class="card">{{#VOTES}}<div class="thumbs"><span><svg><use xlink:href="#up"/></svg>{{UP}}</span><span class="down"><svg><use xlink:href="#up"/></svg>{{DOWN}}</span></div><div class="bar"><i style="width:{{UP_PERCENT}}%"></i></div>{{/VOTES}}{{#UNRATED}}<span class="quiet">{{NO_RATINGS}}</span>{{/UNRATED}}</div>
<h2>{{T_GAMES}}</h2>
<div class="list">{{#GAME_ROW}}<a class="row" href="/vantu/games/show-game/gid/{{GID}}"><svg class="icon"><use xlink:href="#g{{GID}}"/></svg>
<div class="text"><b>{{GAME}}</b><small>{{WON}} / {{TROPHIES}} {{TROPHIES_COUNTED}}</small></div><i class="chevron"></i></a>{{/GAME_ROW}}
{{#OTHER}}<a class="row short" href="/vantu/games/compare/uid/{{UID}}"><span class="text">{{T_COMPARE}}</span><i class="chevron"></i></a>{{/OTHER}}</div>
