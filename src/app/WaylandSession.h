// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "WaylandDesktop.h"

#include <memory>

// How we run on a Wayland desktop. On an X desktop none of this does anything.
namespace WaylandSession {

// Connects to the compositor if it lets us paste everywhere, and has Qt make our windows its own.
// Under any other we run through XWayland and reach what runs there; where there is none, Wayland
// is left, so that the application can say what is missing. What the user has chosen with
// QT_QPA_PLATFORM stays. Call it before the application object is made.
[[nodiscard]] std::unique_ptr<WaylandDesktop> connect();

// Whether this is a Wayland desktop.
[[nodiscard]] bool isCurrent();

// Says in the log and on the terminal what will not work through XWayland.
void warnOfLimits();

} // namespace WaylandSession
