// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsWidget>

class QGestureEvent;

/// The base of every widget: a graphics widget that hears of gestures.
///
/// Gestures that the widget grabbed reach gestureEvent() on a way of their own, so that a subclass may do with its
/// event() whatever it likes.
class MWidget : public QGraphicsWidget {
    Q_OBJECT

public:
    explicit MWidget(QGraphicsItem *parent = nullptr);

protected:
    /// Called with the gestures that were grabbed with grabGesture(), started on this widget or on one of its
    /// children. This implementation ignores them all, which leaves them to whoever lies beneath.
    virtual void gestureEvent(QGestureEvent *event);

private:
    friend class MGestureFilter;
};
