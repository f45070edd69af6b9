// SPDX-License-Identifier: MIT
#pragma once

#include "mscenewindow.h"

/// A page: fills the window, holds a central widget, and hears of gestures anywhere on it.
///
/// One finger or the mouse suffices for Qt::TapGesture and Qt::PanGesture; they reach gestureEvent() also when they
/// happen on a child that uses the same presses and moves for itself. Nothing here depends on event(), which a
/// subclass may swallow.
class MApplicationPage : public MSceneWindow {
    Q_OBJECT

public:
    explicit MApplicationPage(QGraphicsItem *parent = nullptr);

    /// The widget that fills the page, which owns it.
    QGraphicsWidget *centralWidget() const { return m_centralWidget; }

    /// Deliberately nothing to do: no page pans. An application may say that it counts on it.
    void setPannable(bool) { }

    void setGeometry(const QRectF &rect) override;

private:
    QGraphicsWidget *m_centralWidget;
};
