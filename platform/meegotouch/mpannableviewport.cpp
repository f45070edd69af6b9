#include "mpannableviewport.h"

#include "mwidgetstyle.h"

#include <QEvent>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QScroller>
#include <QScrollerProperties>
#include <QScrollEvent>
#include <QScrollPrepareEvent>

MPannableViewport::MPannableViewport(QGraphicsItem *parent)
    : MWidget(parent)
{
    setFlag(ItemClipsChildrenToShape);
    setFiltersChildEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    m_clock.start();
}

MPannableViewport::~MPannableViewport()
{
    disconnect(m_focusConnection);
}

void MPannableViewport::setWidget(QGraphicsWidget *widget)
{
    if (widget == m_content)
        return;
    delete m_content;
    m_content = widget;
    m_position = 0;
    if (m_content) {
        m_content->setParentItem(this);
        m_content->installEventFilter(this);
        fitContent();
        moveContent(0);
    }
    updateGeometry();
}

qreal MPannableViewport::range() const
{
    return m_content ? qMax<qreal>(0, m_content->size().height() - size().height()) : 0;
}

void MPannableViewport::setPosition(qreal position)
{
    m_position = qBound<qreal>(0, position, range());
    moveContent(-m_position);
}

void MPannableViewport::moveContent(qreal y)
{
    if (m_content)
        m_content->setPos(0, y);
}

void MPannableViewport::fitContent()
{
    if (!m_content)
        return;
    const qreal width = size().width();
    const QSizeF hint = m_content->effectiveSizeHint(Qt::PreferredSize, QSizeF(width, -1));
    const qreal formerRange = range();
    m_content->resize(width, hint.height());
    if (qFuzzyCompare(1 + formerRange, 1 + range()))
        return;
    // A running flick keeps to the new ends by itself; its own position wins.
    QScroller *scroller = QScroller::scroller(this);
    if (scroller->state() == QScroller::Inactive)
        setPosition(m_position);
    else
        scroller->resendPrepareEvent();
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
    if (range() <= 0) {
        event->ignore();
        return;
    }
    event->setViewportSize(size());
    event->setContentPosRange(QRectF(0, 0, 0, range()));
    event->setContentPos(QPointF(0, m_position));
    event->accept();
}

void MPannableViewport::scroll(const QScrollEvent *event)
{
    m_position = qBound<qreal>(0, event->contentPos().y(), range());
    moveContent(-m_position - event->overshootDistance().y());
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
        trackRelease(static_cast<QGraphicsSceneMouseEvent *>(event)->scenePos());
        return false;
    case QEvent::UngrabMouse:
        if (!m_panning)
            trackRelease(m_lastPosition);
        return false;
    default:
        return MWidget::sceneEventFilter(watched, event);
    }
}

/// Returns whether the press is used up: one that stops a flick clicks nothing.
bool MPannableViewport::trackPress(QGraphicsSceneMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    // The press goes through the items under it until one accepts it, and is seen here at each.
    if (m_tracking && m_lastPosition == event->scenePos())
        return m_panning;
    m_lastPosition = event->scenePos();
    m_tracking = true;
    QScroller *scroller = QScroller::scroller(this);
    const bool wasMoving = scroller->state() == QScroller::Scrolling;
    QScrollerProperties properties = scroller->scrollerProperties();
    properties.setScrollMetric(QScrollerProperties::DragStartDistance,
                               MStyle::panStartDistance / scroller->pixelPerMeter().y());
    scroller->setScrollerProperties(properties);
    scroller->handleInput(QScroller::InputPress, mapFromScene(m_lastPosition), m_clock.elapsed());
    if (wasMoving) {
        event->accept();
        takeMouse();
    }
    return wasMoving;
}

bool MPannableViewport::trackMove(QGraphicsSceneMouseEvent *event)
{
    if (!m_tracking)
        return false;
    m_lastPosition = event->scenePos();
    QScroller *scroller = QScroller::scroller(this);
    scroller->handleInput(QScroller::InputMove, mapFromScene(m_lastPosition), m_clock.elapsed());
    if (!m_panning && scroller->state() == QScroller::Dragging)
        takeMouse();
    return m_panning;
}

void MPannableViewport::trackRelease(const QPointF &scenePosition)
{
    if (!m_tracking)
        return;
    m_tracking = false;
    QScroller::scroller(this)->handleInput(QScroller::InputRelease, mapFromScene(scenePosition), m_clock.elapsed());
}

/// The item that had the mouse is told that it lost it, so a button comes up without a click.
void MPannableViewport::takeMouse()
{
    m_panning = true;
    grabMouse();
}

void MPannableViewport::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    event->accept();
    trackPress(event);
}

void MPannableViewport::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    trackMove(event);
}

void MPannableViewport::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    trackRelease(event->scenePos());
    if (m_panning)
        ungrabMouse();
}

void MPannableViewport::ungrabMouseEvent(QEvent *event)
{
    MWidget::ungrabMouseEvent(event);
    m_panning = false;
    trackRelease(m_lastPosition);
}

void MPannableViewport::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    if (range() <= 0 || event->orientation() != Qt::Vertical) {
        event->ignore();
        return;
    }
    QScroller::scroller(this)->stop();
    setPosition(m_position - event->delta() / 120.0 * MStyle::wheelNotchDistance);
    event->accept();
}

void MPannableViewport::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    MWidget::resizeEvent(event);
    fitContent();
    setPosition(m_position);
}

QVariant MPannableViewport::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemSceneHasChanged) {
        disconnect(m_focusConnection);
        if (scene()) {
            m_focusConnection = connect(
                scene(), &QGraphicsScene::focusItemChanged, this,
                [this](QGraphicsItem *item, QGraphicsItem *, Qt::FocusReason reason) { reveal(item, reason); });
        }
    }
    return MWidget::itemChange(change, value);
}

void MPannableViewport::reveal(QGraphicsItem *item, Qt::FocusReason reason)
{
    const bool byKeyboard = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    if (!byKeyboard || !item || !m_content || !m_content->isAncestorOf(item))
        return;
    const QRectF place = item->mapRectToItem(m_content, item->boundingRect());
    const qreal top = place.top() - MStyle::revealMargin;
    const qreal bottom = place.bottom() + MStyle::revealMargin;
    QScroller::scroller(this)->stop();
    setPosition(qMin(top, qMax(m_position, bottom - size().height())));
}

QSizeF MPannableViewport::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MinimumSize)
        return QSizeF(0, 0);
    if (which == Qt::PreferredSize && m_content)
        return m_content->effectiveSizeHint(Qt::PreferredSize, constraint);
    return MWidget::sizeHint(which, constraint);
}
