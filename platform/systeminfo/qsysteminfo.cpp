// SPDX-License-Identifier: MIT
#include "qsysteminfo.h"

#include "deviceidentity.h"
#include "mobilecountry.h"

#include <QDeviceInfo>
#include <QLocale>
#include <QNetworkInfo>
#include <QSysInfo>

QSystemInfo::QSystemInfo(QObject *parent)
    : QObject(parent)
{
}

QString QSystemInfo::currentCountryCode() const
{
    const QString country = countryOfMobileCode(QNetworkInfo().currentMobileCountryCode(0));
    return country.isEmpty() ? DeviceIdentity::countryOfLocale(QLocale::system().name()) : country;
}

QString QSystemInfo::version(Version type) const
{
    const QDeviceInfo device;
    if (type == Firmware) {
        // Where nothing is known of a firmware, the release of the kernel is given for it, which it is not.
        const QString firmware = device.version(QDeviceInfo::Firmware);
        if (!firmware.isEmpty() && firmware != QSysInfo::kernelVersion())
            return firmware;
    }
    return device.version(QDeviceInfo::Os);
}
