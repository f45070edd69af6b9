// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsObject>
#include <QPoint>
#include <QPointer>

#include <limits>

class QEvent;
class QGraphicsView;

/// Implemented by an item that shows one thing after another in the same place, as a web view shows pages.
class MChangingContent {
public:
    virtual ~MChangingContent() = default;
    /// Another number for everything that it shows.
    virtual int contentNumber() const = 0;
};

/// Keeps the second tap of a double tap from acting on something that was not there at the first.
///
/// A press of the mouse or of a finger that follows another within the time and the distance of a double click counts
/// only for the control that the first was for; and a panel has to be fully visible before it can be pressed. What
/// counts is when the finger went down, not when the program came to it. Presses elsewhere, later ones, and quick ones
/// on one and the same control all count.
class MDoubleTapGuard {
public:
    explicit MDoubleTapGuard(const QGraphicsView *view)
        : m_view(view)
    {
    }

    /// Whether @p event, on its way to the view's viewport, must not arrive. To be asked once for every event.
    bool refuses(QEvent *event);

private:
    /// What one presses: an item, with what it shows at the time.
    struct Control {
        QPointer<QGraphicsObject> item;
        int content = 0;
        bool isAppearing = false;
    };

    Control controlAt(const QPoint &position) const;
    bool refusesPress(const QPoint &position, quint64 time);

    const QGraphicsView *m_view;
    Control m_control; ///< the last press that counted was for this one
    QPoint m_position; ///< of the last press, counted or not, in the viewport
    quint64 m_time = std::numeric_limits<quint64>::max(); ///< of the last press, counted or not, in milliseconds
    bool m_refusesTouch = false; ///< the touch under way
};
