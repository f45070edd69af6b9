// SPDX-License-Identifier: MIT
#pragma once

/// The software keyboard.
class MInputMethodState {
public:
    static MInputMethodState *instance();

    /// Takes the keyboard off the screen. The text field that it wrote into keeps the focus, so a real keyboard goes
    /// on writing there. Harmless where there is no software keyboard.
    static void closeSoftwareInputPanel();

    /// Asks for the keyboard for the text field that has the focus.
    static void requestSoftwareInputPanel();
};
