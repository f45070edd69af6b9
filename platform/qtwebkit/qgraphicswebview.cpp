// SPDX-License-Identifier: MIT
#include "qgraphicswebview.h"

#include "enginepage.h"

#include <QApplication>
#include <QGraphicsProxyWidget>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QQuickItem>
#include <QQuickWidget>
#include <QQuickWindow>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <cmath>

#include <unistd.h>

namespace {

/// Before there is an application: how the engine draws, and what it does without.
void prepareEngine()
{
    // Only what is drawn without OpenGL can be drawn once more, as an item of a scene.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    // The engine refuses to work for the root user otherwise.
    if (getuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}
Q_CONSTRUCTOR_FUNCTION(prepareEngine)

// Where the end of a press goes that the page is not to see.
const QPointF farOutside(-100000, -100000);

/// Shows the engine's view, and the list boxes that it opens, where they stand; events come from the web view.
class PageProxy : public QGraphicsProxyWidget {
public:
    using QGraphicsProxyWidget::QGraphicsProxyWidget;

protected:
    bool sceneEvent(QEvent *event) override
    {
        event->ignore();
        return true;
    }
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override
    {
        if (change == ItemChildAddedChange) {
            auto *popup = qgraphicsitem_cast<QGraphicsProxyWidget *>(value.value<QGraphicsItem *>());
            if (popup && popup->widget())
                popup->setPos(popup->widget()->pos());
        }
        return QGraphicsProxyWidget::itemChange(change, value);
    }
};

} // namespace

/// Opens the way out of the page for the focus.
class EngineView : public QWebEngineView {
public:
    explicit EngineView(std::function<void(bool)> leave)
        : m_leave(std::move(leave))
    {
    }

protected:
    bool focusNextPrevChild(bool next) override
    {
        m_leave(next);
        return true;
    }

private:
    std::function<void(bool)> m_leave;
};

QGraphicsWebView::QGraphicsWebView(QGraphicsItem *parent)
    : QGraphicsWidget(parent)
    , m_view(new EngineView([this](bool next) { QGraphicsWidget::focusNextPrevChild(next); }))
    , m_proxy(new PageProxy(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setFlag(ItemAcceptsInputMethod);
    setFlag(ItemClipsChildrenToShape);
    setAcceptTouchEvents(true);
    setAcceptHoverEvents(true);
    m_view->setContextMenuPolicy(Qt::PreventContextMenu);
    m_proxy->setAcceptedMouseButtons(Qt::NoButton);
    m_proxy->setAcceptHoverEvents(false);
    m_proxy->setFocusPolicy(Qt::NoFocus);
    m_proxy->setWidget(m_view);
}

QGraphicsWebView::~QGraphicsWebView()
{
    setPage(nullptr);
}

QWebPage *QGraphicsWebView::page() const
{
    if (!m_page)
        const_cast<QGraphicsWebView *>(this)->setPage(new QWebPage(const_cast<QGraphicsWebView *>(this)));
    return m_page;
}

void QGraphicsWebView::setPage(QWebPage *page)
{
    if (m_page) {
        disconnect(&m_page->engine(), nullptr, this, nullptr);
        m_view->setPage(nullptr);
        if (m_page->parent() == this)
            delete m_page;
    }
    m_page = page;
    if (!page)
        return;
    EnginePage &engine = page->engine();
    m_view->setPage(&engine);
    engine.setScales(m_zoomFactor, m_sharpness);
    connect(&engine, &EnginePage::loadBegins, this, &QGraphicsWebView::loadStarted);
    connect(&engine, &EnginePage::loadEnds, this, &QGraphicsWebView::loadFinished);
    connect(&engine, &EnginePage::addressChanged, this, &QGraphicsWebView::urlChanged);
    connect(&engine, &EnginePage::addressChanged, this, [this] {
        // A new page may come in a new surface, which has not heard of the focus.
        if (hasFocus())
            sendFocus(QEvent::FocusIn);
    });
    connect(&engine, &QWebEnginePage::titleChanged, this, [this] { emit titleChanged(title()); });
}

void QGraphicsWebView::setHtml(const QString &html, const QUrl &baseUrl)
{
    page()->engine().openHtml(html, baseUrl);
}

void QGraphicsWebView::setContent(const QByteArray &data, const QString &, const QUrl &baseUrl)
{
    if (data.isEmpty())
        page()->engine().setAddress(baseUrl);
    else
        setHtml(QString::fromUtf8(data), baseUrl);
}

void QGraphicsWebView::setZoomFactor(qreal factor)
{
    m_zoomFactor = factor;
    page()->engine().setScales(m_zoomFactor, m_sharpness);
}

void QGraphicsWebView::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const QTransform &transform = painter->worldTransform();
    const qreal sharpness = std::hypot(transform.m11(), transform.m12());
    if (sharpness <= 0 || qFuzzyCompare(sharpness, m_wantedSharpness))
        return;
    // Not while a scene is being painted.
    m_wantedSharpness = sharpness;
    QMetaObject::invokeMethod(this, &QGraphicsWebView::applyScale, Qt::QueuedConnection);
}

void QGraphicsWebView::applyScale()
{
    m_sharpness = m_wantedSharpness;
    m_view->resize((size() * m_sharpness).toSize());
    m_proxy->setScale(1 / m_sharpness);
    page()->engine().setScales(m_zoomFactor, m_sharpness);
}

void QGraphicsWebView::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    QGraphicsWidget::resizeEvent(event);
    applyScale();
}

