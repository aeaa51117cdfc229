// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ConnectRace.h"

#include <utility>

using ErrorCode = boost::system::error_code;

ConnectRace::ConnectRace(boost::asio::io_context &context, Addresses addresses, Done done)
    : m_context(context)
    , m_addresses(std::move(addresses))
    , m_done(std::move(done))
    , m_headStart(context)
{}

void ConnectRace::start()
{
    tryNext();
}

void ConnectRace::abandon()
{
    m_done = {};
    m_headStart.cancel();
    m_sockets.clear();
}

void ConnectRace::tryNext()
{
    if (!m_done || m_sockets.size() == m_addresses.size())
        return;
    const auto &address = m_addresses[m_sockets.size()];
    auto &socket = m_sockets.emplace_back(m_context);
    socket.async_connect(address, [self = shared_from_this(), &socket](ErrorCode error) {
        self->attemptEnded(socket, error);
    });
    m_headStart.expires_after(std::chrono::milliseconds(250));
    m_headStart.async_wait([self = shared_from_this()](ErrorCode cancelled) {
        if (!cancelled)
            self->tryNext();
    });
}

void ConnectRace::attemptEnded(Socket &socket, ErrorCode error)
{
    if (!m_done)
        return; // and the socket is gone
    if (error && ++m_failures < m_addresses.size()) {
        tryNext();
        return;
    }
    auto ended = std::move(socket);
    const auto done = std::exchange(m_done, {});
    abandon();
    done(error, std::move(ended));
}
