// SPDX-License-Identifier: MIT
#include "qwebpage.h"

#include "enginepage.h"

#include <QGraphicsSceneWheelEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestInterceptor>

namespace {

/// What the page's network does not speak is not asked for. No other host learns where a request comes from, and a post
/// that the program asked for does not look like that of a page without a host.
class DiscreetRequests : public QWebEngineUrlRequestInterceptor {
public:
    DiscreetRequests(const QWebPage &page, QObject *parent)
        : QWebEngineUrlRequestInterceptor(parent)
        , m_page(page)
    {
    }

    void interceptRequest(QWebEngineUrlRequestInfo &request) override
    {
        const QUrl target = request.requestUrl();
        const bool isOfNetwork = target.scheme() == QLatin1String("http") || target.scheme() == QLatin1String("https");
        if (isOfNetwork && !m_page.networkAccessManager()->supportedSchemes().contains(target.scheme()))
            request.block(true);
        const QUrl from = request.initiator();
        if (target.scheme() != from.scheme() || target.authority() != from.authority())
            request.setHttpHeader("Referer", QByteArray());
        if (request.navigationType() == QWebEngineUrlRequestInfo::NavigationTypeTyped
            && request.requestMethod() == "POST")
            request.setHttpHeader("Origin", QByteArray());
    }

private:
    const QWebPage &m_page;
};

} // namespace

QWebPage::QWebPage(QObject *parent)
    : QObject(parent)
    , m_profile(std::make_unique<QWebEngineProfile>())
    , m_engine(std::make_unique<EnginePage>(*this, m_profile.get()))
{
    m_profile->setHttpCacheType(QWebEngineProfile::NoCache);
    m_profile->setUrlRequestInterceptor(new DiscreetRequests(*this, m_profile.get()));
    connect(m_engine.get(), &EnginePage::loadBegins, this, &QWebPage::loadStarted);
    connect(m_engine.get(), &EnginePage::loadEnds, this, &QWebPage::loadFinished);
}

QWebPage::~QWebPage() = default;

QWebFrame *QWebPage::mainFrame() const
{
    return &m_engine->frame;
}

QWebSettings *QWebPage::settings() const
{
    return &m_engine->webSettings;
}

QWebHistory *QWebPage::history() const
{
    return &m_engine->webHistory;
}

QNetworkAccessManager *QWebPage::networkAccessManager() const
{
    if (!m_networkAccessManager)
        m_networkAccessManager = new QNetworkAccessManager(m_engine.get());
    return m_networkAccessManager;
}

void QWebPage::setNetworkAccessManager(QNetworkAccessManager *manager)
{
    m_networkAccessManager = manager;
}

QString QWebPage::selectedText() const
{
    return m_engine->ask(QStringLiteral("'' + getSelection()")).toString();
}

bool QWebPage::findText(const QString &text, FindFlags flags)
{
    if (text.isEmpty()) {
        m_engine->tell(QStringLiteral("getSelection().removeAllRanges()"));
        return false;
    }
    const QString literal = QString::fromUtf8(QJsonDocument(QJsonArray({text})).toJson(QJsonDocument::Compact));
    return m_engine
        ->ask(QStringLiteral("window.find(%1[0], false, false, %2)")
                  .arg(literal, flags & FindWrapsAroundDocument ? QStringLiteral("true") : QStringLiteral("false")))
        .toBool();
}

void QWebPage::triggerAction(WebAction action)
{
    if (action == Back)
        m_engine->back();
    else
        m_engine->stop();
}

bool QWebPage::supportsExtension(Extension) const
{
    return false;
}

bool QWebPage::extension(Extension, const ExtensionOption *, ExtensionReturn *)
{
    return false;
}

bool QWebPage::event(QEvent *event)
{
    if (event->type() != QEvent::GraphicsSceneWheel)
        return QObject::event(event);
    const auto *wheel = static_cast<QGraphicsSceneWheelEvent *>(event);
    const QPointF place = wheel->pos() / m_engine->viewZoom();
    const double step = -wheel->delta() / m_engine->viewZoom();
    const bool isVertical = wheel->orientation() == Qt::Vertical;
    event->setAccepted(m_engine
                           ->ask(QStringLiteral(R"((function(x, y, left, top) {
        for (let inner = document.elementFromPoint(x, y); inner && inner != document.body; inner = inner.parentElement) {
            if (!/auto|scroll/.test(getComputedStyle(inner)[left ? 'overflowX' : 'overflowY']))
                continue;
            const before = inner.scrollLeft + inner.scrollTop;
            inner.scrollBy({left: left, top: top, behavior: 'instant'});
            if (inner.scrollLeft + inner.scrollTop != before)
                return true;
        }
        return false;
    })(%1, %2, %3, %4))")
                                     .arg(place.x())
                                     .arg(place.y())
                                     .arg(isVertical ? 0 : step)
                                     .arg(isVertical ? step : 0))
                           .toBool());
    return true;
}

void QWebPage::javaScriptAlert(QWebFrame *, const QString &) { }

bool QWebPage::javaScriptConfirm(QWebFrame *, const QString &)
{
    return false;
}

bool QWebPage::javaScriptPrompt(QWebFrame *, const QString &, const QString &, QString *)
{
    return false;
}

QString QWebPage::chooseFile(QWebFrame *, const QString &)
{
    return QString();
}
