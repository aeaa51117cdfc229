// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QNetworkProxy>
#include <QUrl>

// The proxy of the system's or the environment's settings for a URL; none for loopback. May block.
[[nodiscard]] QNetworkProxy systemProxyFor(const QUrl &url);
