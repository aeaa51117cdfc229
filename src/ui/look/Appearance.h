// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Palette.h"

// How every window of the application looks, and which language Qt's own texts have.
namespace Appearance {

// Puts the widget style, the font, the colours of the scheme in force, the windows' icon and Qt's
// Chinese texts in place. To be called once, before the first window.
void install();
// Changes the scheme; what is on the screen follows at once.
void setColorScheme(ColorScheme scheme);

} // namespace Appearance
