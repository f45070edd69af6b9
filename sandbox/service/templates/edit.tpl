{{%AUTOESCAPE context="HTML"}}
<form class="card" method="post" action="/vantu/account/edit">
<label for="name">{{NAME_LABEL}}</label><input type="text" id="name" name="name" value="{{NAME}}" maxlength="40">
<label for="city">{{CITY_LABEL}}</label><input type="text" id="city" name="city" value="{{CITY}}" maxlength="100">
<label for="motto">{{MOTTO_LABEL}}</label><input type="text" id="motto" name="motto" value="{{MOTTO}}" maxlength="100">
<label for="new">{{NEW_PASSWORD}}</label><input type="password" id="new" name="new_password">
<label for="current">{{CURRENT_PASSWORD}}</label><input type="password" id="current" name="current_password">
<p class="quiet" style="margin-top:6px">{{PASSWORD_HINT}}</p>
<button class="button" type="submit">{{SAVE}}</button>
</form>
