// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// Whether an interface is drawn dark on light or light on dark.
enum class ColorScheme {
    Light,
    Dark,
};