bool QGraphicsWebView::event(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        page()->engine().setBackgroundColor(palette().color(QPalette::Base));
    return QGraphicsWidget::event(event);
}

bool QGraphicsWebView::sceneEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        // The engine would make taps and scrolling of its own of them.
        return false;
    case QEvent::GraphicsSceneMouseRelease:
    case QEvent::UngrabMouse: {
        const QPointer<QGraphicsWebView> self(this);
        const bool result = QGraphicsWidget::sceneEvent(event);
        // Whoever keeps a release for himself must not leave the page with a finger on it.
        if (self && m_isPressed)
            sendMouse(QEvent::MouseButtonRelease, farOutside, Qt::NoModifier);
        return result;
    }
    default:
        return QGraphicsWidget::sceneEvent(event);
    }
}

void QGraphicsWebView::sendMouse(QEvent::Type type, const QPointF &position, Qt::KeyboardModifiers modifiers)
{
    const bool isMove = type == QEvent::MouseMove;
    const bool isRelease = type == QEvent::MouseButtonRelease;
    if (!isMove)
        m_isPressed = !isRelease;
    const QPointF place = position * m_sharpness;
    QMouseEvent event(type, place, place, place, isMove ? Qt::NoButton : Qt::LeftButton,
                      m_isPressed ? Qt::LeftButton : Qt::NoButton, modifiers);
    // Presses never are near enough in time to make a double one: what becomes of quick taps is the scene's business.
    if (type == QEvent::MouseButtonPress)
        m_pressTime += 60000;
    event.setTimestamp(m_pressTime);
    sendToEngine(&event);
}

void QGraphicsWebView::sendToEngine(QEvent *event)
{
    if (QWidget *target = m_view->focusProxy())
        QCoreApplication::sendEvent(target, event);
}

/// To what shows the page inside the engine's surface, which itself passes a focus on only while its own window has it:
/// in a scene that window never does. The reason is kept back: at Tab's the engine would go to the first link at once.
void QGraphicsWebView::sendFocus(QEvent::Type type)
{
    const auto *surface = qobject_cast<QQuickWidget *>(m_view->focusProxy());
    if (!surface)
        return;
    QQuickItem *item = surface->quickWindow()->contentItem();
    while (!item->childItems().isEmpty())
        item = item->childItems().constFirst();
    QFocusEvent event(type);
    QCoreApplication::sendEvent(item, &event);
}

