// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpAddress.h"

#include <QNetworkProxy>

#include <boost/asio/generic/stream_protocol.hpp>
#include <boost/asio/io_context.hpp>
#include <exception>
#include <functional>
#include <memory>
#include <vector>

// The way to a server: the proxy, which may be none, and the addresses of the first peer on it.
struct Route
{
    QNetworkProxy proxy{QNetworkProxy::NoProxy};
    std::vector<boost::asio::generic::stream_protocol::endpoint> addresses;
};

// Finds the way to servers. Each search has a thread of its own, which nobody waits for: the
// system's functions may take half a minute and cannot be interrupted.
class RouteLookup final
{
public:
    using Found = std::function<void(const Route &route, const std::exception_ptr &error)>;

    explicit RouteLookup(boost::asio::io_context &context);
    // What is under way then ends without a call.
    ~RouteLookup();
    RouteLookup(const RouteLookup &) = delete;
    RouteLookup &operator=(const RouteLookup &) = delete;

    // `origin` names its port. Calls back on the context's thread, with a route or an HttpError;
    // the callback may be destroyed on another thread. Throws std::system_error when no thread can
    // be started.
    void find(const HttpAddress &origin, const Found &found);

private:
    struct Home;
    std::shared_ptr<Home> m_home;
};
