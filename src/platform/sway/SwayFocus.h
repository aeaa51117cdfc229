// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FocusedApplication.h"

// The application that has the keyboard in sway, of Wayland or X. On an empty workspace it has no
// names; when no part of the desktop has the keyboard, a screen locker or a launcher holds it. Any
// thread.
[[nodiscard]] FocusedApplication focusedApplicationInSway();
