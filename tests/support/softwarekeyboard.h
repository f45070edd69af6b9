// SPDX-License-Identifier: MIT
#pragma once

#include <QGuiApplication>
#include <QInputMethod>
#include <QWidget>

#include <private/qinputmethod_p.h>
#include <qpa/qplatforminputcontext.h>

/// A software keyboard without keys: it only remembers whether it is on the screen. In place for its lifetime.
class SoftwareKeyboard : public QPlatformInputContext {
public:
    SoftwareKeyboard() { QInputMethodPrivate::get(QGuiApplication::inputMethod())->testContext = this; }
    ~SoftwareKeyboard() override { QInputMethodPrivate::get(QGuiApplication::inputMethod())->testContext = nullptr; }

    bool isValid() const override { return true; }
    void showInputPanel() override { setVisible(true); }
    void hideInputPanel() override { setVisible(false); }
    bool isInputPanelVisible() const override { return visible; }

private:
    void setVisible(bool shown)
    {
        visible = shown;
        emitInputPanelVisibleChanged();
    }

    bool visible = false;
};

/// One that covers the lower half of @p window.
class HalfScreenKeyboard : public SoftwareKeyboard {
public:
    const QWidget *window = nullptr;

    QRectF keyboardRect() const override
    {
        const QSizeF half(window->width(), window->height() / 2.0);
        return QRectF(window->mapToGlobal(QPoint(0, window->height() / 2)), half);
    }
};
