// SPDX-License-Identifier: MIT
#include "mpositionbar.h"

#include "mstyle.h"

#include <QPainter>
#include <QPropertyAnimation>

MPositionBar::MPositionBar(QGraphicsItem *parent)
    : QGraphicsObject(parent)
{
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(1);
    hide();
    auto *fading = new QPropertyAnimation(this, "opacity");
    fading->setDuration(MStyle::positionBarFadeDuration);
    fading->setStartValue(1.0);
    fading->setEndValue(0.0);
    m_fade.addPause(MStyle::positionBarHoldDuration);
    m_fade.addAnimation(fading);
    connect(&m_fade, &QAbstractAnimation::finished, this, [this] { hide(); });
}

void MPositionBar::show(const QRectF &view, qreal contentHeight, qreal position)
{
    m_fade.stop();
    if (contentHeight <= view.height()) {
        hide();
        return;
    }
    const QRectF track = view.adjusted(0, MStyle::positionBarMargin, 0, -MStyle::positionBarMargin);
    const qreal length = qBound(qMin(MStyle::positionBarSmallestLength, track.height()),
                                track.height() * view.height() / contentHeight, track.height());
    const qreal part = qBound<qreal>(0, position / (contentHeight - view.height()), 1);
    prepareGeometryChange();
    m_bar = QRectF(track.right() - MStyle::positionBarMargin - MStyle::positionBarWidth,
                   track.top() + part * (track.height() - length), MStyle::positionBarWidth, length);
    setOpacity(1);
    QGraphicsObject::show();
    m_fade.start();
}

void MPositionBar::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(MStyle::positionBarRim, 1));
    painter->setBrush(MStyle::positionBar);
    painter->drawRoundedRect(m_bar.adjusted(0.5, 0.5, -0.5, -0.5), m_bar.width() / 2, m_bar.width() / 2);
}
