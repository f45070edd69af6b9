// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsObject>
#include <QSequentialAnimationGroup>

/// Shows at the right edge of a panned area which part of it is in view; fades in, and away when nothing moves.
/// Takes no input.
class MPositionBar : public QGraphicsObject {
    Q_OBJECT

public:
    explicit MPositionBar(QGraphicsItem *parent);

    /// Lights up for a moment, unless all of the content is in view.
    /// @param view the area in the parent's coordinates, of which the bar takes the right edge
    void show(const QRectF &view, qreal contentHeight, qreal position);

    QRectF boundingRect() const override { return m_bar; }
    QPainterPath shape() const override { return QPainterPath(); }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

private:
    QRectF m_bar;
    QSequentialAnimationGroup m_fade;
};
