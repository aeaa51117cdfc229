// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// What Qt's network library does not let its users say of the sockets it opens.
namespace TcpSockets {

// Turns Nagle's algorithm off for every TCP connection of this process: with it, the end of a
// request waits until the receiver has confirmed what came before, which takes a round trip or a
// delayed acknowledgement of 40 ms. Failures are ignored: requests are only slower then.
void sendWithoutDelay();

} // namespace TcpSockets
