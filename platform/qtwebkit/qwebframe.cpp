// SPDX-License-Identifier: MIT
#include "qwebframe.h"

#include "enginepage.h"

#include <QWebEngineHttpRequest>
#include <QWebEngineScript>

namespace {

/// Scrolls by so many of the page's pixels. The engine stops at whole pixels of the screen, and cuts off what is beyond
/// one: that is kept for the next step, or the page would fall behind a slow finger.
constexpr char scrollScript[] = R"((x, y) => {
    const isNear = self.place && Math.abs(place.x - scrollX) < 1 && Math.abs(place.y - scrollY) < 1;
    const from = isNear ? place : {x: scrollX, y: scrollY};
    self.place = {x: from.x + x, y: from.y + y};
    const whole = (length) => (Math.round(length * devicePixelRatio) + 0.25) / devicePixelRatio;
    scrollTo({left: whole(place.x), top: whole(place.y), behavior: 'instant'});
})";

} // namespace

QWebFrame::QWebFrame(EnginePage &engine)
    : m_engine(engine)
{
}

QUrl QWebFrame::url() const
{
    return m_engine.address();
}

void QWebFrame::setUrl(const QUrl &url)
{
    m_engine.open(QWebEngineHttpRequest(url));
}

void QWebFrame::load(const QUrl &url)
{
    m_engine.open(QWebEngineHttpRequest(url));
}

void QWebFrame::load(const QNetworkRequest &request, QNetworkAccessManager::Operation operation, const QByteArray &body)
{
    const bool isPost = operation == QNetworkAccessManager::PostOperation;
    QWebEngineHttpRequest copy(request.url(), isPost ? QWebEngineHttpRequest::Post : QWebEngineHttpRequest::Get);
    const auto names = request.rawHeaderList();
    for (const QByteArray &name : names)
        copy.setHeader(name, request.rawHeader(name));
    copy.setPostData(body);
    m_engine.open(copy);
}

QString QWebFrame::title() const
{
    // For a page without a title the engine gives its address, without the scheme where it is the web's.
    const QString title = m_engine.title();
    const QString address = m_engine.url().toString();
    return title == address || address.endsWith(QLatin1String("://") + title) ? QString() : title;
}

QString QWebFrame::toPlainText() const
{
    return m_engine.ask(QStringLiteral("document.body ? document.body.innerText : ''")).toString();
}

void QWebFrame::setScrollBarPolicy(Qt::Orientation, Qt::ScrollBarPolicy policy)
{
    Q_ASSERT(policy == Qt::ScrollBarAlwaysOff);
    Q_UNUSED(policy)
}

QPoint QWebFrame::scrollPosition() const
{
    const QVariantList position = m_engine.ask(QStringLiteral("[scrollX, scrollY]")).toList();
    return (QPointF(position.value(0).toDouble(), position.value(1).toDouble()) * m_engine.viewZoom()).toPoint();
}

void QWebFrame::setScrollPosition(const QPoint &position)
{
    const QPointF place = QPointF(position) / m_engine.viewZoom();
    m_engine.tell(QStringLiteral("scrollTo({left: %1, top: %2, behavior: 'instant'})").arg(place.x()).arg(place.y()));
}

void QWebFrame::scroll(int x, int y)
{
    const QPointF step = QPointF(x, y) / m_engine.viewZoom();
    m_engine.tell(QStringLiteral("(%1)(%2, %3)").arg(QLatin1String(scrollScript)).arg(step.x()).arg(step.y()));
}

QSize QWebFrame::contentsSize() const
{
    const QVariantList size
        = m_engine.ask(QStringLiteral("[document.documentElement.scrollWidth, document.documentElement.scrollHeight]"))
              .toList();
    return (QSizeF(size.value(0).toDouble(), size.value(1).toDouble()) * m_engine.viewZoom()).toSize();
}

QVariant QWebFrame::evaluateJavaScript(const QString &script)
{
    return m_engine.evaluate(script, QWebEngineScript::MainWorld);
}

void QWebFrame::addToJavaScriptWindowObject(const QString &name, QObject *object)
{
    m_engine.addObject(name, object);
}
