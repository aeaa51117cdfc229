// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

class X11Connection;

// Whether the window that has the keyboard focus belongs to a terminal emulator.
[[nodiscard]] bool isFocusedWindowTerminal(const X11Connection &connection);
