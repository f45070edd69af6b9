#pragma once

#include <QByteArray>
#include <QString>

/// Who this machine is, where there is no phone to ask.
namespace DeviceIdentity {

/// The model as the firmware tables under \a root name it (DMI, device tree); empty if they do not or if the maker
/// left the place-holder in.
QString hardwareModel(const QString &root = QStringLiteral("/sys"));

/// An identifier derived from \a machineId that cannot be traced back to it, nor compared with what other applications
/// derive: 32 hexadecimal digits. Empty for an empty machine id.
QString appSpecificId(const QByteArray &machineId);

} // namespace DeviceIdentity
