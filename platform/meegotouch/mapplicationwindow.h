// SPDX-License-Identifier: MIT
#pragma once

#include "mdoubletapguard.h"
#include "mnamespace.h"

#include <QGraphicsObject>
#include <QGraphicsView>
#include <QPointer>
#include <QVector>

#include <memory>

class MApplicationPage;
class MSceneWindow;

/// The window of an application: shows one scene of a phone's size, whatever the size of the window.
///
/// It opens with one scene pixel a screen pixel, or smaller where the screen is, and on a phone's screen as the whole
/// of it; resized, it scales the scene with its aspect kept, centred on black. A software keyboard changes nothing in
/// the scale: it covers a part of the scene, of which the text cursor stays in view. Key presses that no item of the
/// scene has the focus for go to the topmost scene window. Nothing in it is pressed unseen (MDoubleTapGuard), and a key
/// that is held down activates once. A destroyed window dismisses what it shows, and destroys only the scene windows
/// that are not kept by their owners (MSceneWindow::DeletionPolicy).
class MApplicationWindow : public QGraphicsView {
    Q_OBJECT

public:
    explicit MApplicationWindow(QWidget *parent = nullptr);
    ~MApplicationWindow() override;

    /// A locked window stays as it is held.
    void setPortraitOrientation() { setOrientation(M::Portrait); }
    void setLandscapeOrientation() { setOrientation(M::Landscape); }
    M::Orientation orientation() const { return m_orientation; }

    void setOrientationLocked(bool locked) { m_orientationLocked = locked; }
    bool isOrientationLocked() const { return m_orientationLocked; }

    /// The page on display, the topmost if there are several; null if there is none.
    MApplicationPage *currentPage() const;

    /// The dialog or list that everything else waits for; null if there is none.
    MSceneWindow *topPanel() const;

    /// The scene in scene pixels: 480 x 814 in portrait.
    QSize sceneSize() const;

    /// The size of a window that shows a scene of @p scene pixels one to one if that fits into @p available, and
    /// otherwise the largest of the same aspect that does.
    static QSize openingSize(const QSize &scene, const QSize &available);

    /// Whether a screen of @p screen is about as narrow as a scene of @p scene, and therefore all for it.
    static bool fillsScreen(const QSize &scene, const QSize &screen);

    /// The height in scene pixels, from the top of the scene, that a software keyboard leaves in view.
    qreal visibleHeight() const;

protected:
    bool viewportEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    friend class MApplication;
    friend class MSceneWindow;

    static MApplicationWindow *latest();

    void setOrientation(M::Orientation orientation);
    void fitScene();
    void makeRoomForKeyboard();
    int heightUnderKeyboard() const;
    void revealCursor();
    void forwardKey(QKeyEvent *event);
    void recallFocus();

    bool take(MSceneWindow *sceneWindow);
    void release(MSceneWindow *sceneWindow);
    void activateTopPanel();

    std::unique_ptr<QGraphicsScene> m_scene;
    MDoubleTapGuard m_guard{this};
    QVector<MSceneWindow *> m_onDisplay;
    QPointer<QGraphicsObject> m_focusBeneathPanels;
    M::Orientation m_orientation = M::Portrait;
    bool m_orientationLocked = false;
    bool m_fillsScreen = false;
    bool m_closing = false;
};
