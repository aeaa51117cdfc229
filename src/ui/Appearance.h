// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Palette.h"

// How every window of the application looks: its widget style, font and colours.
namespace Appearance {

// Puts the look in place, in the scheme in force. To be called once, before the first window.
void install();
// Changes the scheme; what is on the screen follows at once.
void setColorScheme(ColorScheme scheme);

} // namespace Appearance
