// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// On a Wayland desktop, which lets no application hear keys or type into windows by itself, we run
// through XWayland and reach what runs there. On an X desktop none of this does anything.
namespace WaylandSession {

// Makes Qt choose XWayland, unless the user has chosen with QT_QPA_PLATFORM. Where there is none,
// Wayland is left, so that the application can say what is missing. Call it before the application
// object is made.
void useXWayland();

// Says in the log and on the terminal what will not work.
void warnOfLimits();

} // namespace WaylandSession
