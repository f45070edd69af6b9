// SPDX-License-Identifier: MIT
#include "mabstractlayoutpolicy.h"

#include "mlayout.h"

#include <algorithm>

MAbstractLayoutPolicy::MAbstractLayoutPolicy(MLayout *layout)
    : m_layout(layout)
{
    Q_ASSERT(layout);
    m_layout->addPolicy(this);
}

MAbstractLayoutPolicy::~MAbstractLayoutPolicy()
{
    m_layout->policyGone(this);
}

bool MAbstractLayoutPolicy::isActive() const
{
    return m_layout->policy() == this;
}

void MAbstractLayoutPolicy::addItem(QGraphicsLayoutItem *item)
{
    insertItem(count(), item);
}

void MAbstractLayoutPolicy::insertItem(int index, QGraphicsLayoutItem *item)
{
    if (!item || item == m_layout || indexOf(item) >= 0)
        return;
    m_layout->hold(item);
    m_items.insert(index < 0 || index > count() ? count() : index, {item, QRectF()});
    m_layout->invalidate();
}

void MAbstractLayoutPolicy::removeItem(QGraphicsLayoutItem *item)
{
    if (indexOf(item) < 0)
        return;
    forget(item);
    m_layout->releaseUnlessHeld(item);
    m_layout->invalidate();
}

void MAbstractLayoutPolicy::removeAt(int index)
{
    removeItem(itemAt(index));
}

QGraphicsLayoutItem *MAbstractLayoutPolicy::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items.at(index).item : nullptr;
}

int MAbstractLayoutPolicy::indexOf(const QGraphicsLayoutItem *item) const
{
    const auto place = std::find_if(m_items.begin(), m_items.end(), [item](const Item &i) { return i.item == item; });
    return place == m_items.end() ? -1 : int(place - m_items.begin());
}

void MAbstractLayoutPolicy::setItemGeometry(int index, const QRectF &rect)
{
    if (QGraphicsLayoutItem *item = itemAt(index)) {
        m_items[index].geometry = rect;
        item->setGeometry(rect);
    }
}

QRectF MAbstractLayoutPolicy::itemGeometry(int index) const
{
    return itemAt(index) ? m_items.at(index).geometry : QRectF();
}

void MAbstractLayoutPolicy::getContentsMargins(qreal *left, qreal *top, qreal *right, qreal *bottom) const
{
    m_layout->getContentsMargins(left, top, right, bottom);
}

void MAbstractLayoutPolicy::forget(const QGraphicsLayoutItem *item)
{
    const int index = indexOf(item);
    if (index >= 0)
        m_items.remove(index);
}
