// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsLayout>
#include <QVector>

#include <memory>

class MAbstractLayoutPolicy;

/// A layout that leaves the placing to its policy.
///
/// Items added through the policy become children of the widget that the layout is set on, in the order in which they
/// were added, which is also their stacking order. Set on no widget yet, it keeps them until it is.
class MLayout : public QGraphicsLayout {
public:
    explicit MLayout(QGraphicsLayoutItem *parent = nullptr);
    ~MLayout() override;

    /// Follows @p policy, which it owns; the one before is destroyed. A policy does this by itself when it is made.
    void setPolicy(MAbstractLayoutPolicy *policy);

    int count() const override { return m_items.size(); }
    QGraphicsLayoutItem *itemAt(int index) const override;
    void removeAt(int index) override;

    void setGeometry(const QRectF &rect) override;

protected:
    /// What the policy says, but a layout never sets an upper bound to its widget: a policy whose rectangles are fixed
    /// has no opinion about that.
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;

private:
    friend class MAbstractLayoutPolicy;

    void addItem(QGraphicsLayoutItem *item);

    QVector<QGraphicsLayoutItem *> m_items;
    std::unique_ptr<MAbstractLayoutPolicy> m_policy;
};
