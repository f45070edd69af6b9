// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

/// What the system as a whole is. Values that cannot be had are empty.
class QSystemInfo : public QObject {
    Q_OBJECT

public:
    enum Version { Os, Firmware };

    explicit QSystemInfo(QObject *parent = nullptr);

    /// The country that the device is in, as its mobile network says, or else the one that the system is set to: two
    /// upper-case letters (ISO 3166).
    QString currentCountryCode() const;

    /// The version of the operating system or of the device's firmware. A machine that tells of no firmware gives the
    /// operating system's version for both.
    QString version(Version type) const;
};
