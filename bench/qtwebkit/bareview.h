// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QGraphicsWebView>

/// What the companion is compared with: a web view with the companion's settings in a graphics view of the
/// companion's size, and nothing else. It follows a dragging pointer by the shortest possible way.
class BareWebView : public QGraphicsWebView {
    Q_OBJECT

public:
    BareWebView();

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;

private:
    int m_lastY = 0;
};

class BareWindow : public QGraphicsView {
    Q_OBJECT

public:
    BareWindow();

    void setUrl(const QUrl &url) { m_webView.setUrl(url); }

signals:
    void loadFinished(bool ok);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QGraphicsScene m_scene;
    BareWebView m_webView;
};
