#pragma once

#include "mnamespace.h"
#include "mscenewindow.h"

#include <QVector>

class MButton;

/// A modal box over the dimmed page, with a title, a central widget and a row of buttons.
///
/// While it is on display nothing beneath it gets any input. Escape rejects it, Return accepts it. The focus goes back
/// to where it was when it leaves.
class MDialog : public MSceneWindow {
    Q_OBJECT

public:
    /// The usual results.
    enum DialogCode { Rejected, Accepted };

    MDialog();

    /// Makes a button for each one in \a buttons. OK accepts, Cancel rejects.
    explicit MDialog(const QString &title, M::StandardButtons buttons = M::NoStandardButton);

    void setTitle(const QString &title);
    QString title() const { return m_title; }

    /// Puts \a widget in the place of the central widget, which is destroyed. The dialog owns it.
    void setCentralWidget(QGraphicsWidget *widget);
    QGraphicsWidget *centralWidget() const { return m_centralWidget; }

    /// The code that it was last done with; Rejected before that.
    int result() const { return m_result; }

    void setGeometry(const QRectF &rect) override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

public slots:
    /// Do nothing unless the dialog is on display.
    void accept();
    void reject();

    /// Ends the dialog with \a result: it is dismissed, and its signals are emitted. However the dialog ends, it does
    /// so through this, once: with Rejected when it is dismissed in any other way.
    virtual void done(int result);

signals:
    void finished(int result);
    void accepted();
    void rejected();

protected:
    /// Whether a tap beside the box rejects. False at the start.
    void setDismissedByTapOutside(bool dismissed) { m_dismissedByTapOutside = dismissed; }

    void entering() override;
    void leaving() override;
    void left() override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void wheelEvent(QGraphicsSceneWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class State { Idle, Open, Finishing };

    void finish(int result);
    void arrange();

    QString m_title;
    QPointer<QGraphicsWidget> m_centralWidget;
    QVector<MButton *> m_buttons;
    QPointer<QGraphicsObject> m_focusBefore;
    QRectF m_box;
    int m_result = Rejected;
    State m_state = State::Idle;
    bool m_dismissedByTapOutside = false;
};
