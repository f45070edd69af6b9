// SPDX-License-Identifier: MIT
#pragma once

#include "mwidget.h"

#include <QBasicTimer>
#include <QElapsedTimer>

/// A spinner for work of unknown length, to lie over any background. It turns, and uses the processor, only while it
/// can be seen.
class MProgressIndicator : public MWidget {
    Q_OBJECT

public:
    explicit MProgressIndicator(QGraphicsItem *parent = nullptr);

    /// Spins while true; stands still, from the start, while false.
    void setUnknownDuration(bool unknown);

    /// Whether it is turning at the moment.
    bool isSpinning() const { return m_timer.isActive(); }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

protected:
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void startOrStop();

    QBasicTimer m_timer;
    QElapsedTimer m_clock;
    bool m_unknownDuration = false;
    bool m_paintedSinceTick = false;
};
