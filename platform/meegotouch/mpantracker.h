// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QPointF>

class QObject;

/// Turns the presses and moves of one pointer into panning by Qt's scroller. Positions are scene pixels.
///
/// The target answers QScrollPrepareEvent and QScrollEvent.
class MPanTracker {
public:
    explicit MPanTracker(QObject *target);

    /// Returns whether the press stopped a running flick. A press already seen is not taken for another.
    bool press(const QPointF &position);
    /// Returns whether the target is being panned.
    bool move(const QPointF &position);
    /// Lets go where the pointer was last; the target may go on by itself.
    void release();

    /// Ends a flick where it is.
    void stop();
    /// To be called when the target's measures have changed. Returns whether it is being panned or flicked.
    bool adapt();

    bool isTracking() const { return m_tracking; }

private:
    QObject *m_target;
    QElapsedTimer m_clock;
    QPointF m_position;
    bool m_tracking = false;
};
