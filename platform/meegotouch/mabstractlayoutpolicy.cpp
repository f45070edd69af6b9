// SPDX-License-Identifier: MIT
#include "mabstractlayoutpolicy.h"

#include "mlayout.h"

MAbstractLayoutPolicy::MAbstractLayoutPolicy(MLayout *layout)
    : m_layout(layout)
{
    Q_ASSERT(layout);
    m_layout->setPolicy(this);
}

MAbstractLayoutPolicy::~MAbstractLayoutPolicy() = default;

void MAbstractLayoutPolicy::addItem(QGraphicsLayoutItem *item)
{
    m_layout->addItem(item);
}

void MAbstractLayoutPolicy::removeItem(const QGraphicsLayoutItem *item)
{
    m_layout->removeAt(indexOf(item));
}

int MAbstractLayoutPolicy::count() const
{
    return m_layout->count();
}

QGraphicsLayoutItem *MAbstractLayoutPolicy::itemAt(int index) const
{
    return m_layout->itemAt(index);
}

int MAbstractLayoutPolicy::indexOf(const QGraphicsLayoutItem *item) const
{
    return m_layout->m_items.indexOf(const_cast<QGraphicsLayoutItem *>(item));
}

void MAbstractLayoutPolicy::setItemGeometry(int index, const QRectF &rect)
{
    if (QGraphicsLayoutItem *item = itemAt(index))
        item->setGeometry(rect);
}

void MAbstractLayoutPolicy::getContentsMargins(qreal *left, qreal *top, qreal *right, qreal *bottom) const
{
    m_layout->getContentsMargins(left, top, right, bottom);
}
