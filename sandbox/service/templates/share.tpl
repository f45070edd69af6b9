{{%AUTOESCAPE context="HTML"}}
<h2>{{NETWORK}}</h2>
<form class="card" method="post" action="{{ACTION}}"><div class="hero"><span class="avatar h{{HUE}}">{{INITIALS}}</span><div class="text"><b>{{NAME}}</b><br>{{MESSAGE}}</div></div>
<div class="row"><svg class="icon"><use xlink:href="#g{{GID}}"/></svg><span class="text"><b>{{GAME}}</b><small>{{TAGLINE}}</small></span></div>
<button class="button" type="submit">{{SHARE}}</button></form>
<p class="quiet">{{PRACTICE}}</p>
