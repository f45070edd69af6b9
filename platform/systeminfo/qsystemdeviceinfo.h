// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

/// What the device is. Values that cannot be had are empty.
class QSystemDeviceInfo : public QObject {
    Q_OBJECT

public:
    explicit QSystemDeviceInfo(QObject *parent = nullptr);

    /// The name under which the device is sold.
    QString model() const;

    /// The number of the device's phone modem. A device without one gives an identifier of 32 hexadecimal digits that
    /// is its own, always the same, and tells nothing else about it.
    QString imei() const;
};
