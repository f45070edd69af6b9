// SPDX-License-Identifier: MIT
#pragma once

#include "maccessibility.h"
#include "mdoubletapguard.h"

#include <QGraphicsWebView>

#include <optional>

class MFocusRing;
class MPositionBar;
class QTouchEvent;
class QuietPage;
class RetryButton;

/// Web view that scrolls under a dragging finger and coasts on after it is lifted. It has no scroll bars and no
/// context menu. A finger on a touch screen does what the mouse does; a wheel and the paging keys scroll too. Where a
/// load ends without any page on display, a picture of its own takes the page's place, and asks for it once more.
///
/// The scroll state is shared by all instances: there is meant to be one at a time.
class MyQWebView : public QGraphicsWebView, public MAccessibleDocument, public MChangingContent {
    Q_OBJECT

public:
    MyQWebView();

    /// Whether presses and taps reach the page (the initial state). Otherwise the view can only be scrolled.
    void setEditable(bool editable);

    /// Whether the arrow keys go from link to link. At first they scroll.
    void setArrowsWalk(bool walk) { m_doArrowsWalk = walk; }

    /// Loads @p url and reports it as the address at once. Hides the base class's, which does the same but crashes
    /// where a picture is on display.
    void setUrl(const QUrl &url);

    /// Goes back one step in the history, if there is one.
    void back();

    /// True if the last load ended without a page to show (an empty answer, a download, an address for another program)
    /// and has left the page before it on display.
    bool keepsPage() const;

    /// Another number for every page, and for a page that has been loaded to its end.
    int contentNumber() const override { return m_contentNumber; }

    QString documentTitle() const override { return title(); }
    QString documentText() const override;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

public slots:
    /// One step of the coasting: moves the page on and slows down.
    void updateScroll();

protected:
    bool event(QEvent *event) override;
    bool sceneEvent(QEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    void wheelEvent(QGraphicsSceneWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void resizeEvent(QGraphicsSceneResizeEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    QuietPage *quietPage() const;
    void showRetry(bool shown);
    void initDrag();
    void forgetDrag();
    void touchEvent(QTouchEvent *event);
    void followFinger(const QTouchEvent *event);
    void scrollPage(int x, int y);
    void showFocusRing(bool shown);
    bool moveFocusInside(bool next);

    /// Setting an address has taken the last page down, and no other has come since.
    bool m_isEmpty = true;
    QUrl m_address; ///< the one that was set, for another try
    RetryButton *m_retry = nullptr; ///< a child item, once it has been needed
    bool m_isEditable = true;
    bool m_doArrowsWalk = false;
    bool m_isFocusInside = false; ///< a link or field of the page has the focus, as far as is known here
    MFocusRing *m_focusRing = nullptr; // a child item
    bool m_hadFocusRing = false; // when the focus left for another panel or window
    int m_contentNumber = 0;
    /// The script of the page keeps the touch on the screen for itself.
    bool m_isTouchTaken = false;
    /// The finger that scrolls; further ones are ignored.
    std::optional<int> m_finger;
    MPositionBar *m_positionBar = nullptr; // a child item, once the page has been scrolled
};
