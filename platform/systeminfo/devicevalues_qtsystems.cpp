// SPDX-License-Identifier: MIT
#include "devicevalues.h"

#include <QDeviceInfo>
#include <QNetworkInfo>

QString DeviceValues::mobileCountryCode()
{
    return QNetworkInfo().currentMobileCountryCode(0);
}

QString DeviceValues::model()
{
    return QDeviceInfo().model();
}

QString DeviceValues::imei()
{
    return QDeviceInfo().imei(0);
}

QString DeviceValues::firmware()
{
    return QDeviceInfo().version(QDeviceInfo::Firmware);
}

QString DeviceValues::systemVersion()
{
    return QDeviceInfo().version(QDeviceInfo::Os);
}
