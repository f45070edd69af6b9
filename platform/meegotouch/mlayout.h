// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsLayout>
#include <QVector>

#include <vector>

class MAbstractLayoutPolicy;

/// A layout that leaves the placing to a policy.
///
/// Items added through a policy become children of the widget that the layout is set on, in the order in which they
/// were added, which is also their stacking order. Set on no widget yet, it keeps them until it is.
class MLayout : public QGraphicsLayout {
public:
    explicit MLayout(QGraphicsLayoutItem *parent = nullptr);
    ~MLayout() override;

    /// Makes @p policy the active one. A policy of another layout, or null, changes nothing.
    void setPolicy(MAbstractLayoutPolicy *policy);
    MAbstractLayoutPolicy *policy() const { return m_policy; }

    /// The items of all policies, in the order in which they were added.
    int count() const override { return m_items.size(); }
    QGraphicsLayoutItem *itemAt(int index) const override;
    void removeAt(int index) override;

    void setGeometry(const QRectF &rect) override;

protected:
    /// What the active policy says, but a layout never sets an upper bound to its widget: a policy whose rectangles
    /// are fixed has no opinion about that.
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;

private:
    friend class MAbstractLayoutPolicy;

    void addPolicy(MAbstractLayoutPolicy *policy);
    void policyGone(MAbstractLayoutPolicy *policy);
    void hold(QGraphicsLayoutItem *item);
    void releaseUnlessHeld(QGraphicsLayoutItem *item);

    QVector<QGraphicsLayoutItem *> m_items;
    std::vector<MAbstractLayoutPolicy *> m_policies;
    MAbstractLayoutPolicy *m_policy = nullptr;
};
