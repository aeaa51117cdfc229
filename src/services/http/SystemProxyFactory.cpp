// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SystemProxyFactory.h"

#include <QHostAddress>

using namespace Qt::StringLiterals;

namespace {

bool isLoopback(const QString &host)
{
    return host == "localhost"_L1 || QHostAddress(host).isLoopback();
}

} // namespace

QList<QNetworkProxy> SystemProxyFactory::queryProxy(const QNetworkProxyQuery &query)
{
    constexpr auto aheadPrefix = "preconnect-"_L1;
    if (isLoopback(query.peerHostName()))
        return {QNetworkProxy(QNetworkProxy::NoProxy)};
    if (!query.protocolTag().startsWith(aheadPrefix))
        return systemProxyForQuery(query);
    auto url = query.url();
    url.setScheme(url.scheme().mid(aheadPrefix.size()));
    return systemProxyForQuery(QNetworkProxyQuery(url));
}
