// SPDX-License-Identifier: MIT
#include "mflowlayoutpolicy.h"

#include "mlayout.h"

#include <QGraphicsLayoutItem>
#include <QWidget>

MFlowLayoutPolicy::MFlowLayoutPolicy(MLayout *layout)
    : MAbstractLayoutPolicy(layout)
{
}

void MFlowLayoutPolicy::setSpacing(qreal spacing)
{
    m_spacing = qMax<qreal>(0, spacing);
    layout()->invalidate();
}

/// The items' rectangles, from (0, 0) on.
QVector<QRectF> MFlowLayoutPolicy::flow(qreal width) const
{
    QVector<QRectF> places;
    places.reserve(count());
    qreal x = 0;
    qreal y = 0;
    qreal rowHeight = 0;
    for (int i = 0; i < count(); ++i) {
        QSizeF size = itemAt(i)->effectiveSizeHint(Qt::PreferredSize);
        if (size.width() > width)
            size = itemAt(i)->effectiveSizeHint(Qt::PreferredSize, QSizeF(qMax<qreal>(0, width), -1));
        if (x > 0 && x + size.width() > width) {
            y += rowHeight + m_spacing;
            x = 0;
            rowHeight = 0;
        }
        places.append(QRectF(QPointF(x, y), size));
        x += size.width() + m_spacing;
        rowHeight = qMax(rowHeight, size.height());
    }
    return places;
}

QSizeF MFlowLayoutPolicy::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MaximumSize)
        return QSizeF(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    qreal left = 0, top = 0, right = 0, bottom = 0;
    getContentsMargins(&left, &top, &right, &bottom);
    const QSizeF margins(left + right, top + bottom);
    if (which != Qt::PreferredSize)
        return margins;
    const qreal width = constraint.width() >= 0 ? constraint.width() - margins.width() : qreal(QWIDGETSIZE_MAX);
    QRectF bounds;
    const QVector<QRectF> places = flow(width);
    for (const QRectF &place : places)
        bounds |= place;
    return QSizeF(constraint.width() >= 0 ? constraint.width() : bounds.width() + margins.width(),
                  bounds.height() + margins.height());
}

void MFlowLayoutPolicy::relayout()
{
    const QRectF area = layout()->contentsRect();
    const QVector<QRectF> places = flow(area.width());
    for (int i = 0; i < places.size(); ++i)
        setItemGeometry(i, places.at(i).translated(area.topLeft()));
}
