#include "qsysteminfo.h"

#include <QDeviceInfo>
#include <QLocale>
#include <QSysInfo>

QSystemInfo::QSystemInfo(QObject *parent)
    : QObject(parent)
{
}

QString QSystemInfo::currentCountryCode() const
{
    // The name of a locale is language_COUNTRY; of "C", which is of no country, there is no second half.
    const QString country = QLocale::system().name().section(QLatin1Char('_'), 1, 1);
    return country.size() == 2 ? country.toUpper() : QString();
}

QString QSystemInfo::version(Version type) const
{
    const QString version = QDeviceInfo().version(type == Firmware ? QDeviceInfo::Firmware : QDeviceInfo::Os);
    if (!version.isEmpty())
        return version;
    const QString product = QSysInfo::productVersion();
    return product == QLatin1String("unknown") ? QString() : product;
}
