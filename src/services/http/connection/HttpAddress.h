// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

// Where requests go: to the host of a URL, or to a socket of this machine.
struct HttpAddress
{
    HttpAddress() = default;
    // Implicit: every URL is an address.
    HttpAddress(QUrl hostUrl); // NOLINT(google-explicit-constructor)

    QUrl url; // what is asked for, of the scheme http or https
    QString socketPath; // of the unix socket that is asked instead of the URL's host; may be empty

    bool operator==(const HttpAddress &) const = default;
};

// Whether the URL is absolute, names a host and speaks HTTP, with or without TLS.
[[nodiscard]] bool isHttp(const HttpAddress &address);

// The address that a setting holds, parsed strictly: a URL as above, or "http+unix://", the
// absolute path of a socket with percent-encoded slashes, and what is asked for. Nothing when it is
// neither.
[[nodiscard]] std::optional<HttpAddress> parseHttpAddress(const QString &text);

// The part of an address that says where to connect: socket, scheme, host and port, which is always
// there.
[[nodiscard]] HttpAddress originOf(const HttpAddress &address);
