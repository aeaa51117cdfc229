// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QNetworkProxy>
#include <QUrl>

#include <memory>

// What is said to a proxy until it leads to a server; knows no network.
class ProxyHandshake
{
public:
    virtual ~ProxyHandshake() = default;

    struct Step
    {
        QByteArray message; // to be sent now, may be empty
        bool isDone = false;
    };
    // The next step, given everything that was received; what is used of it is removed. To be
    // called once at the beginning, and whenever more was received. Throws HttpError.
    [[nodiscard]] virtual Step next(QByteArray &received) = 0;
};

// The handshake for a server with this proxy; null when none is needed. `url` names its port.
// Throws HttpError for a kind of proxy that cannot be used.
[[nodiscard]] std::unique_ptr<ProxyHandshake> makeProxyHandshake(const QNetworkProxy &proxy,
                                                                 const QUrl &url);
// Whether requests to this URL are made of the proxy itself, which passes them on.
[[nodiscard]] bool isForwarded(const QNetworkProxy &proxy, const QUrl &url);
// The value of a header that gives this user and password.
[[nodiscard]] QByteArray basicCredentials(const QString &user, const QString &password);
