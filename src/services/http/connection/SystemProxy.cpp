// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SystemProxy.h"

#include <QHostAddress>
#include <QNetworkProxyFactory>
#include <QNetworkProxyQuery>

using namespace Qt::StringLiterals;

QNetworkProxy systemProxyFor(const QUrl &url)
{
    const QNetworkProxy none(QNetworkProxy::NoProxy);
    if (url.host() == "localhost"_L1 || QHostAddress(url.host()).isLoopback())
        return none;
    return QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url)).value(0, none);
}
