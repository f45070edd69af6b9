// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The device's modem for mobile networks. What is not known is empty.
struct Modem {
    QString imei;
    QString operatorCode; ///< of the network that it is registered in: a mobile country code and a network's code
};

/// The first modem that the system's ModemManager knows of, which is asked once; without one, or without an answer in
/// half a second, an empty one.
Modem currentModem();
