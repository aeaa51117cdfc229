// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

// Whether the URL is absolute, names a host and speaks HTTP, with or without TLS.
[[nodiscard]] bool isHttpURL(const QUrl &url);

// The URL that a setting holds, parsed strictly; nothing when it is not one of the above.
[[nodiscard]] std::optional<QUrl> parseHttpURL(const QString &text);

// The part of an HTTP URL that says where to connect: scheme, host and port, which is always there.
[[nodiscard]] QUrl originOf(const QUrl &url);
