// SPDX-License-Identifier: MIT
#pragma once

#include <QWebPage>

/// A page that brings nothing of the engine's or the desktop's own on the screen, and tells no host of another's
/// addresses.
class QuietPage : public QWebPage {
public:
    explicit QuietPage(QObject *parent = nullptr);

    /// True if the last load broke. A load that ends without a page to show (the engine asks for no error page, or
    /// because it will not show what came, or does not know the protocol) has not.
    bool hasFailed() const { return m_hasFailed; }

    // The engine's message about a failed load is English whatever the player's language, and names addresses and error
    // numbers. The quit button is the answer. No other extension either: the file dialog is one.
    bool supportsExtension(Extension extension) const override;
    bool extension(Extension extension, const ExtensionOption *option, ExtensionReturn *output) override;

protected:
    // A script's message boxes would be windows of the desktop's, and a page that opens one after another could not be
    // left.
    void javaScriptAlert(QWebFrame *, const QString &) override { }
    bool javaScriptConfirm(QWebFrame *, const QString &) override { return false; }
    bool javaScriptPrompt(QWebFrame *, const QString &, const QString &, QString *) override { return false; }
    /// The desktop's file dialog would lay the player's files open; no page of the service asks for any.
    QString chooseFile(QWebFrame *, const QString &) override { return QString(); }

private:
    bool m_hasFailed = false;
};
