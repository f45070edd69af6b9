{{%AUTOESCAPE context="HTML"}}
<div class="logo"><svg><use xlink:href="#logo"/></svg><h1>Vantu</h1></div>
<div class="card"><p>{{ABOUT_1}}</p><p>{{ABOUT_3}}</p><p class="quiet">{{ABOUT_2}}</p></div>
