// SPDX-License-Identifier: MIT
#pragma once

#include "mbutton.h"

/// Header command: a bitmap, another one while it is held down, and on some a caption.
class SelectButton : public MButton {
    Q_OBJECT

public:
    /// Values of textIdx; any other is as good as none.
    enum Caption { NoCaption = -1, EditCaption = 0, BackCaption = 1 };

    /// @p buttonIdx and @p buttonIdxClicked are the image ids of the two bitmaps; one that has no image draws none.
    /// @p textIdx is the text on it.
    ///
    /// The last two arguments are deliberately not used: a button is placed by adding it to a layout.
    SelectButton(int buttonIdx, int buttonIdxClicked, int textIdx, QGraphicsItem *parent = nullptr,
                 MButtonModel *model = nullptr);

    /// Replaces the image ids; the next repaint shows them.
    void setBackgroundImage(int normalImageIdx, int pressedImageIdx);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

protected:
    QString shownText() const override;

private:
    int m_buttonIdx;
    int m_buttonIdxClicked;
    int nTextIdx;
};

/// Footer tab: checkable, with an icon, a caption and a count of unread things. Drawn for a size of 90 by 70.
class ToggleButton : public MButton {
    Q_OBJECT

public:
    /// @p iconIdx is the image id of the icon. It also chooses the caption; only the icons of the four sections have
    /// one.
    explicit ToggleButton(int iconIdx, QGraphicsItem *parent = nullptr, MButtonModel *model = nullptr);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

    /// Number in the badge; 0 hides it. The next repaint shows a new number.
    int m_badgeNumber = 0;

protected:
    /// The caption and the number.
    QString shownText() const override;

private:
    int m_iconIdx;
};
