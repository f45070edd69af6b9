{{%AUTOESCAPE context="HTML"}}
<div class="card"><p>{{TEXT}}</p><a class="button" href="/vantu/">{{GO_HOME}}</a></div>
