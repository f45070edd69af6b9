{{%AUTOESCAPE context="HTML"}}
<div class="card hero"><svg class="icon"><use xlink:href="#g{{GID}}"/></svg><div class="text"><h1>{{GAME}}</h1><div class="bar"><i style="width:{{PERCENT}}%"></i></div><span class="quiet">{{WON}} / {{TROPHIES}}</span></div></div>
<div class="list">{{#TROPHY}}<div class="row {{STATE}}"><svg class="cup"><use xlink:href="#cup"/></svg><span class="text"><b>{{TROPHY_NAME}}</b><small>{{#WON_AT}}{{WON_LABEL}}: {{WHEN}}{{/WON_AT}}{{#OPEN}}{{NOT_WON}}{{/OPEN}}</small></span><span class="end">{{TROPHY_POINTS}}<br>{{POINTS}}</span></div>{{/TROPHY}}</div>
