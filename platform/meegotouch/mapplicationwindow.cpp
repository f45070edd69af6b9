// SPDX-License-Identifier: MIT
#include "mapplicationwindow.h"

#include "maccessibility.h"
#include "mapplication.h"
#include "minputmethodstate.h"
#include "mstyle.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGraphicsScene>
#include <QGraphicsWidget>
#include <QInputMethod>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

QVector<MApplicationWindow *> allWindows;

// Whether a key that is held down would do again what is done once. Where text is typed, it types on.
bool activatesAgain(const QKeyEvent *event, const QGraphicsItem *focus)
{
    if (!event->isAutoRepeat())
        return false;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Select:
        return !focus || !(focus->inputMethodHints() & Qt::ImhMultiLine);
    case Qt::Key_Space:
        return !focus || !(focus->flags() & QGraphicsItem::ItemAcceptsInputMethod);
    default:
        return false;
    }
}

bool leadsBack(const QKeyEvent *event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    return event->key() == Qt::Key_Back || (event->key() == Qt::Key_Escape && modifiers == Qt::NoModifier)
        || (event->key() == Qt::Key_Left && modifiers == Qt::AltModifier);
}

// Whether the list of a list box, which takes all keys for itself, has the focus.
bool isInList(const QGraphicsItem *focus)
{
    const QGraphicsWidget *window = focus && focus->isWidget() ? static_cast<const QGraphicsWidget *>(focus) : nullptr;
    return window && window->windowType() == Qt::Popup;
}

} // namespace

MApplicationWindow::MApplicationWindow(QWidget *parent)
    : QGraphicsView(parent)
    , m_scene(std::make_unique<QGraphicsScene>())
{
    allWindows.append(this);

    // A few dozen items, some of them always moving: an index would cost more than it finds.
    m_scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    // A tap on something that takes no text leaves the cursor where it is.
    m_scene->setStickyFocus(true);
    m_scene->setSceneRect(QRectF(QPointF(0, 0), sceneSize()));
    setScene(m_scene.get());
    MAccessibility::install();
    connect(m_scene.get(), &QGraphicsScene::focusItemChanged, this,
            [](const QGraphicsItem *focused) { MAccessibility::tellFocus(focused); });

    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlignment(Qt::AlignCenter);
    setBackgroundBrush(Qt::black);
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    // Measured on a dragged web view: painting everything costs a fifth more, the other modes are alike.
    setViewportUpdateMode(QGraphicsView::SmartViewportUpdate);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);

    setMinimumSize(sceneSize() / 3);
    const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    resize(openingSize(sceneSize(), screen()->availableSize() - QSize(0, titleBar)));
    m_fillsScreen = fillsScreen(sceneSize(), screen()->size());
    if (m_fillsScreen) {
        resize(screen()->size()); // An X11 display without a window manager takes no notice of a window's state.
        // While the keyboard is up it is not full screen; it needs no frame then either.
        setWindowFlag(Qt::FramelessWindowHint);
        setWindowState(Qt::WindowFullScreen);
    }

    const QInputMethod *inputMethod = QGuiApplication::inputMethod();
    connect(inputMethod, &QInputMethod::visibleChanged, this, &MApplicationWindow::makeRoomForKeyboard);
    connect(inputMethod, &QInputMethod::keyboardRectangleChanged, this, &MApplicationWindow::makeRoomForKeyboard);
    connect(inputMethod, &QInputMethod::cursorRectangleChanged, this, &MApplicationWindow::revealCursor);
    connect(MInputMethodState::instance(), &MInputMethodState::shellPanelVisibleChanged, this,
            &MApplicationWindow::makeRoomForKeyboard);
    connect(m_scene.get(), &QGraphicsScene::focusItemChanged, this,
            [this](const QGraphicsItem *item, const QGraphicsItem *, Qt::FocusReason reason) {
                if (item && (item->flags() & QGraphicsItem::ItemAcceptsInputMethod))
                    revealCursor();
                else if (reason != Qt::PopupFocusReason)
                    MInputMethodState::closeSoftwareInputPanel();
            });
}

MApplicationWindow::~MApplicationWindow()
{
    m_closing = true;
    emit closing();
    // Now: what it destroys reports to members that would be gone later.
    m_scene.reset();
    allWindows.removeOne(this);
}

