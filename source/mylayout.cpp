// SPDX-License-Identifier: MIT
#include "mylayout.h"

#include <QGraphicsLayoutItem>

MyLayoutPolicy::MyLayoutPolicy(MLayout *layout)
    : MAbstractLayoutPolicy(layout)
{
}

void MyLayoutPolicy::addItemAtGeometry(QGraphicsLayoutItem *item, const QRectF &rect)
{
    if (!item || indexOf(item) >= 0)
        return;
    addItem(item);
    setItemGeometry(count() - 1, rect);
}

QSizeF MyLayoutPolicy::sizeHint(Qt::SizeHint, const QSizeF &) const
{
    qreal left = 0;
    qreal top = 0;
    qreal right = 0;
    qreal bottom = 0;
    getContentsMargins(&left, &top, &right, &bottom);
    return QSizeF(right - left, bottom - top);
}

void MyLayoutPolicy::relayout() { }
