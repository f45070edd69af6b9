// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QTouchEvent>
#include <QVector>

/// One finger of a touch event, the same with each release of Qt that is built with.
struct MTouchPoint {
    int id;
    Qt::TouchPointState state;
    QPointF position; ///< in the coordinates of what receives the event
    QPointF screenPosition;
};

/// The fingers of @p event, the first one first.
QVector<MTouchPoint> touchPointsOf(const QTouchEvent &event);
