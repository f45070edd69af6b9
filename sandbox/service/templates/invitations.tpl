{{%AUTOESCAPE context="HTML"}}
<div class="list">{{#INVITATION}}<div class="row"><span class="text"><b>{{ADDRESS}}</b><small>{{GAME}}</small></span><span class="end">{{MOMENT}}</span></div>{{/INVITATION}}</div>
{{#EMPTY}}<p class="empty">{{NO_INVITATIONS}}</p>{{/EMPTY}}
