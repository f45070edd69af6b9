// SPDX-License-Identifier: MIT
#include "mpantracker.h"

#include "mstyle.h"

#include <QScroller>
#include <QScrollerProperties>

MPanTracker::MPanTracker(QObject *target)
    : m_target(target)
{
    m_clock.start();
}

bool MPanTracker::press(const QPointF &position)
{
    if (m_tracking && position == m_position)
        return false;
    m_tracking = true;
    m_position = position;
    QScroller *scroller = QScroller::scroller(m_target);
    const bool wasMoving = scroller->state() == QScroller::Scrolling;
    // The scroller reckons in metres; the same way in scene pixels shall start a drag however large the scene is shown.
    QScrollerProperties properties = scroller->scrollerProperties();
    properties.setScrollMetric(QScrollerProperties::DragStartDistance,
                               MStyle::dragThreshold / scroller->pixelPerMeter().y());
    scroller->setScrollerProperties(properties);
    scroller->handleInput(QScroller::InputPress, position, m_clock.elapsed());
    return wasMoving;
}

bool MPanTracker::move(const QPointF &position)
{
    if (!m_tracking)
        return false;
    m_position = position;
    QScroller *scroller = QScroller::scroller(m_target);
    scroller->handleInput(QScroller::InputMove, position, m_clock.elapsed());
    return scroller->state() == QScroller::Dragging;
}

void MPanTracker::release()
{
    if (!m_tracking)
        return;
    m_tracking = false;
    QScroller::scroller(m_target)->handleInput(QScroller::InputRelease, m_position, m_clock.elapsed());
}

void MPanTracker::stop()
{
    if (QScroller::hasScroller(m_target))
        QScroller::scroller(m_target)->stop();
}

bool MPanTracker::adapt()
{
    if (!QScroller::hasScroller(m_target) || QScroller::scroller(m_target)->state() == QScroller::Inactive)
        return false;
    QScroller::scroller(m_target)->resendPrepareEvent();
    return true;
}
