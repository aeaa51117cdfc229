// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

// What Qt's network library does not let its users say of the sockets it opens.
namespace TcpSockets {

// Turns Nagle's algorithm off for every TCP connection of this process: with it, the end of a
// request waits until the receiver has confirmed what came before, which takes a round trip or a
// delayed acknowledgement of 40 ms. Failures are ignored: requests are only slower then.
void sendWithoutDelay();

// How long ago the last byte came on any TCP connection of this process, counted from its
// establishment when none came yet: the library is silent until an answer's headers are complete.
// The longest time there is when there is no connection.
[[nodiscard]] std::chrono::milliseconds sinceLastReceived();

} // namespace TcpSockets
