// SPDX-License-Identifier: MIT
#include "mtouch.h"

QVector<MTouchPoint> touchPointsOf(const QTouchEvent &event)
{
    QVector<MTouchPoint> result;
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QList<QTouchEvent::TouchPoint> &points = event.touchPoints();
    for (const QTouchEvent::TouchPoint &point : points)
        result.append({point.id(), point.state(), point.pos(), point.screenPos()});
#else
    const QList<QEventPoint> &points = event.points();
    for (const QEventPoint &point : points)
        result.append({point.id(), Qt::TouchPointState(point.state()), point.position(), point.globalPosition()});
#endif
    return result;
}
