{{%AUTOESCAPE context="HTML"}}
<div class="card"><div class="hero"><svg class="icon big"><use xlink:href="#g{{GID}}"/></svg><div class="text"><h1>{{SHARED}}</h1><span class="quiet">{{GAME}}</span></div></div></div>
<a class="button" href="/vantu/games/trophies/gid/{{GID}}">{{T_TROPHIES}}</a>
