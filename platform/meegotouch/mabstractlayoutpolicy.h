// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QSizeF>
#include <Qt>

class MLayout;
class QGraphicsLayoutItem;

/// Says where the items of an MLayout go. Belongs to its layout.
class MAbstractLayoutPolicy {
public:
    /// Becomes the policy of @p layout.
    explicit MAbstractLayoutPolicy(MLayout *layout);
    virtual ~MAbstractLayoutPolicy();

    /// Adds @p item at the end. Null and items that are already there are left alone.
    void addItem(QGraphicsLayoutItem *item);

    /// Lets go of @p item, which stays where it is on the screen and goes back to the caller.
    void removeItem(const QGraphicsLayoutItem *item);

    int count() const;

    /// Null out of range.
    QGraphicsLayoutItem *itemAt(int index) const;

    /// -1 for an item that is not there.
    int indexOf(const QGraphicsLayoutItem *item) const;

    virtual QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const = 0;

    /// Called whenever the layout's geometry or items change.
    virtual void relayout() = 0;

protected:
    MLayout *layout() const { return m_layout; }

    /// Moves an item, at once. @p rect is in the coordinates of the widget that the layout is set on. Out of range
    /// does nothing.
    void setItemGeometry(int index, const QRectF &rect);

    /// The margins of the layout.
    void getContentsMargins(qreal *left, qreal *top, qreal *right, qreal *bottom) const;

private:
    MLayout *m_layout;
};
