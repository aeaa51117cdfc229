// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QNetworkProxyFactory>

// The system's and the environment's proxy, for requests and for connections opened ahead of them
// alike. Loopback is reached directly.
class SystemProxyFactory final : public QNetworkProxyFactory
{
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &query) override;
};
