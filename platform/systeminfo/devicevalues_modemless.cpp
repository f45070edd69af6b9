// SPDX-License-Identifier: MIT
#include "devicevalues.h"

#include <QSysInfo>

QString DeviceValues::mobileCountryCode()
{
    return QString();
}

QString DeviceValues::model()
{
    return QString();
}

QString DeviceValues::imei()
{
    return QString();
}

QString DeviceValues::firmware()
{
    return QString();
}

QString DeviceValues::systemVersion()
{
    return QSysInfo::productVersion();
}
