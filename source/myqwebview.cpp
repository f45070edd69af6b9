// SPDX-License-Identifier: MIT
#include "myqwebview.h"

#include "quietpage.h"
#include "retrybutton.h"

#include "mfocusring.h"
#include "mpositionbar.h"

#include <QApplication>
#include <QGraphicsScene>
#include <QGraphicsSceneWheelEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyleOptionGraphicsItem>
#include <QTouchEvent>
#include <QWebFrame>

#include <algorithm>
#include <iterator>

namespace {

constexpr int pixelsPerLine = 40;

/// How far down a key scrolls.
struct ScrollKey {
    int key;
    int lines;
    int screens;
    int pages; ///< as high as all of the page
};

constexpr ScrollKey scrollKeys[] = {
    {Qt::Key_Up, -1, 0, 0},   {Qt::Key_Down, 1, 0, 0},  {Qt::Key_PageUp, 0, -1, 0}, {Qt::Key_PageDown, 0, 1, 0},
    {Qt::Key_Space, 0, 1, 0}, {Qt::Key_Home, 0, 0, -1}, {Qt::Key_End, 0, 0, 1},
};

bool isContextMenu(const QEvent *event)
{
    return event->type() == QEvent::GraphicsSceneContextMenu || event->type() == QEvent::ContextMenu;
}

} // namespace

MyQWebView::MyQWebView()
{
    setPage(new QuietPage(this));
    page()->mainFrame()->setScrollBarPolicy(Qt::Horizontal, Qt::ScrollBarAlwaysOff);
    page()->mainFrame()->setScrollBarPolicy(Qt::Vertical, Qt::ScrollBarAlwaysOff);
    initDrag();
    connect(this, &QGraphicsWebView::loadStarted, this, [this] { showRetry(false); });
    connect(this, &QGraphicsWebView::loadFinished, this, [this](bool ok) {
        if (!m_isEmpty && quietPage()->hasFailed() && page()->mainFrame()->contentsSize().isEmpty()) {
            // Not even the page before is left: the next had begun, or the engine's process has gone.
            m_isEmpty = true;
            m_address = this->url();
        }
        m_isEmpty = m_isEmpty && !ok;
        // What has come of a page that broke off is more than nothing.
        showRetry(m_isEmpty && !m_address.isEmpty() && documentText().trimmed().isEmpty());
    });
    // A page is shown from the first of the two on, or, where scripts are off, from some time before the second.
    const auto countPage = [this] {
        ++m_contentNumber;
        m_isFocusInside = false;
    };
    connect(page()->mainFrame(), &QWebFrame::javaScriptWindowObjectCleared, this, countPage);
    connect(this, &QGraphicsWebView::loadFinished, this, countPage);
    connect(this, &QGraphicsWebView::titleChanged, this,
            [this] { MAccessibility::tell(this, QAccessible::NameChanged); });
}

void MyQWebView::setEditable(bool editable)
{
    m_isEditable = editable;
}

void MyQWebView::setUrl(const QUrl &url)
{
    m_isEmpty = true;
    m_address.clear(); // What stops now is not to be tried again.
    stop();
    m_address = url;
    {
        // The base class lets a parser of the old page's kind finish a page of nothing, and that of pictures takes it
        // for granted that there is a picture. A page of our own in between changes the kind.
        const QSignalBlocker blocker(this);
        setContent(QByteArray(), QStringLiteral("text/html"), url);
    }
    load(url);
}

void MyQWebView::showRetry(bool shown)
{
    if (shown && !m_retry) {
        m_retry = new RetryButton(this);
        m_retry->hide();
        connect(m_retry, &MButton::clicked, this, [this] { setUrl(QUrl(m_address)); });
        connect(this, &QGraphicsWidget::geometryChanged, m_retry, [this] { m_retry->setGeometry(rect()); });
    }
    if (!m_retry || shown == m_retry->isVisibleTo(this))
        return;
    m_retry->setGeometry(rect());
    const bool takesFocus = shown ? hasFocus() || (scene() && !scene()->focusItem()) : m_retry->hasFocus();
    const bool hasRing = shown ? m_focusRing != nullptr : m_retry->hasFocusRing();
    m_retry->setVisible(shown);
    // A finger on the picture is not for the page beneath.
    setAcceptTouchEvents(!shown);
    if (takesFocus)
        (shown ? static_cast<QGraphicsItem *>(m_retry) : this)
            ->setFocus(hasRing ? Qt::TabFocusReason : Qt::OtherFocusReason);
}

void MyQWebView::back()
{
    page()->triggerAction(QWebPage::Back);
}

bool MyQWebView::keepsPage() const
{
    return !m_isEmpty && !quietPage()->hasFailed();
}

QuietPage *MyQWebView::quietPage() const
{
    return static_cast<QuietPage *>(page());
}

QString MyQWebView::documentText() const
{
    return page()->mainFrame()->toPlainText();
}

void MyQWebView::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    // The engine smooths the edges of what it is asked for, and lets its white sheet through there: scaled, they would
    // stay behind as lines. Painting is clipped to what is exposed anyhow.
    QStyleOptionGraphicsItem more(*option);
    more.exposedRect = option->exposedRect.adjusted(-2, -2, 2, 2) & rect();
    QGraphicsWebView::paint(painter, &more, widget);
}

