// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// What this machine is, where there is no phone to ask.
namespace DeviceIdentity {

/// The country in the name of a locale (language_COUNTRY); empty for a locale of no country.
QString countryOfLocale(const QString &localeName);

/// The model as the firmware tables under @p root name it (device tree, DMI); empty if they do not, or if the maker
/// left the place-holder in.
QString hardwareModel(const QString &root = QStringLiteral("/sys"));

/// An identifier derived from @p machineId that cannot be traced back to it, nor compared with what other applications
/// derive: 32 hexadecimal digits. Empty for an empty machine id.
QString appSpecificId(const QByteArray &machineId);

} // namespace DeviceIdentity
