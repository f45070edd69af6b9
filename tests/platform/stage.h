#pragma once

#include "mapplicationpage.h"
#include "mapplicationwindow.h"

#include <QMouseEvent>
#include <QTest>
#include <QTouchDevice>

enum class Pointer { Mouse, Touch };
Q_DECLARE_METATYPE(Pointer)

/// A window with a page on it, and a mouse or finger to play on it with. Positions are scene pixels.
class Stage {
public:
    MApplicationWindow window;
    MApplicationPage page;

    Stage()
    {
        window.resize(480, 814); // one screen pixel a scene pixel, whatever the screen has room for
        window.show();
        page.appear(&window, MSceneWindow::KeepWhenDone);
        ready = QTest::qWaitForWindowActive(&window);
    }

    bool ready;
    Pointer pointer = Pointer::Mouse;

    void put(QGraphicsWidget *widget, const QRectF &place)
    {
        widget->setParentItem(&page);
        widget->setGeometry(place);
    }

    void press(const QPointF &position)
    {
        if (pointer == Pointer::Touch)
            QTest::touchEvent(&window, finger()).press(0, toWindow(position), &window);
        else
            QTest::mousePress(window.viewport(), Qt::LeftButton, {}, window.mapFromScene(position));
    }

    void move(const QPointF &position)
    {
        if (pointer == Pointer::Touch) {
            QTest::touchEvent(&window, finger()).move(0, toWindow(position), &window);
            return;
        }
        // QTest::mouseMove() tells of no button.
        const QPoint local = window.mapFromScene(position);
        QMouseEvent event(QEvent::MouseMove, local, window.viewport()->mapToGlobal(local), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(window.viewport(), &event);
    }

    void release(const QPointF &position)
    {
        if (pointer == Pointer::Touch)
            QTest::touchEvent(&window, finger()).release(0, toWindow(position), &window);
        else
            QTest::mouseRelease(window.viewport(), Qt::LeftButton, {}, window.mapFromScene(position));
    }

    void tap(const QPointF &position)
    {
        press(position);
        release(position);
    }

    /// Moves in small steps, as a hand does, and stays down.
    void drag(const QPointF &from, const QPointF &to)
    {
        constexpr int steps = 10;
        press(from);
        for (int i = 1; i <= steps; ++i) {
            QTest::qWait(5);
            move(from + (to - from) * i / steps);
        }
    }

    QImage picture() { return window.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    QImage picture(const QGraphicsItem *item)
    {
        const QRectF place = item->sceneBoundingRect();
        return picture().copy(QRect(window.mapFromScene(place.topLeft()), place.size().toSize()));
    }

private:
    QTouchDevice *finger() const
    {
        static QTouchDevice *device = QTest::createTouchDevice();
        return device;
    }

    QPoint toWindow(const QPointF &position) const
    {
        return window.viewport()->mapTo(&window, window.mapFromScene(position));
    }
};

/// The part of a picture that is not of its @p background.
inline QRect inked(const QImage &picture, const QColor &background)
{
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) != background)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}
