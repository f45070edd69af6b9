// SPDX-License-Identifier: MIT
#pragma once

#include "testing.h"

#include <QGraphicsItem>
#include <QGraphicsView>
#include <QMouseEvent>
#include <QWheelEvent>

/// A finger, or the mouse, on what a view shows. Positions are scene pixels; the events go the way of real ones, in at
/// the viewport.
class Finger {
public:
    enum Kind { Mouse, Touch };

    explicit Finger(QGraphicsView *view, Kind kind = Mouse)
        : m_view(view)
        , m_kind(kind)
    {
    }

    void press(const QPointF &position)
    {
        m_at = onScreen(position);
        if (m_kind == Mouse)
            QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, m_at);
        else
            QTest::touchEvent(m_view->viewport(), device()).press(0, m_at, m_view->viewport());
    }

    /// As the second press of the mouse's double click.
    void pressAgain(const QPointF &position)
    {
        m_at = onScreen(position);
        QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, m_at);
    }

    void move(const QPointF &position)
    {
        m_at = onScreen(position);
        if (m_kind == Mouse) {
            // QTest::mouseMove() moves with no button held.
            QMouseEvent event(QEvent::MouseMove, m_at, m_view->viewport()->mapToGlobal(m_at), Qt::NoButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(m_view->viewport(), &event);
        } else {
            QTest::touchEvent(m_view->viewport(), device()).move(0, m_at, m_view->viewport());
        }
    }

    void release()
    {
        if (m_kind == Mouse)
            QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, m_at);
        else
            QTest::touchEvent(m_view->viewport(), device()).release(0, m_at, m_view->viewport());
    }

    void tap(const QPointF &position)
    {
        press(position);
        release();
    }

    void tap(const QGraphicsItem *item) { tap(item->sceneBoundingRect().center()); }

    void drag(const QPointF &from, const QPointF &to, int steps = 4)
    {
        press(from);
        for (int i = 1; i <= steps; ++i) {
            // A hand takes its time: to a scroller all moves of one millisecond are none.
            QTest::qWait(2);
            move(from + (to - from) * i / steps);
        }
        release();
    }

    /// Whether it was taken.
    bool wheel(const QPointF &position, qreal notches)
    {
        const QPointF at = onScreen(position);
        QWheelEvent event(at, m_view->viewport()->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, qRound(120 * notches)),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        return QCoreApplication::sendEvent(m_view->viewport(), &event) && event.isAccepted();
    }

    static decltype(QTest::createTouchDevice()) device()
    {
        static auto *touchScreen = QTest::createTouchDevice();
        return touchScreen;
    }

private:
    QPoint onScreen(const QPointF &position) const { return m_view->mapFromScene(position); }

    QGraphicsView *m_view;
    Kind m_kind;
    QPoint m_at;
};

Q_DECLARE_METATYPE(Finger::Kind)

/// Those of @p items that are of that type.
template <typename Type> QVector<Type *> only(const QList<QGraphicsItem *> &items)
{
    QVector<Type *> found;
    for (QGraphicsItem *item : items) {
        if (auto *typed = dynamic_cast<Type *>(item))
            found << typed;
    }
    return found;
}

/// The rows of a test that has to hold for both.
inline void addFingerKinds()
{
    QTest::addColumn<Finger::Kind>("kind");
    QTest::newRow("mouse") << Finger::Mouse;
    QTest::newRow("touch") << Finger::Touch;
}
