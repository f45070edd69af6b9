// SPDX-License-Identifier: MIT
#include "mprogressindicator.h"

#include "mstyle.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QTimerEvent>

#include <cmath>

MProgressIndicator::MProgressIndicator(QGraphicsItem *parent)
    : MWidget(parent)
{
    setAcceptedMouseButtons(Qt::NoButton);
    m_clock.start();
}

void MProgressIndicator::setUnknownDuration(bool unknown)
{
    m_unknownDuration = unknown;
    startOrStop();
    update();
}

void MProgressIndicator::startOrStop()
{
    if (!m_unknownDuration || !isVisible() || !scene()) {
        m_timer.stop();
    } else if (!m_timer.isActive()) {
        m_paintedSinceTick = true;
        m_timer.start(MStyle::spinnerFrameDuration, Qt::PreciseTimer, this);
    }
}

QVariant MProgressIndicator::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemVisibleHasChanged || change == ItemSceneHasChanged)
        startOrStop();
    return MWidget::itemChange(change, value);
}

void MProgressIndicator::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId()) {
        MWidget::timerEvent(event);
        return;
    }
    // Nobody looks (the window is minimised, say): the next paint() starts it again.
    if (!m_paintedSinceTick)
        m_timer.stop();
    m_paintedSinceTick = false;
    update();
}

void MProgressIndicator::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    m_paintedSinceTick = true;
    startOrStop();
    const qreal side = qMin(size().width(), size().height());
    painter->translate(rect().center());
    painter->setPen(QPen(MStyle::spinnerPlateRim, 1));
    painter->setBrush(MStyle::spinnerPlate);
    const qreal plate = side / 2 - 0.5;
    painter->drawRoundedRect(QRectF(-plate, -plate, 2 * plate, 2 * plate), side / 6, side / 6);
    const qreal turn
        = m_unknownDuration ? qreal(m_clock.elapsed() % MStyle::spinnerTurnDuration) / MStyle::spinnerTurnDuration : 0;
    painter->setPen(Qt::NoPen);
    for (int i = 0; i < MStyle::spinnerDots; ++i) {
        const qreal place = qreal(i) / MStyle::spinnerDots;
        // 1 right behind the head of the comet, falling to 0 at the end of its tail.
        const qreal brightness = 1 - (turn - place - std::floor(turn - place));
        QColor dot = MStyle::spinnerDot;
        dot.setAlphaF(0.15 + 0.85 * brightness * brightness);
        painter->setBrush(dot);
        painter->save();
        painter->rotate(360 * place);
        const qreal radius = side * (0.035 + 0.02 * brightness);
        painter->drawEllipse(QPointF(0, -side * 0.32), radius, radius);
        painter->restore();
    }
}

QSizeF MProgressIndicator::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MinimumSize)
        return QSizeF(0, 0);
    if (which == Qt::PreferredSize)
        return QSizeF(MStyle::spinnerSize, MStyle::spinnerSize);
    return MWidget::sizeHint(which, constraint);
}
