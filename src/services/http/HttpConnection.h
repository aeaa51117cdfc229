// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ConnectionOpener.h"

#include <array>
#include <chrono>
#include <string_view>

// An open connection, used for one request after another. It always listens, so that one that the
// peer has closed, or that broke, is known as such.
class HttpConnection final : public std::enable_shared_from_this<HttpConnection>
{
public:
    using ErrorCode = boost::system::error_code;
    // Bytes that were received, or the error with which listening ended.
    using Receiver = std::function<void(ErrorCode, std::string_view)>;

    HttpConnection(boost::asio::io_context &context, HttpAddress origin, OpenedConnection opened);

    // Begins to listen, and to be idle. Once, first of all.
    void start();

    [[nodiscard]] const HttpAddress &origin() const { return m_origin; }
    [[nodiscard]] const QNetworkProxy &proxy() const { return m_opened.proxy; }
    // How long it has been idle, the time for which the computer slept included.
    [[nodiscard]] std::chrono::milliseconds idleTime() const;
    // Whether a request has a chance here: not closed, not idle for long, the peer heard lately.
    [[nodiscard]] bool isUsable() const;

    // For the time of a request; a peer that is silent for `silenceLimit` breaks the connection.
    void use(Receiver receiver, std::chrono::milliseconds silenceLimit);
    // The request is over, and nothing of it is left to be sent or received.
    void release();
    void write(boost::asio::const_buffer buffer, const NetworkStream::Done &done);
    void close();
    [[nodiscard]] int descriptor() const { return m_opened.stream->descriptor(); }

private:
    void listen();
    void receive(ErrorCode error, std::size_t size);

    const HttpAddress m_origin;
    OpenedConnection m_opened;
    Receiver m_receiver; // empty while idle
    boost::asio::steady_timer m_expiry; // so that no server is kept connected for long
    std::chrono::milliseconds m_idleSince{};
    bool m_isClosed = false;
    std::array<char, 16 * 1024> m_buffer{};
};
