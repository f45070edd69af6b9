// SPDX-License-Identifier: MIT
#include "mfadingpicture.h"

#include "mstyle.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QPropertyAnimation>
#include <QStyleOptionGraphicsItem>

namespace {

void paintTree(QPainter *painter, QGraphicsItem *item, const QTransform &sceneToPicture)
{
    if (!item->isVisible())
        return;
    painter->save();
    painter->setTransform(item->sceneTransform() * sceneToPicture);
    painter->setOpacity(item->opacity() * painter->opacity());
    if (item->flags() & (QGraphicsItem::ItemClipsToShape | QGraphicsItem::ItemClipsChildrenToShape))
        painter->setClipPath(item->shape(), Qt::IntersectClip);

    const QList<QGraphicsItem *> children = item->childItems();
    const auto isBehind
        = [](const QGraphicsItem *child) { return bool(child->flags() & QGraphicsItem::ItemStacksBehindParent); };
    for (QGraphicsItem *child : children) {
        if (isBehind(child))
            paintTree(painter, child, sceneToPicture);
    }
    QStyleOptionGraphicsItem option;
    option.rect = item->boundingRect().toAlignedRect();
    option.exposedRect = item->boundingRect();
    painter->save();
    item->paint(painter, &option, nullptr);
    painter->restore();
    for (QGraphicsItem *child : children) {
        if (!isBehind(child))
            paintTree(painter, child, sceneToPicture);
    }
    painter->restore();
}

} // namespace

MFadingPicture::MFadingPicture(const QPixmap &picture, const QRectF &area)
    : m_picture(picture)
    , m_area(area)
    , m_fade(this, "opacity")
{
    setAcceptedMouseButtons(Qt::NoButton);
    m_fade.setDuration(MStyle::fadeOutDuration);
    m_fade.setEndValue(0.0);
    connect(&m_fade, &QAbstractAnimation::finished, this, &QObject::deleteLater);
}

void MFadingPicture::leave(QGraphicsItem *item, const QGraphicsView *view)
{
    const QRectF area = item->sceneBoundingRect();
    const qreal ratio = view->devicePixelRatioF();
    const QTransform scale = view->transform() * QTransform::fromScale(ratio, ratio);
    QPixmap picture(scale.mapRect(area).size().toSize());
    if (picture.isNull())
        return;
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHints(view->renderHints());
    const qreal opacity = item->opacity();
    item->setOpacity(1);
    paintTree(&painter, item, QTransform::fromTranslate(-area.x(), -area.y()) * scale);
    painter.end();

    auto *left = new MFadingPicture(picture, area);
    left->setZValue(item->zValue());
    left->setOpacity(opacity);
    item->scene()->addItem(left);
    left->m_fade.start();
}

QRectF MFadingPicture::boundingRect() const
{
    return m_area;
}

void MFadingPicture::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->drawPixmap(m_area, m_picture, m_picture.rect());
}
