// SPDX-License-Identifier: MIT
#pragma once

#include <mbutton.h>

/// Stands in the place of a page that could not be loaded: a cloud that is cut off, and a round arrow, without a word.
/// A click asks for the page once more.
class RetryButton : public MButton {
    Q_OBJECT

public:
    explicit RetryButton(QGraphicsItem *parent);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;
};
