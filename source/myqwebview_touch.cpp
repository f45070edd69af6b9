// SPDX-License-Identifier: MIT
#include "myqwebview.h"

#include "mtouch.h"

#include <QGraphicsSceneMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QTouchEvent>

#include <algorithm>
#include <cstdlib>

namespace {

// Pixels that the pointer must move, on either axis, to be dragging.
constexpr int dragThreshold = 30;
constexpr int flingInterval = 50; // milliseconds
constexpr int flingTicksMax = 20;

// Item coordinates of the last press or of the last move that scrolled.
int last_x;
int last_y;
// The last step of the drag; while coasting, the pixels a tick. A drag that begins while the page coasts steers the
// coasting with its own steps: sharing the two is deliberate.
int dx;
int dy;
// Smoothed velocity of the drag, with which the coasting starts.
int accel_x;
int accel_y;
bool isDrag;
// Ticks since the coasting started. Counts on when one fling takes over from another, deliberately.
int scrollCount;
QPointer<QTimer> timer;

/// Calls @p handle with the mouse event of @p type for @p position (item coordinates of @p item).
template <typename Handler>
void withMouseEvent(QEvent::Type type, const QGraphicsItem &item, const QPointF &position, const QPoint &screenPosition,
                    Qt::KeyboardModifiers modifiers, Handler handle)
{
    QGraphicsSceneMouseEvent event(type);
    event.setPos(position);
    event.setScenePos(item.mapToScene(position));
    event.setScreenPos(screenPosition);
    event.setModifiers(modifiers);
    if (type != QEvent::GraphicsSceneMouseMove)
        event.setButton(Qt::LeftButton);
    if (type != QEvent::GraphicsSceneMouseRelease)
        event.setButtons(Qt::LeftButton);
    handle(&event);
}

} // namespace

void MyQWebView::initDrag()
{
    last_x = -999;
    last_y = -999;
    isDrag = false;
    scrollCount = 0;
    timer = new QTimer(this);
    timer->setInterval(flingInterval);
    connect(timer, &QTimer::timeout, this, &MyQWebView::updateScroll);
}

void MyQWebView::forgetDrag()
{
    isDrag = false;
}

void MyQWebView::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    last_x = static_cast<int>(event->pos().x());
    last_y = static_cast<int>(event->pos().y());
    accel_x = 0;
    accel_y = 0;
    if (m_isEditable) {
        m_isFocusInside = true; // Wherever it hits: Backtab has to look there.
        QGraphicsWebView::mousePressEvent(event);
    }
}

void MyQWebView::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    const int x = static_cast<int>(event->pos().x());
    const int y = static_cast<int>(event->pos().y());
    dx = x - last_x;
    dy = y - last_y;
    if (std::abs(dx) >= dragThreshold || std::abs(dy) >= dragThreshold)
        isDrag = true;
    else if (!isDrag)
        return;
    scrollPage(-dx, -dy);
    accel_x = (3 * (dx + accel_x)) / 4;
    accel_y = (3 * (dy + accel_y)) / 4;
    last_x = x;
    last_y = y;
}

void MyQWebView::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointer<MyQWebView> self(this);
    if (m_isEditable && !isDrag)
        QGraphicsWebView::mouseReleaseEvent(event);
    if (!self)
        return;
    if (isDrag) {
        dx = accel_x;
        dy = accel_y;
        if (timer)
            timer->start();
    }
    isDrag = false;
}

void MyQWebView::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    // The second of two quick taps is a press like any other; the page would select the word under it.
    withMouseEvent(QEvent::GraphicsSceneMousePress, *this, event->pos(), event->screenPos(), event->modifiers(),
                   [this](QGraphicsSceneMouseEvent *press) { mousePressEvent(press); });
}

void MyQWebView::updateScroll()
{
    ++scrollCount;
    dx = (dx * 8) / 10;
    dy = (dy * 8) / 10;
    scrollPage(-dx, -dy);
    if ((dx == 0 && dy == 0) || scrollCount >= flingTicksMax) {
        scrollCount = 0;
        dx = 0;
        dy = 0;
        if (timer)
            timer->stop();
    }
}

/// A touch goes to the page's scripts as such; unless these keep it for themselves, it also does what the mouse does.
void MyQWebView::touchEvent(QTouchEvent *event)
{
    const QPointer<MyQWebView> self(this);
    const bool isTaken = m_isEditable && QGraphicsWebView::sceneEvent(event);
    event->accept();
    if (!self)
        return;
    if (event->type() == QEvent::TouchBegin)
        m_isTouchTaken = isTaken;
    if (!m_isTouchTaken)
        followFinger(event);
}

void MyQWebView::followFinger(const QTouchEvent *event)
{
    const QVector<MTouchPoint> points = touchPointsOf(*event);
    if (event->type() == QEvent::TouchBegin && !points.isEmpty()) {
        m_finger = points.first().id;
        // The drag of a touch that was cancelled: a scene tells its items nothing of that.
        isDrag = false;
    }
    const auto point
        = std::find_if(points.begin(), points.end(), [this](const MTouchPoint &p) { return m_finger == p.id; });
    if (point == points.end())
        return;
    const auto send = [&](QEvent::Type type) {
        withMouseEvent(type, *this, point->position, point->screenPosition.toPoint(), event->modifiers(),
                       [this](QGraphicsSceneMouseEvent *mouse) { QGraphicsWebView::sceneEvent(mouse); });
    };
    if (point->state == Qt::TouchPointPressed) {
        send(QEvent::GraphicsSceneMousePress);
    } else if (point->state == Qt::TouchPointMoved) {
        send(QEvent::GraphicsSceneMouseMove);
    } else if (point->state == Qt::TouchPointReleased) {
        m_finger.reset();
        send(QEvent::GraphicsSceneMouseRelease);
    }
}
