// SPDX-License-Identifier: MIT
#include "minputmethodstate.h"

#include <QGuiApplication>
#include <QInputMethod>

MInputMethodState *MInputMethodState::instance()
{
    static MInputMethodState state;
    return &state;
}

void MInputMethodState::closeSoftwareInputPanel()
{
    QGuiApplication::inputMethod()->hide();
}

void MInputMethodState::requestSoftwareInputPanel()
{
    QGuiApplication::inputMethod()->show();
}
