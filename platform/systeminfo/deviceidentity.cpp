// SPDX-License-Identifier: MIT
#include "deviceidentity.h"

#include <QFile>
#include <QMessageAuthenticationCode>

namespace {

// Drawn at random, once and for all: it names the application in the derived identifier.
constexpr char applicationId[] = "8d0f3b7c52ab4e0f9a53d1c6e47b2f90";

QString firstLine(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    // The device tree ends its texts with a zero byte.
    return QString::fromUtf8(file.read(256).split('\0').first().split('\n').first()).simplified();
}

/// @p model, unless it is what makers leave in the tables when they do not fill them in: then empty.
QString withoutPlaceHolder(const QString &model)
{
    static const QLatin1String fillers[] = {
        QLatin1String("To Be Filled By O.E.M."), QLatin1String("System Product Name"), QLatin1String("Default string"),
        QLatin1String("Not Specified"),          QLatin1String("Not Applicable"),      QLatin1String("None"),
    };
    for (const QLatin1String &filler : fillers) {
        if (model.compare(filler, Qt::CaseInsensitive) == 0)
            return QString();
    }
    return model;
}

} // namespace

QString DeviceIdentity::countryOfLocale(const QString &localeName)
{
    // Between the two there may be a script: language_Script_COUNTRY.
    const QString country = localeName.section(QLatin1Char('_'), 1).section(QLatin1Char('_'), -1);
    return country.size() == 2 ? country.toUpper() : QString();
}

QString DeviceIdentity::hardwareModel(const QString &root)
{
    for (const char *path : {"/firmware/devicetree/base/model", "/devices/virtual/dmi/id/product_name"}) {
        const QString name = withoutPlaceHolder(firstLine(root + QLatin1String(path)));
        if (!name.isEmpty())
            return name;
    }
    return QString();
}

QString DeviceIdentity::appSpecificId(const QByteArray &machineId)
{
    if (machineId.isEmpty())
        return QString();
    const QByteArray hash = QMessageAuthenticationCode::hash(applicationId, machineId, QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.left(16).toHex());
}
