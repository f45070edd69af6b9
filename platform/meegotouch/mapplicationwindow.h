// SPDX-License-Identifier: MIT
#pragma once

#include "mdoubletapguard.h"

#include <QGraphicsObject>
#include <QGraphicsView>
#include <QPointer>
#include <QVector>

#include <memory>

class QGraphicsWidget;

/// The window of an application: shows one scene of a phone's size, whatever the size of the window.
///
/// Some keys are the window's own, before anything in it sees them: Ctrl and Q closes it, the keys that lead back go to
/// the topmost scene window, and Tab moves the focus in that one.
///
/// It opens with one scene pixel a screen pixel, or smaller where the screen is, and on a phone's screen as the whole
/// of it; resized, it scales the scene with its aspect kept, centred on black. A software keyboard changes nothing in
/// the scale: it covers a part of the scene, of which the text cursor stays in view. Key presses that no item of the
/// scene has the focus for go to the topmost scene window. Nothing in it is pressed unseen (MDoubleTapGuard), and a key
/// that is held down activates once. Closed, it ends the application. A destroyed window dismisses what it shows, and
/// destroys only the scene windows that are not kept by their owners (MSceneWindow::DeletionPolicy).
class MApplicationWindow : public QGraphicsView {
    Q_OBJECT

public:
    explicit MApplicationWindow(QWidget *parent = nullptr);
    ~MApplicationWindow() override;

    /// The window that the user is in, or else the one that was made last; null when there is none.
    static MApplicationWindow *active();

    /// Deliberately nothing to do: portrait, and locked, is how every window is held. An application may say that it
    /// counts on it.
    void setPortraitOrientation() { }
    void setOrientationLocked(bool) { }

    /// The dialog or list that everything else waits for; null if there is none.
    QGraphicsWidget *topPanel() const;

    /// The scene in scene pixels.
    QSize sceneSize() const;

    /// The size of a window that shows a scene of @p scene pixels one to one if that fits into @p available, and
    /// otherwise the largest of the same aspect that does.
    static QSize openingSize(const QSize &scene, const QSize &available);

    /// Whether a screen of @p screen is about as narrow as a scene of @p scene, and therefore all for it.
    static bool fillsScreen(const QSize &scene, const QSize &screen);

    /// The height in scene pixels, from the top of the scene, that a software keyboard leaves in view.
    qreal visibleHeight() const;

signals:
    /// A key that leads back (Escape, Alt and Left, Back) was pressed; it is for @p topmost, a scene window.
    void backKeyPressed(QGraphicsWidget *topmost);
    /// Tab, or Backtab for not @p next, was pressed with the focus nowhere; it is for @p topmost, a scene window.
    void tabKeyPressed(QGraphicsWidget *topmost, bool next);
    /// The window is being destroyed, with all that its scene still holds then.
    void closing();

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    friend class MSceneWindow;

    void fitScene();
    void makeRoomForKeyboard();
    int heightUnderKeyboard() const;
    void revealCursor();
    bool steer(const QKeyEvent *event);
    void forwardKey(QKeyEvent *event);
    void recallFocus();

    bool take(QGraphicsWidget *sceneWindow);
    void release(QGraphicsWidget *sceneWindow);
    void activateTopPanel();

    std::unique_ptr<QGraphicsScene> m_scene;
    MDoubleTapGuard m_guard{this};
    QVector<QGraphicsWidget *> m_onDisplay; ///< scene windows, the topmost last
    QPointer<QGraphicsObject> m_focusBeneathPanels;
    bool m_fillsScreen = false;
    bool m_closing = false;
};
