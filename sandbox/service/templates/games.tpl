{{%AUTOESCAPE context="HTML"}}
<div class="list">{{#GAME_ROW}}<a class="row" href="/vantu/games/show-game/gid/{{GID}}"><svg class="icon"><use xlink:href="#g{{GID}}"/></svg>
<div class="text"><b>{{GAME}}</b><div class="bar"><i style="width:{{PERCENT}}%"></i></div><small>{{WON}} / {{TROPHIES}} {{TROPHIES_COUNTED}}</small></div>{{#FRESH}}<span class="badge">{{FRESH}}</span>{{/FRESH}}<i class="chevron"></i></a>{{/GAME_ROW}}</div>
