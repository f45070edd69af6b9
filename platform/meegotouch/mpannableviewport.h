// SPDX-License-Identifier: MIT
#pragma once

#include "mpantracker.h"
#include "mwidget.h"

#include <QMetaObject>
#include <QPointer>

class MPositionBar;
class QScrollEvent;
class QScrollPrepareEvent;

/// A window onto a widget that may be higher than itself. The content gets the viewport's width and the height that
/// it prefers for that width; it is clipped, and panned vertically by dragging or flicking it anywhere, also on the
/// buttons in it, with mouse or finger, by the wheel, and by moving the keyboard focus in it. A press that becomes a
/// drag is taken away from the button that had it, which does not click; nor does one that stops a flick.
class MPannableViewport : public MWidget {
    Q_OBJECT

public:
    explicit MPannableViewport(QGraphicsItem *parent = nullptr);
    ~MPannableViewport() override;

    QGraphicsWidget *widget() const { return m_content; }
    /// Shows @p widget from its top and owns it from now on; the former content is deleted. Null leaves it empty.
    void setWidget(QGraphicsWidget *widget);

    /// How far the content is panned, in scene pixels from its top.
    qreal position() const { return m_position; }
    /// Pans at once; beyond the content's ends it goes to the end.
    void setPosition(qreal position);
    /// Pans as far as it takes to show @p item; ignored for what is not in the content.
    void reveal(const QGraphicsItem *item);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;
    void resizeEvent(QGraphicsSceneResizeEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void ungrabMouseEvent(QEvent *event) override;
    void wheelEvent(QGraphicsSceneWheelEvent *event) override;

private:
    bool trackPress(QGraphicsSceneMouseEvent *event);
    bool trackMove(QGraphicsSceneMouseEvent *event);
    void takeMouse();
    void prepareScroll(QScrollPrepareEvent *event);
    void scroll(const QScrollEvent *event);
    void fitContent();
    void showAt(qreal position, qreal overshoot);
    qreal range() const;

    QPointer<QGraphicsWidget> m_content;
    MPositionBar *m_bar; // a child item
    QMetaObject::Connection m_focusConnection;
    MPanTracker m_tracker;
    qreal m_position = 0;
    bool m_hasMouse = false;
};
