// SPDX-License-Identifier: MIT
#pragma once

#include "mwidget.h"

#include <QFont>
#include <QPointer>
#include <QString>

class MButtonGroup;
class MButtonModel;
class MFocusRing;

/// A push button for thumb, mouse and keyboard. A press inside holds it down, a release inside clicks it; a press that
/// leaves it comes up and does not click. Space and Return click it while it has the keyboard focus, which it takes by
/// Tab only, so that a tap leaves the focus (and the software keyboard) where it is.
///
/// What is drawn smaller than a thumb reacts around it too, as far as halfway to the next button.
///
/// A text that is too wide is drawn with narrower letters, then elided at its right end. Every signal's receiver may
/// delete the button. Subclasses that paint themselves are repainted whenever isDown() or isChecked() changes; the
/// focus ring is drawn over them.
class MButton : public MWidget {
    Q_OBJECT

public:
    /// View types: a framed button, and one of which only the text shows.
    static const QString defaultType;
    static const QString iconType;

    /// @param model accepted for its place in the signature; a button keeps its state itself
    explicit MButton(QGraphicsItem *parent = nullptr, MButtonModel *model = nullptr);
    explicit MButton(const QString &text, QGraphicsItem *parent = nullptr);
    /// Leaves its group.
    ~MButton() override;

    QString text() const { return m_text; }

    /// Null if it is in none.
    MButtonGroup *group() const;

    bool isDown() const { return m_down; }
    /// Shows the button held down or not; emits nothing.
    void setDown(bool down);

    bool isCheckable() const { return m_checkable; }
    /// A button that stops being checkable is unchecked.
    void setCheckable(bool checkable);

    bool isChecked() const { return m_checked; }

    void setViewType(const QString &type);

    /// Whether it shows that the keyboard is here: it has the focus, and not from a finger.
    bool hasFocusRing() const { return m_focusRing; }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

public slots:
    /// Checks or unchecks a checkable button; ignored for any other. Checking one of an exclusive group unchecks the
    /// one that was checked.
    void setChecked(bool checked);
    /// Clicks as a tap does; a disabled button ignores it.
    void click();

signals:
    void pressed();
    void released();
    /// Comes after released(); @p checked is the new state, always false for a button that is not checkable.
    void clicked(bool checked = false);
    void toggled(bool checked);

protected:
    QString shownText() const override { return m_text; }
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QGraphicsSceneResizeEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void ungrabMouseEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

    /// The radius of the corners, which the focus ring goes round.
    virtual qreal cornerRadius() const;

private:
    friend class MButtonGroup;
    class Margin;

    void init();
    void press();
    void cancelPress();
    bool staysChecked() const;
    QRectF reactiveArea() const;
    void fitMargin();
    void drawFrame(QPainter *painter) const;
    void drawText(QPainter *painter);
    void fitText(qreal width);
    void showFocusRing(bool shown);

    QString m_text;
    QString m_viewType = defaultType;
    QString m_fittedText; // with m_fittedFont, once m_fitted
    QFont m_fittedFont;
    bool m_fitted = false;
    QPointer<MButtonGroup> m_group;
    MFocusRing *m_focusRing = nullptr; // a child item
    bool m_hadFocusRing = false; // when the focus left for another panel or window
    Margin *m_margin = nullptr; // a child item, while the button is smaller than a thumb
    bool m_down = false;
    bool m_checkable = false;
    bool m_checked = false;
    bool m_mousePressed = false;
    bool m_keyPressed = false;
};
