// SPDX-License-Identifier: MIT
#include "qsystemdeviceinfo.h"

#include "deviceidentity.h"
#include "devicevalues.h"

#include <QSysInfo>

QSystemDeviceInfo::QSystemDeviceInfo(QObject *parent)
    : QObject(parent)
{
}

QString QSystemDeviceInfo::model() const
{
    const QString model = DeviceIdentity::withoutPlaceHolder(DeviceValues::model());
    return model.isEmpty() ? DeviceIdentity::hardwareModel() : model;
}

QString QSystemDeviceInfo::imei() const
{
    const QString imei = DeviceValues::imei();
    return imei.isEmpty() ? DeviceIdentity::appSpecificId(QSysInfo::machineUniqueId()) : imei;
}
