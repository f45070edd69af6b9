// SPDX-License-Identifier: MIT
#include "mclosebutton.h"

#include "mstyle.h"

#include <QPainter>

MCloseButton::MCloseButton(const QString &text, QGraphicsItem *parent)
    : MButton(text, parent)
{
}

void MCloseButton::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const QPointF centre = rect().center();
    const qreal radius = qMin(rect().width(), rect().height()) / 2 - MStyle::closeButtonMargin;
    painter->setPen(QPen(MStyle::closeButtonRim, MStyle::closeButtonRimWidth));
    painter->setBrush(isDown() ? MStyle::closeButtonDownFace : MStyle::closeButtonFace);
    painter->drawEllipse(centre, radius, radius);
    const qreal arm = radius * MStyle::closeButtonCrossSize;
    painter->setPen(QPen(MStyle::closeButtonRim, MStyle::closeButtonCrossWidth, Qt::SolidLine, Qt::RoundCap));
    painter->drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
    painter->drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
}

qreal MCloseButton::cornerRadius() const
{
    return rect().height() / 2;
}

QSizeF MCloseButton::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::PreferredSize)
        return QSizeF(MStyle::closeButtonSize, MStyle::closeButtonSize);
    return MButton::sizeHint(which, constraint);
}
