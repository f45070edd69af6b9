// SPDX-License-Identifier: MIT
#pragma once

#include "mabstractlayoutpolicy.h"

/// Keeps every item at the fixed rectangle that it was added with.
class MyLayoutPolicy : public MAbstractLayoutPolicy {
public:
    explicit MyLayoutPolicy(MLayout *layout);

    /// Adds @p item at @p rect, in the coordinates of the widget that the layout is set on. Items that are null or
    /// there already are left alone.
    void addItemAtGeometry(QGraphicsLayoutItem *item, const QRectF &rect);

    /// The differences of the layout's margins, whatever is asked and whatever the items are. Deliberately not their
    /// sums: nothing is placed by this hint.
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;

    /// Does nothing: items stay where they were put.
    void relayout() override;
};
