// SPDX-License-Identifier: MIT
#pragma once

#include <QWebPage>

/// A page that brings nothing of the engine's or the desktop's own on the screen.
class QuietPage : public QWebPage {
public:
    using QWebPage::QWebPage;

    // The engine's message about a failed load is English whatever the player's language, and names addresses and error
    // numbers. The quit button is the answer.
    bool supportsExtension(Extension extension) const override;
    bool extension(Extension extension, const ExtensionOption *option, ExtensionReturn *output) override;

protected:
    // A script's message boxes would be windows of the desktop's, and a page that opens one after another could not be
    // left.
    void javaScriptAlert(QWebFrame *, const QString &) override { }
    bool javaScriptConfirm(QWebFrame *, const QString &) override { return false; }
    bool javaScriptPrompt(QWebFrame *, const QString &, const QString &, QString *) override { return false; }
};
