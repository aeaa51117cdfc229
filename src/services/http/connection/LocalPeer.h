// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// What the kernel knows of the other end of a connection to a unix socket.
namespace LocalPeer {

// Whether it was this user's program that began to listen there; false when that cannot be told.
[[nodiscard]] bool isThisUser(int socket);

} // namespace LocalPeer
