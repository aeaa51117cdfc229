// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpConnection.h"

#include <list>
#include <vector>

// The connections that no request uses, and those that are being opened. One thread only.
class ConnectionPool final
{
public:
    // The connection is null when there is an error, an HttpError.
    using Taken = std::function<void(const std::shared_ptr<HttpConnection> &connection,
                                     const std::exception_ptr &error)>;

    explicit ConnectionPool(ConnectionMakers &makers);

    // Opens a connection, unless one was opened or used within the last seconds; a longer idle one
    // is closed as soon as the new one is there.
    void openAhead(const HttpAddress &origin);
    // Hands out a connection that is idle, else one that is or will be opened.
    void take(const HttpAddress &origin, const Taken &taken);
    // Keeps a connection that was released, or was just opened, for the next request.
    void keep(const std::shared_ptr<HttpConnection> &connection);
    // Ends everything without a call.
    void close();

private:
    using Clock = std::chrono::steady_clock;

    struct Opening
    {
        HttpAddress origin;
        Taken waiter; // empty when nobody waits
        std::shared_ptr<ConnectionOpener> opener;
        Clock::time_point startedAt;
    };

    void open(const HttpAddress &origin, const Taken &waiter);
    void finish(const Opening &opening, OpenedConnection opened, const std::exception_ptr &error);
    [[nodiscard]] Opening *youngOpening(const HttpAddress &origin);
    [[nodiscard]] std::shared_ptr<HttpConnection> idleConnection(const HttpAddress &origin);

    ConnectionMakers &m_makers;
    std::list<Opening> m_openings;
    std::vector<std::shared_ptr<HttpConnection>> m_idle; // at most one an origin
};