bool MyQWebView::event(QEvent *event)
{
    // The base class would offer it to the page's scripts before any handler sees it.
    return isContextMenu(event) || QGraphicsWebView::event(event);
}

bool MyQWebView::sceneEvent(QEvent *event)
{
    if (isContextMenu(event))
        return true;
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        touchEvent(static_cast<QTouchEvent *>(event));
        return true;
    case QEvent::UngrabMouse:
        // Something took the mouse away before its release: the next tap is not part of this drag.
        forgetDrag();
        return QGraphicsWebView::sceneEvent(event);
    default:
        return QGraphicsWebView::sceneEvent(event);
    }
}

void MyQWebView::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    // The page first, for what scrolls inside it. Sent directly, since the base class hides whether the page took it;
    // the main frame never does, having no scroll bars.
    const QPointer<MyQWebView> self(this);
    page()->event(event);
    if (self && !event->isAccepted()) {
        const int distance = -event->delta() * QApplication::wheelScrollLines() * pixelsPerLine / 120;
        scrollPage(event->orientation() == Qt::Horizontal ? distance : 0,
                   event->orientation() == Qt::Vertical ? distance : 0);
    }
    event->accept();
}

void MyQWebView::keyPressEvent(QKeyEvent *event)
{
    if (m_doArrowsWalk && (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up)) {
        const bool isDown = event->key() == Qt::Key_Down;
        // From the last link round to the first.
        if (!moveFocusInside(isDown))
            moveFocusInside(isDown);
        event->accept();
        return;
    }
    const QPointer<MyQWebView> self(this);
    // Where presses do not reach the page, keys scroll it and no more: Return would follow a link.
    if (m_isEditable)
        QGraphicsWebView::keyPressEvent(event);
    else
        event->ignore();
    if (!self || event->isAccepted())
        return;
    // A frame without scroll bars does not follow the keys by itself.
    const int screenful = static_cast<int>(size().height()) - pixelsPerLine;
    const int contents = page()->mainFrame()->contentsSize().height();
    const auto row = std::find_if(std::begin(scrollKeys), std::end(scrollKeys),
                                  [event](const ScrollKey &scroll) { return scroll.key == event->key(); });
    if (row == std::end(scrollKeys))
        return;
    scrollPage(0, row->lines * pixelsPerLine + row->screens * screenful + row->pages * contents);
    event->accept();
}

/// In the page first; beyond its last link or field, and where the page does not hear of keys, on in the chrome. The
/// page itself comes before all that is in it.
bool MyQWebView::focusNextPrevChild(bool next)
{
    // The picture in the page's place asks here too.
    if (m_retry && m_retry->hasFocus())
        return QGraphicsWidget::focusNextPrevChild(next);
    showFocusRing(true);
    const bool isAhead = next || m_isFocusInside;
    return (isAhead && moveFocusInside(next)) || QGraphicsWidget::focusNextPrevChild(next);
}

bool MyQWebView::moveFocusInside(bool next)
{
    m_isFocusInside = m_isEditable && QGraphicsWebView::focusNextPrevChild(next);
    return m_isFocusInside;
}

void MyQWebView::focusInEvent(QFocusEvent *event)
{
    QGraphicsWebView::focusInEvent(event);
    if (m_hadFocusRing || event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        showFocusRing(true);
    if (event->reason() == Qt::BacktabFocusReason)
        moveFocusInside(false);
}

void MyQWebView::focusOutEvent(QFocusEvent *event)
{
    QGraphicsWebView::focusOutEvent(event);
    m_hadFocusRing = m_focusRing && event->reason() == Qt::ActiveWindowFocusReason;
    showFocusRing(false);
}

void MyQWebView::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    QGraphicsWebView::resizeEvent(event);
    if (m_focusRing)
        showFocusRing(true);
}

QVariant MyQWebView::itemChange(GraphicsItemChange change, const QVariant &value)
{
    // Hidden with the focus, it would hand it on to the next widget, which Return then clicks.
    if (change == ItemVisibleChange && !value.toBool() && hasFocus())
        clearFocus();
    return QGraphicsWebView::itemChange(change, value);
}

void MyQWebView::showFocusRing(bool shown)
{
    if (!shown) {
        delete m_focusRing;
        m_focusRing = nullptr;
        return;
    }
    if (!m_focusRing)
        m_focusRing = new MFocusRing(this);
    // In an invitation the page reaches below the screen.
    m_focusRing->line(rect() & mapRectFromScene(scene()->sceneRect()));
}

void MyQWebView::scrollPage(int x, int y)
{
    page()->mainFrame()->scroll(x, y);
    if (!m_positionBar)
        m_positionBar = new MPositionBar(this);
    const QRectF besideRing = rect().adjusted(0, 0, m_focusRing ? -MFocusRing::width() : 0, 0);
    m_positionBar->show(besideRing, page()->mainFrame()->contentsSize().height(),
                        page()->mainFrame()->scrollPosition().y());
}
