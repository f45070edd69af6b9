// SPDX-License-Identifier: MIT
#pragma once

#include "mwidget.h"

#include <QPointer>
#include <QPropertyAnimation>
#include <QVector>

class MApplicationWindow;

/// Something that appears in an MApplicationWindow and fills it: a page, a dialog.
///
/// It may live on the stack or as a member, be destroyed before or after the window, on display or not, and from
/// within its own signals.
class MSceneWindow : public MWidget {
    Q_OBJECT

public:
    /// What becomes of a scene window that has left the display.
    enum DeletionPolicy {
        KeepWhenDone, ///< It belongs to somebody else, who may let it appear again; nothing here ever destroys it.
        DestroyWhenDone, ///< It is destroyed by the event loop after it left in any way, or with its window.
        DestroyWhenDismissed, ///< It is destroyed by the event loop after dismiss(), or with its window.
    };

    explicit MSceneWindow(QGraphicsItem *parent = nullptr);
    ~MSceneWindow() override;

    /// Shows it on top of everything in @p window. On display already, only the policy changes. With no window there
    /// is nothing to show: the policy is carried out as if it had been dismissed.
    void appear(MApplicationWindow *window, DeletionPolicy policy = KeepWhenDone);

    /// The same in the active window (MApplicationWindow::active()).
    void appear(DeletionPolicy policy = KeepWhenDone);

    /// Whether it has appeared and not left yet.
    bool isOnDisplay() const { return m_onDisplay; }

    /// Whether it is on display and fully visible: from appeared() on.
    bool hasAppeared() const { return m_onDisplay && m_fade.state() == QAbstractAnimation::Stopped; }

    /// The window that it appeared in last; null before that, and when the window is gone.
    MApplicationWindow *applicationWindow() const;

    // Not slots, deliberately: scripts of a page in a web view can call every slot of an object that is shown to them.

    /// Takes it off the display for a while.
    void disappear();

    /// Takes it off the display for good.
    void dismiss();

signals:
    /// It is fully visible.
    void appeared();
    /// It is off the display.
    void disappeared();

protected:
    /// Called for the keys that lead back (Escape, Alt and Left, Back) while it is the topmost.
    virtual void backAsked() { }

    /// The visible, enabled widgets below @p parent that Tab stops at, in the order of reading; none below null. What
    /// takes the focus by a click only is one of them: whoever has no mouse needs it just as well.
    static QVector<QGraphicsWidget *> tabStops(const QGraphicsItem *parent);

    /// Tab goes round and round inside: what lies outside is covered.
    bool focusNextPrevChild(bool next) override;

    /// Called when it is on display, before it is painted for the first time.
    virtual void entering() { }
    /// Called while it is still on display, when it is about to leave. May leave by itself.
    virtual void leaving() { }
    /// Called when it is off the display, before disappeared().
    virtual void left() { }

    /// How long it fades in, in milliseconds; 0, the default, to be there at once.
    void setFadeDuration(int milliseconds) { m_fade.setDuration(milliseconds); }

private:
    bool isKept() const { return m_policy == KeepWhenDone; }
    void leave(bool dismissed);
    void leaveClosingWindow();
    void destroySoon();

    QPointer<MApplicationWindow> m_window;
    QPropertyAnimation m_fade;
    DeletionPolicy m_policy = KeepWhenDone;
    bool m_onDisplay = false;
};
