// SPDX-License-Identifier: MIT
#include "bareview.h"

#include <QMouseEvent>
#include <QScreen>
#include <QStyle>
#include <QWebEngineSettings>

#include <unistd.h>

/// As the companion's engine is prepared: without OpenGL, and at work for the root user too.
static void prepareEngine()
{
    qputenv("QT_XCB_GL_INTEGRATION", "none");
    qputenv("QSG_RHI_BACKEND", "software");
    qputenv("QT_QUICK_BACKEND", "software");
    if (getuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}
Q_CONSTRUCTOR_FUNCTION(prepareEngine)

BareWindow::BareWindow()
    : m_webView(this)
{
    m_webView.settings()->setAttribute(QWebEngineSettings::ShowScrollBars, false);
    connect(&m_webView, &QWebEngineView::loadFinished, this, &BareWindow::loadFinished);
    // The companion opens as large as the screen allows; so that both draw as much, so does this.
    const QSize room = screen()->availableSize() - QSize(0, style()->pixelMetric(QStyle::PM_TitleBarHeight));
    const QSize whole(480, 814);
    resize(whole == whole.boundedTo(room) ? whole : whole.scaled(room, Qt::KeepAspectRatio));
    const qreal scale = width() / 480.0;
    m_webView.setGeometry(0, qRound(60 * scale), width(), qRound(664 * scale));
    m_webView.setZoomFactor(1.5 * scale);
}

void BareWindow::mousePressEvent(QMouseEvent *event)
{
    m_lastY = qRound(event->position().y());
}

void BareWindow::mouseMoveEvent(QMouseEvent *event)
{
    const int y = qRound(event->position().y());
    m_webView.page()->runJavaScript(QStringLiteral("scrollBy(0, %1)").arg((m_lastY - y) / m_webView.zoomFactor()));
    m_lastY = y;
}
