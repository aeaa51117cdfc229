// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpBody.h"

#include <QByteArray>
#include <QList>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

// One POST request.
struct HttpRequest
{
    QUrl url;
    // Name and value, on the wire in this order.
    QList<std::pair<QByteArray, QByteArray>> headers;
    // Opens the body. Called once, before any network use, on the session's thread; what it throws,
    // sending throws.
    std::function<std::unique_ptr<HttpBody>()> openBody;
    // How long neither a sent nor a received byte is put up with.
    std::chrono::milliseconds inactivityLimit = std::chrono::seconds(60);
};
