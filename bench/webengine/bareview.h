// SPDX-License-Identifier: MIT
#pragma once

#include <QWebEngineView>

/// What the companion is compared with: the engine's own view in a window of the companion's size, and nothing else. It
/// follows a dragging pointer by the shortest possible way.
class BareWindow : public QWidget {
    Q_OBJECT

public:
    BareWindow();

    void setUrl(const QUrl &url) { m_webView.setUrl(url); }
    /// What hears of the mouse.
    QWidget *viewport() { return this; }

signals:
    void loadFinished(bool ok);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    QWebEngineView m_webView;
    int m_lastY = 0;
};
