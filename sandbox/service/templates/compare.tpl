{{%AUTOESCAPE context="HTML"}}
<div class="card"><div class="hero">{{#ME}}<span class="avatar h{{HUE}}">{{INITIALS}}</span>{{/ME}}<div class="text thumbs"><span>{{YOU}}</span><span>{{NAME}}</span></div><span class="avatar h{{HUE}}">{{INITIALS}}</span></div></div>
<div class="list">{{#GAME_ROW}}<a class="row" href="/vantu/games/show-game/gid/{{GID}}"><svg class="icon"><use xlink:href="#g{{GID}}"/></svg>
<div class="text"><b>{{GAME}}</b><div class="scores"><div><div class="bar"><i style="width:{{PERCENT}}%"></i></div>{{WON}} / {{TROPHIES}}</div><div><div class="bar"><i class="cool" style="width:{{THEIR_PERCENT}}%"></i></div>{{THEIRS}} / {{TROPHIES}}</div></div></div></a>{{/GAME_ROW}}</div>
