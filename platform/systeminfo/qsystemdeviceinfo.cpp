// SPDX-License-Identifier: MIT
#include "qsystemdeviceinfo.h"

#include "deviceidentity.h"

#include <QDeviceInfo>

QSystemDeviceInfo::QSystemDeviceInfo(QObject *parent)
    : QObject(parent)
{
}

QString QSystemDeviceInfo::model() const
{
    const QString model = DeviceIdentity::withoutPlaceHolder(QDeviceInfo().model());
    return model.isEmpty() ? DeviceIdentity::hardwareModel() : model;
}

QString QSystemDeviceInfo::imei() const
{
    const QString imei = QDeviceInfo().imei(0);
    return imei.isEmpty() ? DeviceIdentity::appSpecificId(QSysInfo::machineUniqueId()) : imei;
}
