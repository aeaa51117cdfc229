// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <boost/asio/generic/stream_protocol.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/steady_timer.hpp>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

// Connects to the first of several addresses that answers. They are tried in their order, a quarter
// of a second after one another, so that one that swallows everything costs no more than that.
class ConnectRace final : public std::enable_shared_from_this<ConnectRace>
{
public:
    using Socket = boost::asio::generic::stream_protocol::socket;
    using Addresses = std::vector<boost::asio::generic::stream_protocol::endpoint>;
    // The socket is connected unless there is an error, the last attempt's.
    using Done = std::function<void(boost::system::error_code, Socket)>;

    ConnectRace(boost::asio::io_context &context, Addresses addresses, Done done);

    void start();
    // Ends without a call.
    void abandon();

private:
    void tryNext();
    void attemptEnded(Socket &socket, boost::system::error_code error);

    boost::asio::io_context &m_context;
    Addresses m_addresses;
    Done m_done; // empty once it has ended
    std::deque<Socket> m_sockets;
    size_t m_failures = 0;
    boost::asio::steady_timer m_headStart;
};
