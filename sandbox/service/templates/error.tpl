{{%AUTOESCAPE context="HTML"}}
<div class="card"><h1>{{T_PROBLEM}}</h1><p>{{ERROR_SENTENCE}}</p><p class="quiet">{{ERROR_HINT}}</p><a class="button" href="/vantu/">{{GO_HOME}}</a></div>