MApplicationWindow *MApplicationWindow::active()
{
    if (auto *active = qobject_cast<MApplicationWindow *>(QApplication::activeWindow()))
        return active;
    return allWindows.isEmpty() ? nullptr : allWindows.last();
}

QSize MApplicationWindow::sceneSize() const
{
    return MStyle::sceneSize;
}

QSize MApplicationWindow::openingSize(const QSize &scene, const QSize &available)
{
    return scene == scene.boundedTo(available) ? scene : scene.scaled(available, Qt::KeepAspectRatio);
}

bool MApplicationWindow::fillsScreen(const QSize &scene, const QSize &screen)
{
    return screen.width() < screen.height() && screen.width() <= 1.25 * scene.width();
}

bool MApplicationWindow::event(QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !steer(static_cast<QKeyEvent *>(event)))
        return QGraphicsView::event(event);
    event->accept();
    return true;
}

bool MApplicationWindow::viewportEvent(QEvent *event)
{
    return m_guard.refuses(event) || QGraphicsView::viewportEvent(event);
}

void MApplicationWindow::showEvent(QShowEvent *event)
{
    QGraphicsView::showEvent(event);
    // An X11 display without a window manager gives the keyboard to nobody by itself. Wayland lets no window ask.
    if (!QApplication::platformName().startsWith(QLatin1String("wayland")))
        activateWindow();
}

void MApplicationWindow::closeEvent(QCloseEvent *event)
{
    QGraphicsView::closeEvent(event);
    // Qt ends the application with its last window too, but forgets it where a nested loop runs before exec(), and
    // nobody would see to it that the end comes.
    if (event->isAccepted())
        MApplication::requestEnd();
}

void MApplicationWindow::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    fitScene();
}

void MApplicationWindow::keyPressEvent(QKeyEvent *event)
{
    forwardKey(event);
    if (!event->isAccepted())
        QGraphicsView::keyPressEvent(event);
}

void MApplicationWindow::keyReleaseEvent(QKeyEvent *event)
{
    forwardKey(event);
    if (!event->isAccepted())
        QGraphicsView::keyReleaseEvent(event);
}

void MApplicationWindow::fitScene()
{
    const QSizeF scene = sceneSize();
    // The keyboard's room is the viewport's loss, and of a window that is to fill the screen also its own.
    const int fullHeight = m_fillsScreen ? qMax(height(), screen()->size().height()) : height();
    const qreal scale = qMin(viewport()->width() / scene.width(), fullHeight / scene.height());
    setTransform(QTransform::fromScale(scale, scale));
    for (QGraphicsWidget *sceneWindow : std::as_const(m_onDisplay))
        sceneWindow->setGeometry(QRectF(QPointF(0, 0), scene));
    revealCursor();
}

qreal MApplicationWindow::visibleHeight() const
{
    return qMin<qreal>(sceneSize().height(), viewport()->height() / transform().m22());
}

void MApplicationWindow::makeRoomForKeyboard()
{
    // Shells keep their keyboard beneath what is full screen, and tell how high it is by what they leave to the rest.
    if (m_fillsScreen) {
        const bool isShared = MInputMethodState::instance()->isShellPanelVisible();
        setWindowState(isShared ? Qt::WindowMaximized : Qt::WindowFullScreen);
    }
    setViewportMargins(0, 0, 0, heightUnderKeyboard());
}

/// In pixels of the window; never all of it.
int MApplicationWindow::heightUnderKeyboard() const
{
    const QInputMethod *keyboard = QGuiApplication::inputMethod();
    if (!keyboard->isVisible() || keyboard->keyboardRectangle().isEmpty())
        return 0;
    // On the screen, whatever the documentation says: the keyboard is a window of its own.
    const int top = mapFromGlobal(keyboard->keyboardRectangle().topLeft().toPoint()).y();
    return qBound(0, height() - top, height() * 2 / 3);
}

void MApplicationWindow::revealCursor()
{
    if (verticalScrollBar()->minimum() == verticalScrollBar()->maximum())
        return;
    const QRect cursor = inputMethodQuery(Qt::ImCursorRectangle).toRectF().toAlignedRect();
    if (cursor.isValid())
        ensureVisible(mapToScene(cursor).boundingRect(), 0, MStyle::cursorMargin);
}

