// SPDX-License-Identifier: MIT
#include "qsystemdeviceinfo.h"

#include "deviceidentity.h"
#include "modem.h"

#include <QSysInfo>

QSystemDeviceInfo::QSystemDeviceInfo(QObject *parent)
    : QObject(parent)
{
}

QString QSystemDeviceInfo::model() const
{
    return DeviceIdentity::hardwareModel();
}

QString QSystemDeviceInfo::imei() const
{
    const QString imei = currentModem().imei;
    return imei.isEmpty() ? DeviceIdentity::appSpecificId(QSysInfo::machineUniqueId()) : imei;
}
