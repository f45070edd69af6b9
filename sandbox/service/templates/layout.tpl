{{%AUTOESCAPE context="HTML"}}<!DOCTYPE html>
<html lang="{{LANG}}">
<head>
<meta charset="utf-8">
<title>{{sTitle}}</title>
<meta name="viewport" content="width=320">
<style>{{>STYLE}}</style>
{{#VARIABLES}}<script>
var sUserUid = "{{sUserUid}}";
var iInboxMessages = {{iInboxMessages}};
var iGamesMessages = {{iGamesMessages}};
var iFriendsMessages = {{iFriendsMessages}};
var iGameId = "{{iGameId}}";
var sSubject = "{{sSubject}}";
var bIsFriend = {{bIsFriend}};
var bShowAdd = {{bShowAdd}};
var bShowEvaluate = {{bShowEvaluate}};
var iUserId = "{{iUserId}}";
var sUserName = "{{sUserName}}";
var sTitle = "{{sTitle}}";
{{#LOGIN}}var strUserName = "{{strUserName}}";
var strPassword = "{{strPassword}}";
var blnRememberMe = "{{blnRememberMe}}";{{/LOGIN}}
</script>{{/VARIABLES}}
</head>
<body>
{{>SYMBOLS}}
{{#NOTICE}}<p class="notice">{{TEXT}}</p>{{/NOTICE}}
{{>CONTENT}}
<script>document.body.style.minHeight = window.innerHeight + "px";</script>
</body>
</html>
