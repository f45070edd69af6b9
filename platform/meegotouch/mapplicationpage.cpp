// SPDX-License-Identifier: MIT
#include "mapplicationpage.h"

#include "mfingergestures.h"

MApplicationPage::MApplicationPage(QGraphicsItem *parent)
    : MSceneWindow(parent)
    , m_centralWidget(new QGraphicsWidget(this))
{
    MFingerGestures::install();
    for (Qt::GestureType type :
         {Qt::TapGesture, Qt::TapAndHoldGesture, Qt::PanGesture, Qt::SwipeGesture, Qt::PinchGesture})
        grabGesture(type);
    setFlag(ItemClipsChildrenToShape); // What lies over the page, like a dialog's veil, ends where the page does.
}

void MApplicationPage::setGeometry(const QRectF &rect)
{
    MSceneWindow::setGeometry(rect);
    m_centralWidget->setGeometry(QRectF(QPointF(), size()));
}
