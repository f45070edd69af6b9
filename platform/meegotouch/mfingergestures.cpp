// SPDX-License-Identifier: MIT
#include "mfingergestures.h"

#include "mstyle.h"
#include "mtouch.h"

#include <QApplication>
#include <QGesture>
#include <QGestureRecognizer>
#include <QGraphicsObject>
#include <QGraphicsSceneMouseEvent>
#include <QTouchEvent>

#include <optional>

namespace {

// The recognisers take what is for a graphics widget only. The viewport grabs the gestures, too, for its scene, but
// what it sees comes again to the widget that it is for.

enum class Phase { Down, Move, Up, Cancel };

struct Finger {
    Phase phase;
    QPointF position; // on the screen
};

std::optional<Finger> fingerOf(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::GraphicsSceneMousePress:
    case QEvent::GraphicsSceneMouseDoubleClick:
    case QEvent::GraphicsSceneMouseRelease: {
        const auto *mouse = static_cast<const QGraphicsSceneMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton)
            return std::nullopt;
        const bool up = event->type() == QEvent::GraphicsSceneMouseRelease;
        return Finger{up ? Phase::Up : Phase::Down, mouse->screenPos()};
    }
    case QEvent::GraphicsSceneMouseMove:
        return Finger{Phase::Move, static_cast<const QGraphicsSceneMouseEvent *>(event)->screenPos()};
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd: {
        const auto *touch = static_cast<const QTouchEvent *>(event);
        const QVector<MTouchPoint> points = touchPointsOf(*touch);
        if (points.size() != 1)
            return Finger{Phase::Cancel, {}};
        const Phase phase = event->type() == QEvent::TouchBegin ? Phase::Down
            : event->type() == QEvent::TouchEnd                 ? Phase::Up
                                                                : Phase::Move;
        return Finger{phase, points.first().screenPosition};
    }
    case QEvent::TouchCancel:
    case QEvent::UngrabMouse:
        return Finger{Phase::Cancel, {}};
    default:
        return std::nullopt;
    }
}

bool isFar(const QPointF &offset)
{
    return offset.manhattanLength() > MStyle::dragThreshold;
}

// The start of a touch or press, kept with the gesture that it may become.
void setStart(QGesture *gesture, const std::optional<QPointF> &start)
{
    gesture->setProperty("start", start ? QVariant(*start) : QVariant());
}

std::optional<QPointF> startOf(const QGesture *gesture)
{
    const QVariant start = gesture->property("start");
    return start.isValid() ? std::optional(start.toPointF()) : std::nullopt;
}

// By the mouse or one finger.
class TapRecognizer : public QGestureRecognizer {
public:
    QGesture *create(QObject *) override { return new QTapGesture; }

    Result recognize(QGesture *gesture, QObject *watched, QEvent *event) override
    {
        const auto finger = fingerOf(event);
        if (!finger || watched->isWidgetType())
            return Ignore;
        const auto start = startOf(gesture);
        switch (finger->phase) {
        case Phase::Down:
            setStart(gesture, finger->position);
            return MayBeGesture;
        case Phase::Move:
            if (!start)
                return Ignore;
            return isFar(finger->position - *start) ? CancelGesture : MayBeGesture;
        case Phase::Up:
            if (!start || isFar(finger->position - *start))
                return CancelGesture;
            gesture->setHotSpot(*start);
            return FinishGesture;
        case Phase::Cancel:
            break;
        }
        return CancelGesture;
    }

    void reset(QGesture *gesture) override
    {
        setStart(gesture, std::nullopt);
        QGestureRecognizer::reset(gesture);
    }
};

// By the mouse or one finger; by two is Qt's own.
class PanRecognizer : public QGestureRecognizer {
public:
    QGesture *create(QObject *) override { return new QPanGesture; }

    Result recognize(QGesture *gesture, QObject *watched, QEvent *event) override
    {
        const auto finger = fingerOf(event);
        if (!finger || watched->isWidgetType())
            return Ignore;
        const auto start = startOf(gesture);
        const bool panning = gesture->state() == Qt::GestureStarted || gesture->state() == Qt::GestureUpdated;
        switch (finger->phase) {
        case Phase::Down:
            setStart(gesture, finger->position);
            return MayBeGesture;
        case Phase::Move:
            if (!start)
                return Ignore;
            if (!panning && !isFar(finger->position - *start))
                return MayBeGesture;
            gesture->setHotSpot(*start);
            return TriggerGesture;
        case Phase::Up:
            // So fast a flick that nothing was heard between its ends is a pan, too.
            if (!start || (!panning && !isFar(finger->position - *start)))
                return CancelGesture;
            gesture->setHotSpot(*start);
            return FinishGesture;
        case Phase::Cancel:
            break;
        }
        return CancelGesture;
    }

    void reset(QGesture *gesture) override
    {
        setStart(gesture, std::nullopt);
        QGestureRecognizer::reset(gesture);
    }
};

} // namespace

void MFingerGestures::install()
{
    // Once for each application object: the recognisers go with it.
    constexpr char mark[] = "MFingerGestures";
    if (!qApp || qApp->property(mark).toBool())
        return;
    qApp->setProperty(mark, true);
    QGestureRecognizer::registerRecognizer(new TapRecognizer);
    QGestureRecognizer::registerRecognizer(new PanRecognizer);
}
