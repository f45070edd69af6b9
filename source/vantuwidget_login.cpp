// SPDX-License-Identifier: MIT
#include "vantuwidget.h"

#include "loginfile.h"

void VantuPage::saveUserLogin()
{
    writeLoginFile(loginFilePath(), loginRecords({_username, _password, _rememberMe}));
}

void VantuPage::readUserLogin()
{
    const auto login = parseLoginRecords(readLoginFile(loginFilePath()));
    if (!login)
        return;
    _username = login->username;
    _password = login->password;
    _rememberMe = login->rememberMe;
}

void VantuPage::clearUserLogin()
{
    clearLoginFile(loginFilePath());
}
