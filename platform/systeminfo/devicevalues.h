// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What is asked of Qt Systems. Where that does not exist (Qt 6), what it says of a machine without a modem. Values
/// that are not known are empty.
namespace DeviceValues {

QString mobileCountryCode();
QString model();
QString imei();
QString firmware();
QString systemVersion();

} // namespace DeviceValues
