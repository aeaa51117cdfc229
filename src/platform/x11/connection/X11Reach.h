// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// The programs that share the desktop with us.
enum class X11Reach {
    X,
    XWayland, // those of Wayland too, whose windows X does not know
};
