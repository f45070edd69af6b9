// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

/// @p font, with narrower letters if @p text would be wider than @p width in it, as far as it stays readable: how wide
/// a text is depends on the fonts of the system. A text may still be wider then.
QFont fittedFont(const QFont &font, const QString &text, qreal width);
