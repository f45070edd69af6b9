#include "mscenewindow.h"

#include "mapplication.h"
#include "mapplicationwindow.h"
#include "mfadingpicture.h"

#include <QTimer>

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
    m_window = window;
    m_onDisplay = true;
    entering();
    if (m_fade.duration() > 0)
        setOpacity(faintest);
    m_fade.start();
}

void MSceneWindow::appear(DeletionPolicy policy)
{
    appear(MApplication::activeApplicationWindow(), policy);
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

// Not deleteLater(), which reaches the object through its event(): a subclass may swallow that.
void MSceneWindow::destroySoon()
{
    QTimer::singleShot(0, qApp, [doomed = QPointer<MSceneWindow>(this)] {
        if (doomed && !doomed->isOnDisplay() && !doomed->isKept())
            delete doomed;
    });
}
