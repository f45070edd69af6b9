// SPDX-License-Identifier: MIT
#include "vantuwidget.h"

#include "loginfile.h"

void VantuPage::saveUserLogin()
{
    storeLogin(loginFilePath(), {_username, _password, _rememberMe});
}

void VantuPage::readUserLogin()
{
    const auto login = loadLogin(loginFilePath());
    if (!login)
        return;
    _username = login->username;
    _password = login->password;
    _rememberMe = login->rememberMe;
}

void VantuPage::clearUserLogin()
{
    forgetLogin(loginFilePath());
}
