// SPDX-License-Identifier: MIT
#pragma once

#include "finger.h"
#include "mapplicationpage.h"
#include "mapplicationwindow.h"

#include <QElapsedTimer>

/// A window with a page on it, and a finger to play on it with. Positions are scene pixels.
template <typename Page> class StageWith {
public:
    MApplicationWindow window;
    Page page;
    Finger finger;

    explicit StageWith(Finger::Kind kind = Finger::Mouse)
        : finger(&window, kind)
    {
        // One screen pixel a scene pixel, whatever the screen has room for.
        window.resize(480, 814);
        window.show();
        page.appear(&window, MSceneWindow::KeepWhenDone);
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("The window does not become active");
    }

    void put(QGraphicsWidget *widget, const QRectF &place)
    {
        widget->setParentItem(&page);
        widget->setGeometry(place);
    }

    /// At the pace of a hand, which is what flicks are told from; stays down.
    void dragSlowly(const QPointF &from, const QPointF &to)
    {
        constexpr int steps = 10;
        finger.press(from);
        for (int i = 1; i <= steps; ++i) {
            QTest::qWait(5);
            finger.move(from + (to - from) * i / steps);
        }
    }

    /// The same, and lets go. Where the machine held the hand up it was none, and is tried again.
    void flick(const QPointF &from, const QPointF &to)
    {
        QElapsedTimer time;
        do {
            time.start();
            dragSlowly(from, to);
            finger.release();
        } while (time.elapsed() > 200);
    }

    QImage picture() { return window.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    QImage picture(const QGraphicsItem *item)
    {
        const QRectF place = item->sceneBoundingRect();
        return picture().copy(QRect(window.mapFromScene(place.topLeft()), place.size().toSize()));
    }
};

using Stage = StageWith<MApplicationPage>;
