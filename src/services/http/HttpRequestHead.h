// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpRequest.h"

#include <QNetworkProxy>

// Throws HttpError when a header of the request cannot be written.
void checkHeaders(const HttpRequest &request);

// What stands before the body on a connection made with this proxy, up to and with the empty line.
[[nodiscard]] QByteArray
requestHead(const HttpRequest &request, qint64 bodySize, const QNetworkProxy &proxy);
