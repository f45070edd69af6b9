// SPDX-License-Identifier: MIT
#include "mfittedfont.h"

#include "mstyle.h"

#include <QFontMetricsF>

QFont fittedFont(const QFont &font, const QString &text, qreal width)
{
    QFont fitted = font;
    const qreal wanted = QFontMetricsF(font).horizontalAdvance(text);
    if (wanted > width)
        fitted.setStretch(qMax(MStyle::narrowestLetters, static_cast<int>(100 * width / wanted)));
    return fitted;
}
