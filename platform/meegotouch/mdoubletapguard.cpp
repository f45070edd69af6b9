// SPDX-License-Identifier: MIT
#include "mdoubletapguard.h"

#include "mtouch.h"

#include <QGraphicsView>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <QTouchEvent>

#include <algorithm>
#include <cstdlib>

namespace {

// A hand is less steady than Qt expects of a double click, and a finger is less so than a mouse.
int doubleTapDistance()
{
    const QStyleHints *hints = QGuiApplication::styleHints();
    return std::max({hints->mouseDoubleClickDistance(), hints->touchDoubleTapDistance(), hints->startDragDistance()});
}

} // namespace

bool MDoubleTapGuard::refuses(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto *mouse = static_cast<const QMouseEvent *>(event);
        // What Qt makes out of a touch has been judged as a touch.
        return mouse->source() != Qt::MouseEventSynthesizedByQt && refusesPress(mouse->pos(), mouse->timestamp());
    }
    case QEvent::TouchBegin: {
        const auto *touch = static_cast<const QTouchEvent *>(event);
        m_refusesTouch = refusesPress(touchPointsOf(*touch).first().position.toPoint(), touch->timestamp());
        break;
    }
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        break;
    default:
        return false;
    }
    return m_refusesTouch;
}

MDoubleTapGuard::Control MDoubleTapGuard::controlAt(const QPoint &position) const
{
    const QList<QGraphicsItem *> items = m_view->items(position);
    const auto pressed = std::find_if(items.begin(), items.end(), [](const QGraphicsItem *item) {
        return item->acceptedMouseButtons() != Qt::NoButton;
    });
    if (pressed == items.end())
        return {};
    QGraphicsItem *const item = *pressed;
    Control control;
    control.item = item->toGraphicsObject() ? item->toGraphicsObject() : item->parentObject();
    for (const QGraphicsItem *outer = item; outer; outer = outer->parentItem()) {
        if (const auto *changing = dynamic_cast<const MChangingContent *>(outer))
            control.content = changing->contentNumber();
    }
    control.isAppearing = item->panel() && item->panel()->opacity() < 1;
    return control;
}

bool MDoubleTapGuard::refusesPress(const QPoint &position, quint64 time)
{
    const Control control = controlAt(position);
    const auto interval = quint64(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    const QPoint distance = position - m_position;
    const bool isSecond = time >= m_time && time - m_time < interval
        && std::max(std::abs(distance.x()), std::abs(distance.y())) <= doubleTapDistance();
    m_position = position;
    m_time = time;
    // The third of a triple tap is judged as the second was: what was pressed first stays.
    if (control.isAppearing || (isSecond && (control.item != m_control.item || control.content != m_control.content)))
        return true;
    m_control = control;
    return false;
}
