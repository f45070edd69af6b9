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
    const auto addFade = [this](int duration, qreal from, qreal to) {
        auto *fade = new QPropertyAnimation(this, "opacity");
        fade->setDuration(duration);
        fade->setStartValue(from);
        fade->setEndValue(to);
        m_fade.addAnimation(fade);
    };
    addFade(MStyle::positionBarFadeInDuration, 0, 1);
    m_fade.addPause(MStyle::positionBarHoldDuration);
    addFade(MStyle::positionBarFadeOutDuration, 1, 0);
    connect(&m_fade, &QAbstractAnimation::finished, this, [this] { hide(); });
}

void MPositionBar::show(const QRectF &view, qreal contentHeight, qreal position)
{
    constexpr qreal rounding = 2; // of a page's height, which its engine knows in pixels of the page
    if (contentHeight < view.height() + rounding) {
        m_fade.stop();
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
    if (!isVisible() || m_fade.state() == QAbstractAnimation::Stopped) {
        setOpacity(0);
        QGraphicsObject::show();
        m_fade.start();
    } else if (m_fade.currentTime() > MStyle::positionBarFadeInDuration) {
        m_fade.setCurrentTime(MStyle::positionBarFadeInDuration);
        setOpacity(1);
    }
}

void MPositionBar::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setPen(QPen(MStyle::positionBarRim, 1));
    painter->setBrush(MStyle::positionBar);
    painter->drawRoundedRect(m_bar.adjusted(0.5, 0.5, -0.5, -0.5), m_bar.width() / 2, m_bar.width() / 2);
}
