// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>

/// Switches of a web page.
class QWebSettings {
public:
    /// The tiles and the flattening of frames belong to the other engine: their state is kept, and has no effect.
    enum WebAttribute { JavascriptEnabled = 1, TiledBackingStoreEnabled = 20, FrameFlatteningEnabled = 21 };

    /// Without JavascriptEnabled no script of a document runs that begins from now on, and the objects that were given
    /// to pages hear nothing.
    void setAttribute(WebAttribute attribute, bool on) { m_attributes[attribute] = on; }
    bool testAttribute(WebAttribute attribute) const
    {
        return m_attributes.value(attribute, attribute == JavascriptEnabled);
    }

private:
    QMap<WebAttribute, bool> m_attributes;
};
