// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QSizeF>
#include <Qt>
#include <QVector>

class MLayout;
class QGraphicsLayoutItem;

/// Says where the items of an MLayout go. Belongs to its layout.
class MAbstractLayoutPolicy {
public:
    /// Adds itself to @p layout, which owns it. The first policy of a layout is its active one.
    explicit MAbstractLayoutPolicy(MLayout *layout);
    virtual ~MAbstractLayoutPolicy();

    MLayout *layout() const { return m_layout; }

    /// Whether the layout follows this policy.
    bool isActive() const;

    /// Adds @p item at the end. Null and items that are already there are left alone.
    void addItem(QGraphicsLayoutItem *item);

    /// Adds @p item before the one at @p index; an index out of range means the end.
    void insertItem(int index, QGraphicsLayoutItem *item);

    /// Lets go of @p item, and so does the layout unless another policy holds it. The item stays where it is on the
    /// screen and goes back to the caller.
    void removeItem(QGraphicsLayoutItem *item);
    void removeAt(int index);

    int count() const { return m_items.size(); }

    /// Null out of range.
    QGraphicsLayoutItem *itemAt(int index) const;

    /// -1 for an item that is not there.
    int indexOf(const QGraphicsLayoutItem *item) const;

    virtual QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const = 0;

    /// Called whenever the layout's geometry or items change.
    virtual void relayout() = 0;

protected:
    /// Moves an item, at once. @p rect is in the coordinates of the widget that the layout is set on. Out of range
    /// does nothing.
    void setItemGeometry(int index, const QRectF &rect);

    /// The rectangle last given to an item; null before that and out of range.
    QRectF itemGeometry(int index) const;

    /// The margins of the layout.
    void getContentsMargins(qreal *left, qreal *top, qreal *right, qreal *bottom) const;

private:
    friend class MLayout;

    struct Item {
        QGraphicsLayoutItem *item;
        QRectF geometry;
    };

    void forget(const QGraphicsLayoutItem *item);

    MLayout *m_layout;
    QVector<Item> m_items;
};
