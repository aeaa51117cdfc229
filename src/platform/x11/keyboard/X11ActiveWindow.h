// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

class X11Connection;

// The window that the window manager says is active; 0 when none is, or none of X. Any thread.
[[nodiscard]] quint32 activeWindow(X11Connection &connection);
