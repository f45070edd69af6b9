// SPDX-License-Identifier: MIT
#pragma once

#include <QWebEngineHistory>

/// The pages that a web page has shown.
class QWebHistory {
public:
    explicit QWebHistory(QWebEngineHistory &engine)
        : m_engine(engine)
    {
    }

    int count() const { return m_engine.count(); }
    bool canGoBack() const { return m_engine.canGoBack(); }
    /// Forgets all but the page on display.
    void clear() { m_engine.clear(); }

private:
    QWebEngineHistory &m_engine;
};
