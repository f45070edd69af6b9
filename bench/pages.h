// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// A page such as the service's: @p rows rows of a list with symbols, and the page variables that the companion reads.
/// Its onload requests "/loaded".
QByteArray listPage(int rows);
