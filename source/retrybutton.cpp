// SPDX-License-Identifier: MIT
#include "retrybutton.h"

#include "accessiblenames.h"

#include <QPainter>
#include <QtMath>

namespace {

// The picture, in scene pixels around its middle.
constexpr qreal lineWidth = 7;
constexpr QPointF cloudCentre(0, -55);
constexpr QPointF arrowCentre(0, 60);
constexpr qreal discRadius = 40;
constexpr qreal arrowRadius = 19;
constexpr qreal arrowHead = 11;
constexpr int arrowStart = 40; // degrees, against the clock from three o'clock
constexpr int arrowSpan = 290;

constexpr QColor backgroundTop(0, 0, 0);
constexpr QColor backgroundBottom(70, 96, 112);
constexpr QColor ink(233, 239, 243);
constexpr QColor disc(10, 84, 131);
constexpr QColor discDown(39, 140, 194);

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
    gap.setWidth(3 * lineWidth);
    QPainterPath around;
    around.addRect(cloud.boundingRect().adjusted(-lineWidth, -lineWidth, lineWidth, lineWidth));
    painter->save();
    painter->setClipPath(around - gap.createStroke(cut));
    painter->setPen(QPen(ink, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(cloud.simplified());
    painter->restore();
    painter->setPen(QPen(ink, lineWidth, Qt::SolidLine, Qt::RoundCap));
    painter->drawPath(cut);
}

void drawRoundArrow(QPainter *painter, bool down)
{
    painter->setPen(QPen(ink, 2));
    painter->setBrush(down ? discDown : disc);
    painter->drawEllipse(QPointF(), discRadius, discRadius);

    const QRectF circle(-arrowRadius, -arrowRadius, 2 * arrowRadius, 2 * arrowRadius);
    painter->setPen(QPen(ink, 5, Qt::SolidLine, Qt::FlatCap));
    painter->drawArc(circle, arrowStart * 16, arrowSpan * 16);

    // The head sits at the start of the arc and points with the clock.
    const qreal angle = qDegreesToRadians(qreal(arrowStart));
    painter->translate(arrowRadius * qCos(angle), -arrowRadius * qSin(angle));
    painter->rotate(90 - arrowStart);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ink);
    painter->drawPolygon(QPolygonF({{0, -arrowHead}, {arrowHead, 0}, {0, arrowHead}}));
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
    background.setColorAt(0, backgroundTop);
    background.setColorAt(1, backgroundBottom);
    painter->fillRect(rect(), background);

    painter->translate(rect().center() + cloudCentre);
    drawCloud(painter);
    painter->translate(arrowCentre - cloudCentre);
    drawRoundArrow(painter, isDown());
}
