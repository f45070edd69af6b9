// SPDX-License-Identifier: MIT
#include "bareview.h"

#include <QGraphicsSceneMouseEvent>
#include <QScreen>
#include <QStyle>
#include <QWebFrame>
#include <QWebPage>
#include <QWebSettings>

BareWebView::BareWebView()
{
    page()->mainFrame()->setScrollBarPolicy(Qt::Horizontal, Qt::ScrollBarAlwaysOff);
    page()->mainFrame()->setScrollBarPolicy(Qt::Vertical, Qt::ScrollBarAlwaysOff);
    page()->setPreferredContentsSize(QSize(320, 400));
    settings()->setAttribute(QWebSettings::TiledBackingStoreEnabled, true);
    settings()->setAttribute(QWebSettings::FrameFlatteningEnabled, true);
    setZoomFactor(1.5);
    setGeometry(QRectF(0, 60, 480, 664));
}

void BareWebView::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    m_lastY = static_cast<int>(event->pos().y());
}

void BareWebView::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    const int y = static_cast<int>(event->pos().y());
    page()->mainFrame()->scroll(0, m_lastY - y);
    m_lastY = y;
}

BareWindow::BareWindow()
    : m_scene(0, 0, 480, 814)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scene.addItem(&m_webView);
    connect(&m_webView, &QGraphicsWebView::loadFinished, this, &BareWindow::loadFinished);
    setScene(&m_scene);
    // The companion opens as large as the screen allows; so that both draw as much, so does this.
    const QSize room = screen()->availableSize() - QSize(0, style()->pixelMetric(QStyle::PM_TitleBarHeight));
    const QSize scene = m_scene.sceneRect().size().toSize();
    resize(scene == scene.boundedTo(room) ? scene : scene.scaled(room, Qt::KeepAspectRatio));
}

void BareWindow::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    const qreal scale = viewport()->width() / m_scene.width();
    setTransform(QTransform::fromScale(scale, scale));
}
