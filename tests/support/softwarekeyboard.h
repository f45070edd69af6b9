// SPDX-License-Identifier: MIT
#pragma once

#include <QGuiApplication>
#include <QInputMethod>

#include <private/qinputmethod_p.h>
#include <qpa/qplatforminputcontext.h>

/// A software keyboard without keys: it only remembers whether it is on the screen. In place for its lifetime.
class SoftwareKeyboard : public QPlatformInputContext {
public:
    SoftwareKeyboard() { QInputMethodPrivate::get(QGuiApplication::inputMethod())->testContext = this; }
    ~SoftwareKeyboard() override { QInputMethodPrivate::get(QGuiApplication::inputMethod())->testContext = nullptr; }

    bool isValid() const override { return true; }
    void showInputPanel() override { visible = true; }
    void hideInputPanel() override { visible = false; }
    bool isInputPanelVisible() const override { return visible; }

private:
    bool visible = false;
};
