// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <boost/asio/generic/stream_protocol.hpp>
#include <boost/asio/ssl/context.hpp>
#include <boost/asio/ssl/stream.hpp>
#include <functional>
#include <optional>
#include <string>

// A connection over TCP, encrypted or not, or to a unix socket. Its operations end through their
// callbacks, on the thread of its executor; the stream must live until then.
class NetworkStream final
{
public:
    using Socket = boost::asio::generic::stream_protocol::socket;
    using ErrorCode = boost::system::error_code;
    using Done = std::function<void(ErrorCode, std::size_t)>;

    explicit NetworkStream(Socket socket);

    // Speaks TLS from here on, with a peer that can prove to be `host`.
    void encrypt(boost::asio::ssl::context &tls,
                 const std::string &host,
                 const std::function<void(ErrorCode)> &done);
    // Why the peer's certificate was refused; empty when it was not.
    [[nodiscard]] std::string certificateError();

    // One read and one write may be under way at a time.
    void read(boost::asio::mutable_buffer buffer, const Done &done);
    // Writes all of it.
    void write(boost::asio::const_buffer buffer, const Done &done);
    // Ends what is under way with an error.
    void close();
    [[nodiscard]] int descriptor() { return m_socket.native_handle(); }

private:
    Socket m_socket;
    std::optional<boost::asio::ssl::stream<Socket &>> m_tls;
};
