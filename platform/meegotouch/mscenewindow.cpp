// SPDX-License-Identifier: MIT
#include "mscenewindow.h"

#include "mapplicationwindow.h"
#include "mfadingpicture.h"

#include <QGraphicsScene>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {
// An item of no opacity at all would not be found under a finger.
constexpr qreal faintest = 0.01;
} // namespace

MSceneWindow::MSceneWindow(QGraphicsItem *parent)
    : MWidget(parent)
    , m_fade(this, "opacity")
{
    m_fade.setDuration(0);
    m_fade.setEasingCurve(QEasingCurve::OutCubic);
    m_fade.setStartValue(faintest);
    m_fade.setEndValue(1.0);
    connect(&m_fade, &QAbstractAnimation::finished, this, &MSceneWindow::appeared);
}

MSceneWindow::~MSceneWindow()
{
    if (m_window)
        m_window->release(this);
}

void MSceneWindow::appear(MApplicationWindow *window, DeletionPolicy policy)
{
    m_policy = policy;
    if (m_onDisplay)
        return;
    if (!window || !window->take(this)) {
        if (!isKept())
            destroySoon();
        return;
    }
    if (m_window != window) {
        if (m_window)
            disconnect(m_window, nullptr, this, nullptr);
        connect(window, &MApplicationWindow::closing, this, &MSceneWindow::leaveClosingWindow);
        connect(window, &MApplicationWindow::backKeyPressed, this, [this](const QGraphicsWidget *topmost) {
            if (topmost == this)
                backAsked();
        });
        connect(window, &MApplicationWindow::tabKeyPressed, this, [this](const QGraphicsWidget *topmost, bool next) {
            if (topmost == this)
                focusNextPrevChild(next);
        });
    }
    m_window = window;
    m_onDisplay = true;
    entering();
    if (m_fade.duration() > 0)
        setOpacity(faintest);
    m_fade.start();
}

void MSceneWindow::appear(DeletionPolicy policy)
{
    appear(MApplicationWindow::active(), policy);
}

MApplicationWindow *MSceneWindow::applicationWindow() const
{
    return m_window;
}

void MSceneWindow::disappear()
{
    leave(false);
}

void MSceneWindow::dismiss()
{
    leave(true);
}

void MSceneWindow::leave(bool dismissed)
{
    const QPointer<MSceneWindow> self = this;
    if (m_onDisplay)
        leaving();
    if (!self || !m_onDisplay)
        return;
    m_onDisplay = false;
    m_fade.stop();
    if (m_fade.duration() > 0 && m_window && m_window->isVisible())
        MFadingPicture::leave(this, m_window);
    setVisible(false);
    if (m_window)
        m_window->release(this);
    if (m_policy == DestroyWhenDone || (m_policy == DestroyWhenDismissed && dismissed))
        destroySoon();
    left();
    if (self)
        emit disappeared();
}

void MSceneWindow::leaveClosingWindow()
{
    const QPointer<MSceneWindow> self = this;
    dismiss();
    // What others own goes back to them; the window's scene destroys the rest.
    if (self && isKept() && !parentItem() && scene())
        scene()->removeItem(this);
}

// Not deleteLater(), which reaches the object through its event(): a subclass may swallow that.
void MSceneWindow::destroySoon()
{
    QTimer::singleShot(0, qApp, [doomed = QPointer<MSceneWindow>(this)] {
        if (doomed && !doomed->isOnDisplay() && !doomed->isKept())
            delete doomed;
    });
}

QVector<QGraphicsWidget *> MSceneWindow::tabStops(const QGraphicsItem *parent)
{
    QVector<QGraphicsWidget *> stops;
    const auto children = parent ? parent->childItems() : QList<QGraphicsItem *>();
    for (QGraphicsItem *child : children) {
        if (!child->isVisible() || !child->isEnabled())
            continue;
        auto *widget = child->isWidget() ? static_cast<QGraphicsWidget *>(child) : nullptr;
        // Where a child has the focus in its stead, that one is the stop.
        if (widget && widget->focusPolicy() != Qt::NoFocus && !widget->focusProxy())
            stops.append(widget);
        stops += tabStops(child);
    }
    std::stable_sort(stops.begin(), stops.end(), [](const QGraphicsWidget *one, const QGraphicsWidget *other) {
        const QPointF left = one->scenePos();
        const QPointF right = other->scenePos();
        return std::make_pair(left.y(), left.x()) < std::make_pair(right.y(), right.x());
    });
    return stops;
}

bool MSceneWindow::focusNextPrevChild(bool next)
{
    const QVector<QGraphicsWidget *> stops = tabStops(this);
    const int count = stops.size();
    if (count == 0)
        return true;
    const auto focused
        = std::find_if(stops.begin(), stops.end(), [](const QGraphicsWidget *stop) { return stop->hasFocus(); });
    int to = next ? 0 : count - 1;
    if (focused != stops.end())
        to = (int(focused - stops.begin()) + (next ? 1 : count - 1)) % count;
    // An embedded editor that is not for Tab would not take the focus for Tab's reasons.
    const bool isForTab = stops[to]->focusPolicy() & Qt::TabFocus;
    stops[to]->setFocus(!isForTab ? Qt::OtherFocusReason : next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}
