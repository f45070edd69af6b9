// SPDX-License-Identifier: MIT
#include "quietpage.h"

#include "discreetnetwork.h"

#include <QNetworkReply>

QuietPage::QuietPage(QObject *parent)
    : QWebPage(parent)
{
    setNetworkAccessManager(new DiscreetNetwork(this));
    connect(this, &QWebPage::loadStarted, this, [this] { m_hasFailed = false; });
}

bool QuietPage::supportsExtension(Extension extension) const
{
    return extension == ErrorPageExtension;
}

bool QuietPage::extension(Extension extension, const ExtensionOption *option, ExtensionReturn *)
{
    if (extension != ErrorPageExtension)
        return false;
    const auto *error = static_cast<const ErrorPageExtensionOption *>(option);
    const bool hasNothingToShow = error->domain == WebKit
        || (error->domain == QtNetwork && error->error == QNetworkReply::ProtocolUnknownError);
    if (error->frame == mainFrame() && !hasNothingToShow)
        m_hasFailed = true;
    return false;
}
