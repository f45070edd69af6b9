// SPDX-License-Identifier: MIT
#include "mlayout.h"

#include "mabstractlayoutpolicy.h"

#include <QWidget>

MLayout::MLayout(QGraphicsLayoutItem *parent)
    : QGraphicsLayout(parent)
{
}

MLayout::~MLayout()
{
    while (!m_items.isEmpty())
        removeAt(m_items.size() - 1);
}

void MLayout::setPolicy(MAbstractLayoutPolicy *policy)
{
    if (policy == m_policy.get())
        return;
    m_policy.reset(policy);
    invalidate();
}

QGraphicsLayoutItem *MLayout::itemAt(int index) const
{
    return m_items.value(index);
}

void MLayout::removeAt(int index)
{
    QGraphicsLayoutItem *item = itemAt(index);
    if (!item)
        return;
    m_items.remove(index);
    item->setParentLayoutItem(nullptr);
    invalidate();
}

void MLayout::setGeometry(const QRectF &rect)
{
    QGraphicsLayout::setGeometry(rect);
    if (m_policy)
        m_policy->relayout();
}

QSizeF MLayout::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MaximumSize || !m_policy)
        return which == Qt::MaximumSize ? QSizeF(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) : QSizeF(0, 0);
    return m_policy->sizeHint(which, constraint);
}

void MLayout::addItem(QGraphicsLayoutItem *item)
{
    if (!item || item == this || m_items.contains(item))
        return;
    addChildLayoutItem(item);
    m_items.append(item);
    invalidate();
}
