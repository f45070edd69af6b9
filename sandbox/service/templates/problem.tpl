{{%AUTOESCAPE context="HTML"}}
<div class="card"><h1>{{T_PROBLEM}}</h1><p>{{TEXT}}</p><a class="button" href="/vantu/">{{GO_HOME}}</a></div>
