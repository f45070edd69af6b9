// SPDX-License-Identifier: MIT
#pragma once

#include <QNetworkAccessManager>
#include <QStringList>

/// Network of a web view whose addresses are nobody else's business: no other host is told which page a request comes
/// from; where one page of a host asks the same host for another, that host is told as usual. And what is refused by
/// the rules is not asked for.
class DiscreetNetwork : public QNetworkAccessManager {
    Q_OBJECT

public:
    using QNetworkAccessManager::QNetworkAccessManager;

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request, QIODevice *outgoingData) override;

protected slots:
    /// Called by supportedSchemes(): not those that are refused whatever the address.
    QStringList supportedSchemesImplementation() const;
};
