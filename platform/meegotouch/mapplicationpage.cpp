// SPDX-License-Identifier: MIT
#include "mapplicationpage.h"

#include "mfingergestures.h"

#include <QGestureEvent>

MApplicationPage::MApplicationPage(QGraphicsItem *parent)
    : MSceneWindow(parent)
{
    MFingerGestures::install();
    for (Qt::GestureType type :
         {Qt::TapGesture, Qt::TapAndHoldGesture, Qt::PanGesture, Qt::SwipeGesture, Qt::PinchGesture})
        grabGesture(type);
    setFlag(ItemClipsChildrenToShape); // What lies over the page, like a dialog's veil, ends where the page does.
    setCentralWidget(new QGraphicsWidget);
}

void MApplicationPage::setCentralWidget(QGraphicsWidget *widget)
{
    if (widget == m_centralWidget)
        return;
    delete m_centralWidget;
    m_centralWidget = widget;
    if (!widget)
        return;
    widget->setParentItem(this);
    placeCentralWidget(0);
}

void MApplicationPage::setPannable(bool pannable)
{
    m_pannable = pannable;
    placeCentralWidget(0);
}

void MApplicationPage::setGeometry(const QRectF &rect)
{
    MSceneWindow::setGeometry(rect);
    placeCentralWidget(m_centralWidget ? m_centralWidget->y() : 0);
}

void MApplicationPage::gestureEvent(QGestureEvent *event)
{
    auto *pan = static_cast<QPanGesture *>(event->gesture(Qt::PanGesture));
    if (!m_pannable || !pan || !m_centralWidget) {
        MSceneWindow::gestureEvent(event);
        return;
    }
    const QPointF to = event->mapToGraphicsScene(pan->hotSpot() + pan->offset());
    const QPointF from = event->mapToGraphicsScene(pan->hotSpot() + pan->lastOffset());
    placeCentralWidget(m_centralWidget->y() + (to - from).y());
    event->ignore();
    event->accept(pan);
}

void MApplicationPage::placeCentralWidget(qreal top)
{
    if (!m_centralWidget)
        return;
    QSizeF area = size();
    if (m_pannable)
        area.setHeight(
            qMax(area.height(), m_centralWidget->effectiveSizeHint(Qt::PreferredSize, {area.width(), -1}).height()));
    m_centralWidget->setGeometry(QRectF(QPointF(0, qBound(size().height() - area.height(), top, 0.0)), area));
}
