// SPDX-License-Identifier: MIT
#pragma once

#include "qwebpage.h"

#include <QGraphicsWidget>

class EngineView;
class QGraphicsProxyWidget;

/// A web page in a graphics scene: QtWebKit's class of this name, as far as it is used here, over Qt WebEngine.
///
/// The page is drawn as sharp as the screen allows, whatever the scale of the scene. It hears of touches only what
/// becomes of them as a mouse.
class QGraphicsWebView : public QGraphicsWidget {
    Q_OBJECT

public:
    explicit QGraphicsWebView(QGraphicsItem *parent = nullptr);
    ~QGraphicsWebView() override;

    QWebPage *page() const;
    /// A page whose parent is the view is the view's.
    void setPage(QWebPage *page);

    QUrl url() const { return page()->mainFrame()->url(); }
    void setUrl(const QUrl &url) { page()->mainFrame()->setUrl(url); }
    void load(const QUrl &url) { page()->mainFrame()->load(url); }
    void setHtml(const QString &html, const QUrl &baseUrl = QUrl());
    /// Without @p data the address is said to be @p baseUrl; what is on display stays until something else comes.
    void setContent(const QByteArray &data, const QString &type = QString(), const QUrl &baseUrl = QUrl());
    QString title() const { return page()->mainFrame()->title(); }
    void stop() { page()->triggerAction(QWebPage::Stop); }
    QWebSettings *settings() const { return page()->settings(); }
    QWebHistory *history() const { return page()->history(); }

    qreal zoomFactor() const { return m_zoomFactor; }
    void setZoomFactor(qreal factor);

    /// A matter of the other engine's: kept, without effect.
    bool isTiledBackingStoreFrozen() const { return m_isFrozen; }
    void setTiledBackingStoreFrozen(bool frozen) { m_isFrozen = frozen; }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

signals:
    void loadStarted();
    void loadFinished(bool ok);
    void urlChanged(const QUrl &url);
    void titleChanged(const QString &title);

protected:
    bool event(QEvent *event) override;
    bool sceneEvent(QEvent *event) override;
    void resizeEvent(QGraphicsSceneResizeEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    void wheelEvent(QGraphicsSceneWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void applyScale();
    void askForKeyboard();
    void sendMouse(QEvent::Type type, const QPointF &position, Qt::KeyboardModifiers modifiers);
    bool takesKey(const QKeyEvent &event);
    void sendToEngine(QEvent *event);
    void sendFocus(QEvent::Type type);

    mutable QWebPage *m_page = nullptr;
    EngineView *m_view = nullptr;
    QGraphicsProxyWidget *m_proxy = nullptr;
    qreal m_zoomFactor = 1;
    qreal m_sharpness = 1; ///< pixels of the screen for one of the scene's
    qreal m_wantedSharpness = 1;
    bool m_isFrozen = false;
    bool m_isPressed = false; ///< the page has seen a press and not its release
    ulong m_pressTime = 0;
};
