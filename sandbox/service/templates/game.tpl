{{%AUTOESCAPE context="HTML"}}
<div class="card"><div class="hero"><svg class="icon big"><use xlink:href="#g{{GID}}"/></svg><div class="text"><h1>{{GAME}}</h1><span class="quiet">{{TAGLINE}}</span></div></div></div>
<div class="list"><a class="row" href="/vantu/games/trophies/gid/{{GID}}"><svg class="cup"><use xlink:href="#cup"/></svg>
<div class="text"><b>{{T_TROPHIES}}</b><div class="bar"><i style="width:{{PERCENT}}%"></i></div><small>{{WON}} / {{TROPHIES}}</small></div>{{#FRESH}}<span class="badge">{{FRESH}}</span>{{/FRESH}}<i class="chevron"></i></a></div>
{{#HAS_ROWS}}<h2>{{PLAYED_BY}}</h2>{{/HAS_ROWS}}
<div class="list">{{#PLAYER}}<a class="row" href="/vantu/account/index/uid/{{UID}}"><span class="avatar h{{HUE}}">{{INITIALS}}</span><span class="text"><b>{{NAME}}</b><small>{{MOTTO}}</small></span><i class="chevron"></i></a>{{/PLAYER}}</div>
