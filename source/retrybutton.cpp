// SPDX-License-Identifier: MIT
#include "retrybutton.h"

#include "accessiblenames.h"

#include <QPainter>
#include <QtMath>

namespace {

// The picture, in scene pixels around its middle.
constexpr qreal K_LINE_WIDTH = 7;
constexpr QPointF K_CLOUD_CENTRE(0, -55);
constexpr QPointF K_ARROW_CENTRE(0, 60);
constexpr qreal K_DISC_RADIUS = 40;
constexpr qreal K_ARROW_RADIUS = 19;
constexpr qreal K_ARROW_HEAD = 11;
constexpr int K_ARROW_START = 40; // degrees, against the clock from three o'clock
constexpr int K_ARROW_SPAN = 290;

constexpr QColor K_TOP(0, 0, 0);
constexpr QColor K_BOTTOM(70, 96, 112);
constexpr QColor K_INK(233, 239, 243);
constexpr QColor K_DISC(10, 84, 131);
constexpr QColor K_DISC_DOWN(39, 140, 194);

void drawCloud(QPainter *painter)
{
    QPainterPath cloud;
    cloud.setFillRule(Qt::WindingFill);
    cloud.addEllipse(QPointF(-32, 8), 30, 30);
    cloud.addEllipse(QPointF(2, -14), 38, 38);
    cloud.addEllipse(QPointF(40, 12), 26, 26);
    cloud.addRect(-32, 8, 72, 30);

    // What cuts it off runs through a gap in its outline.
    QPainterPath cut(QPointF(-54, 48));
    cut.lineTo(58, -50);
    QPainterPathStroker gap;
    gap.setWidth(3 * K_LINE_WIDTH);
    QPainterPath around;
    around.addRect(cloud.boundingRect().adjusted(-K_LINE_WIDTH, -K_LINE_WIDTH, K_LINE_WIDTH, K_LINE_WIDTH));
    painter->save();
    painter->setClipPath(around - gap.createStroke(cut));
    painter->setPen(QPen(K_INK, K_LINE_WIDTH, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(cloud.simplified());
    painter->restore();
    painter->setPen(QPen(K_INK, K_LINE_WIDTH, Qt::SolidLine, Qt::RoundCap));
    painter->drawPath(cut);
}

void drawRoundArrow(QPainter *painter, bool down)
{
    painter->setPen(QPen(K_INK, 2));
    painter->setBrush(down ? K_DISC_DOWN : K_DISC);
    painter->drawEllipse(QPointF(), K_DISC_RADIUS, K_DISC_RADIUS);

    const QRectF circle(-K_ARROW_RADIUS, -K_ARROW_RADIUS, 2 * K_ARROW_RADIUS, 2 * K_ARROW_RADIUS);
    painter->setPen(QPen(K_INK, 5, Qt::SolidLine, Qt::FlatCap));
    painter->drawArc(circle, K_ARROW_START * 16, K_ARROW_SPAN * 16);

    // The head sits at the start of the arc and points with the clock.
    const qreal angle = qDegreesToRadians(qreal(K_ARROW_START));
    painter->save();
    painter->translate(K_ARROW_RADIUS * qCos(angle), -K_ARROW_RADIUS * qSin(angle));
    painter->rotate(90 - K_ARROW_START);
    painter->setPen(Qt::NoPen);
    painter->setBrush(K_INK);
    painter->drawPolygon(QPolygonF({{0, -K_ARROW_HEAD}, {K_ARROW_HEAD, 0}, {0, K_ARROW_HEAD}}));
    painter->restore();
}

} // namespace

RetryButton::RetryButton(QGraphicsItem *parent)
    : MButton(parent)
{
    setAccessibleName(localized(TXT_CONNECTION_ERROR) + QLatin1String(": ") + localized(NAME_TRY_AGAIN));
}

void RetryButton::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    QLinearGradient background(0, 0, 0, size().height());
    background.setColorAt(0, K_TOP);
    background.setColorAt(1, K_BOTTOM);
    painter->fillRect(rect(), background);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect().center() + K_CLOUD_CENTRE);
    drawCloud(painter);
    painter->translate(K_ARROW_CENTRE - K_CLOUD_CENTRE);
    drawRoundArrow(painter, isDown());
    painter->restore();
}
