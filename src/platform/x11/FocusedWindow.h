// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

struct xcb_connection_t;

// Whether the window that has the keyboard focus belongs to a terminal emulator.
[[nodiscard]] bool isFocusedWindowTerminal(xcb_connection_t *connection);
