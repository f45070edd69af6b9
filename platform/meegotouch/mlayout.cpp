// SPDX-License-Identifier: MIT
#include "mlayout.h"

#include "mabstractlayoutpolicy.h"

#include <QWidget>

#include <algorithm>

MLayout::MLayout(QGraphicsLayoutItem *parent)
    : QGraphicsLayout(parent)
{
}

MLayout::~MLayout()
{
    for (MAbstractLayoutPolicy *policy : std::exchange(m_policies, {}))
        delete policy;
    while (!m_items.isEmpty())
        removeAt(m_items.size() - 1);
}

void MLayout::setPolicy(MAbstractLayoutPolicy *policy)
{
    if (!policy || policy->layout() != this || policy == m_policy)
        return;
    m_policy = policy;
    invalidate();
}

QGraphicsLayoutItem *MLayout::itemAt(int index) const
{
    return index >= 0 && index < m_items.size() ? m_items.at(index) : nullptr;
}

void MLayout::removeAt(int index)
{
    QGraphicsLayoutItem *item = itemAt(index);
    if (!item)
        return;
    m_items.remove(index);
    for (MAbstractLayoutPolicy *policy : m_policies)
        policy->forget(item);
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

void MLayout::addPolicy(MAbstractLayoutPolicy *policy)
{
    m_policies.push_back(policy);
    if (!m_policy)
        m_policy = policy;
}

void MLayout::policyGone(MAbstractLayoutPolicy *policy)
{
    m_policies.erase(std::remove(m_policies.begin(), m_policies.end(), policy), m_policies.end());
    if (m_policy == policy)
        m_policy = nullptr;
}

void MLayout::hold(QGraphicsLayoutItem *item)
{
    if (m_items.contains(item))
        return;
    addChildLayoutItem(item);
    m_items.append(item);
}

void MLayout::releaseUnlessHeld(QGraphicsLayoutItem *item)
{
    const bool held = std::any_of(m_policies.begin(), m_policies.end(),
                                  [item](MAbstractLayoutPolicy *policy) { return policy->indexOf(item) >= 0; });
    if (!held)
        removeAt(m_items.indexOf(item));
}
