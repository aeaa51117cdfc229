// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "LocalizedError.h"

// A request that got no complete answer, or that could not be sent at all.
class HttpError final : public LocalizedError
{
public:
    enum class Kind {
        Cancelled, // the session closed while the request was in flight
        TimedOut, // nothing moved in either direction for the request's limit
        Network, // no connection, or it broke before the answer was complete
        Tls, // the server's certificate or the handshake was refused
        Closed, // the session had closed before the request was made
        InvalidRequest, // a header that cannot be written on the wire
    };

    HttpError(Kind kind, const QString &description);

    [[nodiscard]] Kind kind() const { return m_kind; }

private:
    Kind m_kind;
};
