// SPDX-License-Identifier: MIT
#include "qsysteminfo.h"

#include "deviceidentity.h"
#include "devicevalues.h"
#include "mobilecountry.h"

#include <QLocale>
#include <QSysInfo>

QSystemInfo::QSystemInfo(QObject *parent)
    : QObject(parent)
{
}

QString QSystemInfo::currentCountryCode() const
{
    const QString country = countryOfMobileCode(DeviceValues::mobileCountryCode());
    return country.isEmpty() ? DeviceIdentity::countryOfLocale(QLocale::system().name()) : country;
}

QString QSystemInfo::version(Version type) const
{
    if (type == Firmware) {
        // Where nothing is known of a firmware, the release of the kernel is given for it, which it is not.
        const QString firmware = DeviceValues::firmware();
        if (!firmware.isEmpty() && firmware != QSysInfo::kernelVersion())
            return firmware;
    }
    return DeviceValues::systemVersion();
}
