// SPDX-License-Identifier: MIT
#include "qsysteminfo.h"

#include "deviceidentity.h"
#include "mobilecountry.h"
#include "modem.h"

#include <QLocale>
#include <QSysInfo>

QSystemInfo::QSystemInfo(QObject *parent)
    : QObject(parent)
{
}

QString QSystemInfo::currentCountryCode() const
{
    const QString country = countryOfMobileCode(currentModem().operatorCode.left(3));
    return country.isEmpty() ? DeviceIdentity::countryOfLocale(QLocale::system().name()) : country;
}

QString QSystemInfo::version(Version) const
{
    // The kernel tells of no firmware that would name the device's software as a whole.
    return QSysInfo::productVersion();
}
