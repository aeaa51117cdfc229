// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>

// What the kernel knows of the other end of a TCP connection.
namespace TcpPeer {

struct State
{
    std::uint64_t acknowledgedBytes = 0; // of all that was sent on this connection
    std::chrono::milliseconds sinceHeard{}; // since the peer last sent or acknowledged anything
};

// Sends small segments at once, and has a peer that is silent asked every two seconds whether it is
// still there.
void watch(int socket);
// Breaks the connection when the peer has acknowledged nothing of what it was sent or asked for so
// long.
void setSilenceLimit(int socket, std::chrono::milliseconds limit);
// Zeros when the socket is no longer connected, or not by TCP.
[[nodiscard]] State state(int socket);

} // namespace TcpPeer
