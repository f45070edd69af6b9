{{%AUTOESCAPE context="HTML"}}
<form class="card" method="post" action="/vantu/account/edit">
<label for="name">{{NAME_LABEL}}</label><input type="text" id="name" name="name" value="{{NAME}}" maxlength="40">
<label for="city">{{CITY_LABEL}}</label><input type="text" id="city" name="city" value="{{CITY}}" maxlength="100">
<label for="motto">{{MOTTO_LABEL}}</label><input type="text" id="motto" name="motto" value="{{MOTTO}}" maxlength="100">
<button class="button" type="submit">{{SAVE}}</button>
</form>
