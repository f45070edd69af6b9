// SPDX-License-Identifier: MIT
#include "mpannableviewport.h"

#include "mpositionbar.h"
#include "mstyle.h"

#include <QEvent>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QScrollEvent>
#include <QScrollPrepareEvent>

MPannableViewport::MPannableViewport(QGraphicsItem *parent)
    : MWidget(parent)
    , m_bar(new MPositionBar(this))
    , m_tracker(this)
{
    setFlag(ItemClipsChildrenToShape);
    setFiltersChildEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
}

MPannableViewport::~MPannableViewport()
{
    // The items in it that go after this class may still move the focus and have their layout change.
    disconnect(m_focusConnection);
    if (m_content)
        m_content->removeEventFilter(this);
}

void MPannableViewport::setWidget(QGraphicsWidget *widget)
{
    if (widget == m_content)
        return;
    delete m_content;
    m_content = widget;
    m_tracker.stop();
    m_position = 0;
    if (m_content) {
        m_content->setParentItem(this);
        m_content->installEventFilter(this);
        m_content->setPos(0, 0);
        fitContent();
    }
    updateGeometry();
}

qreal MPannableViewport::range() const
{
    return m_content ? qMax<qreal>(0, m_content->size().height() - size().height()) : 0;
}

void MPannableViewport::setPosition(qreal position)
{
    m_tracker.stop();
    showAt(position, 0);
}

void MPannableViewport::showAt(qreal position, qreal overshoot)
{
    m_position = qBound<qreal>(0, position, range());
    if (!m_content)
        return;
    m_content->setPos(0, -m_position - overshoot);
    m_bar->show(rect(), m_content->size().height(), m_position);
}

void MPannableViewport::fitContent()
{
    if (!m_content)
        return;
    const qreal width = size().width();
    const qreal formerRange = range();
    m_content->resize(width, m_content->effectiveSizeHint(Qt::PreferredSize, QSizeF(width, -1)).height());
    // A finger or a flick that is moving the content goes on within the new ends. Otherwise this shows that there is
    // more than is in view.
    if (!m_tracker.adapt() && !qFuzzyCompare(1 + formerRange, 1 + range()))
        showAt(m_position, 0);
}

bool MPannableViewport::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ScrollPrepare:
        prepareScroll(static_cast<QScrollPrepareEvent *>(event));
        return true;
    case QEvent::Scroll:
        scroll(static_cast<QScrollEvent *>(event));
        return true;
    default:
        return MWidget::event(event);
    }
}

void MPannableViewport::prepareScroll(QScrollPrepareEvent *event)
{
    event->setViewportSize(size());
    event->setContentPosRange(QRectF(0, 0, 0, range()));
    event->setContentPos(QPointF(0, m_position));
    event->setAccepted(range() > 0);
}

void MPannableViewport::scroll(const QScrollEvent *event)
{
    showAt(event->contentPos().y(), event->overshootDistance().y());
}

/// The content's layout posts a request to the content whenever what it holds has changed.
bool MPannableViewport::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_content && event->type() == QEvent::LayoutRequest)
        fitContent();
    return MWidget::eventFilter(watched, event);
}

bool MPannableViewport::sceneEventFilter(QGraphicsItem *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::GraphicsSceneMousePress:
    case QEvent::GraphicsSceneMouseDoubleClick:
        return trackPress(static_cast<QGraphicsSceneMouseEvent *>(event));
    case QEvent::GraphicsSceneMouseMove:
        return trackMove(static_cast<QGraphicsSceneMouseEvent *>(event));
    case QEvent::GraphicsSceneMouseRelease:
        m_tracker.release();
        return false;
    case QEvent::UngrabMouse:
        if (!m_hasMouse)
            m_tracker.release();
        return false;
    default:
        return MWidget::sceneEventFilter(watched, event);
    }
}

/// Returns whether the press is used up.
bool MPannableViewport::trackPress(QGraphicsSceneMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_tracker.press(event->scenePos()))
        return false;
    event->accept();
    takeMouse();
    return true;
}

bool MPannableViewport::trackMove(QGraphicsSceneMouseEvent *event)
{
    if (m_tracker.move(event->scenePos()) && !m_hasMouse)
        takeMouse();
    return m_hasMouse;
}

/// Whoever had the mouse is told that it lost it, so a button comes up without a click.
void MPannableViewport::takeMouse()
{
    m_hasMouse = true;
    grabMouse();
}

void MPannableViewport::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    trackPress(event);
    event->accept();
}

void MPannableViewport::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    trackMove(event);
}

void MPannableViewport::mouseReleaseEvent(QGraphicsSceneMouseEvent *)
{
    m_tracker.release();
    if (m_hasMouse)
        ungrabMouse();
}

void MPannableViewport::ungrabMouseEvent(QEvent *event)
{
    MWidget::ungrabMouseEvent(event);
    m_hasMouse = false;
    m_tracker.release();
}

void MPannableViewport::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    if (range() <= 0 || event->orientation() != Qt::Vertical) {
        event->ignore();
        return;
    }
    constexpr qreal notch = 120;
    setPosition(m_position - event->delta() / notch * MStyle::wheelNotchDistance);
    event->accept();
}

void MPannableViewport::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    MWidget::resizeEvent(event);
    fitContent();
}

QVariant MPannableViewport::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemSceneHasChanged) {
        disconnect(m_focusConnection);
        if (scene()) {
            m_focusConnection = connect(scene(), &QGraphicsScene::focusItemChanged, this,
                                        [this](QGraphicsItem *item, QGraphicsItem *, Qt::FocusReason reason) {
                                            if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
                                                reveal(item);
                                        });
        }
    }
    return MWidget::itemChange(change, value);
}

void MPannableViewport::reveal(const QGraphicsItem *item)
{
    if (!item || !m_content || !m_content->isAncestorOf(item))
        return;
    // It may have come just now.
    fitContent();
    if (QGraphicsLayout *layout = m_content->layout())
        layout->activate();
    const QRectF place = item->mapRectToItem(m_content, item->boundingRect())
                             .adjusted(0, -MStyle::revealMargin, 0, MStyle::revealMargin);
    setPosition(
        qBound(place.bottom() - size().height(), m_position, qMax(place.top(), place.bottom() - size().height())));
}

QSizeF MPannableViewport::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MinimumSize)
        return QSizeF(0, 0);
    if (which == Qt::PreferredSize && m_content)
        return m_content->effectiveSizeHint(Qt::PreferredSize, constraint);
    return MWidget::sizeHint(which, constraint);
}