// Whether the key is the window's own.
bool MApplicationWindow::steer(const QKeyEvent *event)
{
    if (event->key() == Qt::Key_Q && event->modifiers() == Qt::ControlModifier) {
        close();
        return true;
    }
    recallFocus();
    QGraphicsItem *const focus = m_scene->focusItem();
    if (m_onDisplay.isEmpty() || isInList(focus))
        return false;
    if (leadsBack(event)) {
        if (!event->isAutoRepeat())
            emit backKeyPressed(m_onDisplay.last());
        return true;
    }
    // From the item that has the focus, Tab finds its way by itself: an editor or a web page may use it first.
    if (focus || (event->key() != Qt::Key_Tab && event->key() != Qt::Key_Backtab))
        return false;
    emit tabKeyPressed(m_onDisplay.last(), event->key() == Qt::Key_Tab);
    return true;
}

void MApplicationWindow::forwardKey(QKeyEvent *event)
{
    event->setAccepted(activatesAgain(event, m_scene->focusItem()));
    // With the focus on an item, Qt's own way is the right one.
    if (event->isAccepted() || m_scene->focusItem() || m_onDisplay.isEmpty())
        return;
    event->accept();
    m_scene->sendEvent(m_onDisplay.last(), event);
}

// Something beneath the panels may have been given the focus meanwhile: it is to have it when they have left, but until
// then the keys are for the topmost panel.
void MApplicationWindow::recallFocus()
{
    QGraphicsWidget *top = topPanel();
    QGraphicsItem *focus = m_scene->focusItem();
    if (!top || !focus || focus->panel())
        return;
    m_focusBeneathPanels = focus->toGraphicsObject();
    (top->focusItem() ? top->focusItem() : top)->setFocus();
}

bool MApplicationWindow::take(QGraphicsWidget *sceneWindow)
{
    if (m_closing)
        return false;
    auto firstPanel = std::find_if(m_onDisplay.begin(), m_onDisplay.end(),
                                   [](const QGraphicsWidget *other) { return other->isPanel(); });
    if (sceneWindow->isPanel() && firstPanel == m_onDisplay.end()) {
        // The page's own idea of it holds also while the window is not active.
        QGraphicsItem *focus = m_onDisplay.isEmpty() ? nullptr : m_onDisplay.last()->focusItem();
        m_focusBeneathPanels = focus ? focus->toGraphicsObject() : nullptr;
    }
    m_onDisplay.insert(sceneWindow->isPanel() ? m_onDisplay.end() : firstPanel, sceneWindow);
    for (int i = 0; i < m_onDisplay.size(); ++i)
        m_onDisplay[i]->setZValue(i);
    if (sceneWindow->scene() != m_scene.get())
        m_scene->addItem(sceneWindow);
    sceneWindow->setGeometry(QRectF(QPointF(0, 0), sceneSize()));
    sceneWindow->setVisible(true);
    activateTopPanel();
    return true;
}

void MApplicationWindow::release(QGraphicsWidget *sceneWindow)
{
    if (!m_onDisplay.removeOne(sceneWindow) || m_closing || !sceneWindow->isPanel())
        return;
    const QGraphicsItem *focus = m_scene->focusItem();
    const bool isFocusOnPage = focus && !focus->panel();
    activateTopPanel();
    if (!topPanel() && !isFocusOnPage && m_focusBeneathPanels)
        m_focusBeneathPanels->setFocus();
}

QGraphicsWidget *MApplicationWindow::topPanel() const
{
    return !m_onDisplay.isEmpty() && m_onDisplay.last()->isPanel() ? m_onDisplay.last() : nullptr;
}

// Two modal panels of which none is in the other would block each other: only the topmost one is.
void MApplicationWindow::activateTopPanel()
{
    QGraphicsWidget *top = topPanel();
    for (QGraphicsWidget *sceneWindow : std::as_const(m_onDisplay))
        sceneWindow->setPanelModality(sceneWindow == top ? QGraphicsItem::SceneModal : QGraphicsItem::NonModal);
    m_scene->setActivePanel(top);
}
