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

    /// The widget that fills the page; the page makes an empty one of its own at the start.
    QGraphicsWidget *centralWidget() const { return m_centralWidget; }

    /// Puts @p widget in the place of the central widget, which is destroyed. The page owns it. Null leaves the page
    /// empty.
    void setCentralWidget(QGraphicsWidget *widget);

    /// Whether a drag moves a central widget that is higher than the page (its preferred height). True at the start.
    void setPannable(bool pannable);

    void setGeometry(const QRectF &rect) override;

protected:
    void gestureEvent(QGestureEvent *event) override;

private:
    void placeCentralWidget(qreal top);

    QPointer<QGraphicsWidget> m_centralWidget;
    bool m_pannable = true;
};
