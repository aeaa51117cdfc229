// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpAddress.h"
#include "HttpBody.h"

#include <QByteArray>
#include <QList>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

// One POST request.
struct HttpRequest
{
    // A user and a password in its URL are sent, unless `headers` has an Authorization.
    HttpAddress address;
    // Name and value, on the wire in this order.
    QList<std::pair<QByteArray, QByteArray>> headers;
    // Opens the body. Called once, before any network use, on the sender's thread; what it throws,
    // sending throws. The body is read on the session's thread.
    std::function<std::unique_ptr<HttpBody>()> openBody;
    // How long is put up with neither a byte received nor one acknowledged by the peer.
    std::chrono::milliseconds inactivityLimit = std::chrono::seconds(60);
};
