// SPDX-License-Identifier: MIT
#pragma once

#include "mnamespace.h"
#include "mscenewindow.h"

#include <QVector>

class MButton;

/// A modal box over the dimmed page: a title, a central widget and a row of buttons, each of them optional.
///
/// While it is on display nothing beneath it gets any input. Escape rejects it; Return accepts it, also from a
/// single-line field inside; Tab goes round in it. The focus starts in the first field of the central widget, and goes
/// back to where it was before when the dialog leaves.
class MDialog : public MSceneWindow {
    Q_OBJECT

public:
    /// The usual results.
    enum DialogCode { Rejected, Accepted };

    MDialog();

    /// Makes a button for each one in @p buttons. OK accepts, Cancel rejects.
    explicit MDialog(const QString &title, M::StandardButtons buttons = M::NoStandardButton);

    /// Plain text of one line, elided where it does not fit. Without a title there is no title bar.
    void setTitle(const QString &title);
    QString title() const { return m_title; }

    /// Puts @p widget in the place of the central widget, which is destroyed. The dialog owns it. It gets the width of
    /// the box, and the height that it prefers for that, as far as there is room.
    void setCentralWidget(QGraphicsWidget *widget);
    QGraphicsWidget *centralWidget() const { return m_centralWidget; }

    void setGeometry(const QRectF &rect) override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

public slots:
    /// done(Accepted) and done(Rejected), if the dialog is on display and not being ended already. Escape, the Cancel
    /// button and a tap beside the box call reject(); a dialog that leaves in another way is done without it.
    void accept();
    virtual void reject();

    /// Ends the dialog with @p result, a DialogCode: it is dismissed. Does nothing if the dialog is not on display.
    /// However it ends, it passes through here, once: with Rejected when it leaves in any other way.
    virtual void done(int result);

protected:
    QString shownText() const override { return m_title; }
    /// Whether a tap beside the box rejects. False at the start.
    void setDismissedByTapOutside(bool dismissed) { m_dismissedByTapOutside = dismissed; }

    /// The room between the box and the central widget. MStyle::popupPadding at the start.
    void setPadding(qreal padding) { m_padding = padding; }

    /// Puts everything in its place; called whenever something has changed.
    void arrange();

    void backAsked() override { reject(); }
    void entering() override;
    void leaving() override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addButton(const QString &text, void (MDialog::*answer)());
    void finish(int result);
    void paintGlass(QPainter *painter) const;
    void paintShadow(QPainter *painter) const;
    void paintTitle(QPainter *painter) const;

    QString m_title;
    QPointer<QGraphicsWidget> m_centralWidget;
    QVector<MButton *> m_buttons;
    QRectF m_box;
    qreal m_padding;
    bool m_isOpen = false; // and not being ended already
    bool m_dismissedByTapOutside = false;
};
