{{%AUTOESCAPE context="HTML"}}
<p class="quiet">{{INVITE_PREVIEW}}</p>
<div class="card mail">{{#GAME_CARD}}<div class="head hero"><svg class="icon"><use xlink:href="#g{{GID}}"/></svg><div class="text"><b>{{SUBJECT}}</b><br><span class="quiet">{{NAME}} · Vantu</span></div></div>{{/GAME_CARD}}
<div class="body"><p>{{INVITE_GREETING}}</p><p>{{INVITE}}</p>{{#GAME_CARD}}<p class="quiet">{{GAME}}{{COLON}} {{TAGLINE}}</p>{{/GAME_CARD}}<span class="button">{{PLAY_NOW}}</span></div></div>
