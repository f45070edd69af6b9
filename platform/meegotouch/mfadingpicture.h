// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsObject>
#include <QPixmap>
#include <QPropertyAnimation>

class QGraphicsView;

/// What is left to be seen of an item that has just gone: a picture that fades and then destroys itself.
///
/// The item itself is out of the way at once, so nothing has to know of a state between there and gone, and a tap goes
/// through to what lies beneath.
class MFadingPicture : public QGraphicsObject {
    Q_OBJECT

public:
    /// Leaves a picture of the visible @p item and its children, as @p view shows them, in the item's place. It
    /// belongs to the scene.
    static void leave(QGraphicsItem *item, const QGraphicsView *view);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

private:
    MFadingPicture(const QPixmap &picture, const QRectF &area);

    QPixmap m_picture;
    QRectF m_area;
    QPropertyAnimation m_fade;
};
