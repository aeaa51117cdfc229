// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

class WaylandConnection;
class WaylandWindows;

// The windows of the desktop by wlroots' protocol for them.
namespace ForeignToplevels {

[[nodiscard]] bool isOffered(const WaylandConnection &connection);

// Keeps `windows`, which must not go before the connection's thread, up to date from now on.
void tell(WaylandConnection &connection, WaylandWindows &windows);

} // namespace ForeignToplevels
