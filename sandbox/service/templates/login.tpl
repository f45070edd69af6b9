{{%AUTOESCAPE context="HTML"}}
<div class="logo"><svg><use xlink:href="#logo"/></svg><h1>{{WELCOME}}</h1><p class="quiet">{{WELCOME_TEXT}}</p></div>
<form class="card" method="post" action="/vantu/login">
<label for="username">{{USER_NAME}}</label><input type="text" id="username" name="username" value="{{LOGIN}}" autocapitalize="off" autocorrect="off">
<label for="password">{{PASSWORD}}</label><input type="password" id="password" name="password">
<label class="check"><input type="checkbox" name="remember_me" value="1" checked>{{REMEMBER_ME}}</label>
<button class="button" type="submit">{{T_SIGN_IN}}</button>
</form>
{{#GUESTS}}<p class="quiet" style="text-align:center">{{GUEST_HINT}} <b>emma</b> / <b>emma123</b>, <b>luca</b> / <b>luca123</b></p>{{/GUESTS}}
