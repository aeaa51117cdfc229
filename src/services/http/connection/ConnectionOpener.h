// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ConnectRace.h"
#include "NetworkStream.h"
#include "ProxyHandshake.h"
#include "RouteLookup.h"
#include "TlsContext.h"

#include <array>
#include <exception>

// What connections are made with, shared by all of a session.
struct ConnectionMakers
{
    boost::asio::io_context context{1};
    RouteLookup lookup{context};
    TlsContext tls;
};

// An open connection and the proxy that it was made with.
struct OpenedConnection
{
    std::unique_ptr<NetworkStream> stream;
    QNetworkProxy proxy;
};

// Opens one connection: finds the way, connects, has the proxy lead on and encrypts, each step
// within 20 seconds.
class ConnectionOpener final : public std::enable_shared_from_this<ConnectionOpener>
{
public:
    // The stream is null when there is an error, an HttpError.
    using Done = std::function<void(OpenedConnection, const std::exception_ptr &error)>;

    // `origin` names its port; the makers must outlive this object.
    ConnectionOpener(ConnectionMakers &makers, HttpAddress origin, Done done);

    void start();
    // Ends without a call.
    void abandon();

private:
    using ErrorCode = boost::system::error_code;

    // A step as the callback of the one before it: not taken once this has ended; what it throws,
    // and an error, is the end.
    [[nodiscard]] NetworkStream::Done then(void (ConnectionOpener::*step)(std::size_t));
    void startDeadline();
    void connectTo(const Route &route);
    void checkPeer(std::size_t ignored);
    void speakToProxy(std::size_t received);
    void listenToProxy(std::size_t sent);
    void encrypt();
    void finish(std::size_t ignored);
    void fail(const std::exception_ptr &error);
    void fail(ErrorCode error);

    ConnectionMakers &m_makers;
    const HttpAddress m_origin;
    Done m_done; // empty once it has ended
    boost::asio::steady_timer m_deadline;
    std::shared_ptr<ConnectRace> m_race;
    QNetworkProxy m_proxy;
    std::unique_ptr<NetworkStream> m_stream;
    std::unique_ptr<ProxyHandshake> m_handshake;
    QByteArray m_toProxy;
    QByteArray m_fromProxy;
    std::array<char, 1024> m_buffer{};
};
