// SPDX-License-Identifier: MIT
#include "mfocusring.h"

#include "mstyle.h"

#include <QPainter>

namespace {

constexpr qreal fullWidth = MStyle::focusRingWidth + 2 * MStyle::focusRingEdgeWidth;

bool isInsideClip(const QGraphicsItem *item)
{
    for (; item; item = item->parentItem()) {
        if (item->flags() & QGraphicsItem::ItemClipsChildrenToShape)
            return true;
    }
    return false;
}

} // namespace

MFocusRing::MFocusRing(QGraphicsItem *parent)
    : QGraphicsItem(parent)
{
    setAcceptedMouseButtons(Qt::NoButton);
}

qreal MFocusRing::width()
{
    return fullWidth;
}

void MFocusRing::surround(const QRectF &rect, qreal radius)
{
    constexpr qreal out = MStyle::focusRingAir + fullWidth / 2;
    QRectF ring = rect.adjusted(-out, -out, out, out);
    const QGraphicsItem *holder = parentItem()->parentItem();
    if (isInsideClip(holder)) {
        constexpr qreal in = fullWidth / 2;
        ring &= parentItem()->mapRectFromItem(holder, holder->boundingRect()).adjusted(in, in, -in, -in);
    }
    place(ring, radius + out);
}

void MFocusRing::line(const QRectF &rect)
{
    constexpr qreal in = fullWidth / 2;
    place(rect.adjusted(in, in, -in, -in), 0);
}

void MFocusRing::place(const QRectF &rect, qreal radius)
{
    prepareGeometryChange();
    m_rect = rect;
    m_radius = radius;
}

QRectF MFocusRing::boundingRect() const
{
    constexpr qreal out = fullWidth / 2 + 1;
    return m_rect.adjusted(-out, -out, out, out);
}

void MFocusRing::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setBrush(Qt::NoBrush);
    for (const QPen &pen : {QPen(MStyle::focusRingEdge, fullWidth), QPen(MStyle::focusRing, MStyle::focusRingWidth)}) {
        painter->setPen(pen);
        painter->drawRoundedRect(m_rect, m_radius, m_radius);
    }
}
