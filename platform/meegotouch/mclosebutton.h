// SPDX-License-Identifier: MIT
#pragma once

#include "mbutton.h"

/// A round button with a cross that closes what covers the screen. It stands over whatever is shown and draws itself so
/// that it can be seen on everything; its text says what it does and is not drawn.
class MCloseButton : public MButton {
    Q_OBJECT

public:
    explicit MCloseButton(const QString &text, QGraphicsItem *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;

protected:
    qreal cornerRadius() const override;
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;
};
