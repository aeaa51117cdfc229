// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpURL.h"

using namespace Qt::StringLiterals;

bool isHttpURL(const QUrl &url)
{
    return url.isValid() && !url.host().isEmpty()
        && (url.scheme() == "http"_L1 || url.scheme() == "https"_L1);
}

std::optional<QUrl> parseHttpURL(const QString &text)
{
    const QUrl url(text, QUrl::StrictMode);
    return isHttpURL(url) ? std::optional(url) : std::nullopt;
}

QUrl originOf(const QUrl &url)
{
    QUrl origin;
    origin.setScheme(url.scheme());
    origin.setHost(url.host());
    origin.setPort(url.port(url.scheme() == "https"_L1 ? 443 : 80));
    return origin;
}
