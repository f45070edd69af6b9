// SPDX-License-Identifier: MIT
#include "discreetnetwork.h"

#include "navigationrules.h"

#include <QNetworkRequest>

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
