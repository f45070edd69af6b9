// SPDX-License-Identifier: MIT
#include "discreetnetwork.h"

#include "navigationrules.h"

#include <QNetworkRequest>

#include <algorithm>

QNetworkReply *DiscreetNetwork::createRequest(Operation operation, const QNetworkRequest &request,
                                              QIODevice *outgoingData)
{
    QNetworkRequest discreet(request);
    // The second is what a link's "ping" tells.
    for (const char *header : {"Referer", "Ping-From"}) {
        if (!isSameOrigin(QUrl::fromEncoded(request.rawHeader(header)), request.url()))
            discreet.setRawHeader(header, QByteArray());
    }
    if (isRefused(request.url()))
        discreet.setUrl(QUrl(QStringLiteral("refused:"))); // No protocol: the request fails like any unknown one.
    return QNetworkAccessManager::createRequest(operation, discreet, outgoingData);
}

QStringList DiscreetNetwork::supportedSchemesImplementation() const
{
    QStringList schemes = QNetworkAccessManager::supportedSchemesImplementation();
    const auto isSchemeRefused = [](const QString &scheme) { return isRefused(QUrl(scheme + QLatin1Char(':'))); };
    schemes.erase(std::remove_if(schemes.begin(), schemes.end(), isSchemeRefused), schemes.end());
    return schemes;
}