void QGraphicsWebView::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    event->accept();
    if (event->button() == Qt::LeftButton)
        sendMouse(QEvent::MouseButtonPress, event->pos(), event->modifiers());
}

void QGraphicsWebView::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    event->accept();
    sendMouse(QEvent::MouseMove, event->pos(), event->modifiers());
}

void QGraphicsWebView::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    event->accept();
    if (!m_isPressed || event->button() != Qt::LeftButton)
        return;
    const QPointer<QGraphicsWebView> self(this);
    sendMouse(QEvent::MouseButtonRelease, event->pos(), event->modifiers());
    if (self)
        askForKeyboard();
}

/// The engine itself asks Qt's input method only, and only where the field was not the one before: not for a keyboard
/// that has been put away. The press has moved the focus; the answer comes later.
void QGraphicsWebView::askForKeyboard()
{
    const auto ask = [self = QPointer<QGraphicsWebView>(this)](const QVariant &isForText) {
        if (!self || !self->hasFocus() || !isForText.toBool())
            return;
        QEvent request(QEvent::RequestSoftwareInputPanel);
        QCoreApplication::sendEvent(self->m_view, &request);
    };
    const auto script = QStringLiteral("(function(focus) { return focus.isContentEditable || focus.tagName == "
                                       "'TEXTAREA' || (focus.tagName == 'INPUT' && "
                                       "!/^(button|checkbox|color|file|image|radio|range|reset|submit)$/"
                                       ".test(focus.type)); })(document.activeElement)");
    page()->engine().runJavaScript(script, QWebEngineScript::ApplicationWorld, ask);
}

void QGraphicsWebView::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    mousePressEvent(event);
}

void QGraphicsWebView::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    page()->event(event);
}

/// Whether the page uses a key itself. Keys that scroll are not the engine's to follow, unless a field has the focus.
bool QGraphicsWebView::takesKey(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Space:
        return page()
            ->engine()
            .ask(QStringLiteral("(function(focus) { return focus && (focus.isContentEditable || "
                                "/^(INPUT|TEXTAREA|SELECT|BUTTON|SUMMARY)$/.test(focus.tagName)); })"
                                "(document.activeElement)"))
            .toBool();
    default:
        return true;
    }
}

void QGraphicsWebView::keyPressEvent(QKeyEvent *event)
{
    const bool isTaken = takesKey(*event);
    if (isTaken)
        sendToEngine(event);
    event->setAccepted(isTaken);
}

void QGraphicsWebView::keyReleaseEvent(QKeyEvent *event)
{
    sendToEngine(event);
    event->accept();
}

void QGraphicsWebView::inputMethodEvent(QInputMethodEvent *event)
{
    sendToEngine(event);
}

QVariant QGraphicsWebView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const QWidget *target = m_view->focusProxy();
    const QVariant answer = target ? target->inputMethodQuery(query) : QVariant();
    if (answer.userType() == QMetaType::QRect) {
        const QRectF area(answer.toRect());
        return QRectF(area.topLeft() / m_sharpness, area.size() / m_sharpness);
    }
    return answer;
}

void QGraphicsWebView::focusInEvent(QFocusEvent *)
{
    sendFocus(QEvent::FocusIn);
}

void QGraphicsWebView::focusOutEvent(QFocusEvent *)
{
    sendFocus(QEvent::FocusOut);
}

bool QGraphicsWebView::focusNextPrevChild(bool next)
{
    if (!hasFocus())
        return QGraphicsWidget::focusNextPrevChild(next);
    // The page moves it on among its own fields first, and hands it over behind the last.
    QKeyEvent key(QEvent::KeyPress, next ? Qt::Key_Tab : Qt::Key_Backtab, next ? Qt::NoModifier : Qt::ShiftModifier);
    sendToEngine(&key);
    return true;
}
