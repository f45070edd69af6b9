// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsItem>

/// Shows where the keyboard is: a bright ring between dark edges, so that it stands out from whatever lies on both
/// sides. It is a child of what it is drawn around and lies over it, out of the way of mouse and fingers.
class MFocusRing : public QGraphicsItem {
public:
    explicit MFocusRing(QGraphicsItem *parent);

    /// The ring's own, with its edges.
    static qreal width();

    /// Goes around @p rect, with a little air, and stays inside what clips its parent. @p radius is that of the
    /// corners of @p rect.
    void surround(const QRectF &rect, qreal radius);
    /// Goes along the inside of @p rect, of which it leaves what lies width() further in.
    void line(const QRectF &rect);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

private:
    void place(const QRectF &rect, qreal radius);

    QRectF m_rect; ///< along the middle of the ring
    qreal m_radius = 0;
};
