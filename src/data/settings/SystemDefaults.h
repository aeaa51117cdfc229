// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AppConfig.h"

// What a new configuration begins with on this machine: the template, with the values that its
// administrator has set in "wrenfold/defaults.json" of the first of $XDG_CONFIG_DIRS (/etc/xdg)
// that has one. It is of the form of "config.json", with any part of its keys. Throws
// LocalizedError when it cannot be read or has a value of another type: what it says may be where
// speech must not go.
[[nodiscard]] AppConfig newConfigOfThisMachine();
