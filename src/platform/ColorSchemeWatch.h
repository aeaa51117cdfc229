// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ColorScheme.h"

#include <functional>

// Tells which colour scheme the user has chosen for the desktop. Main thread only.
class ColorSchemeWatch
{
public:
    using Handler = std::function<void(ColorScheme)>;

    virtual ~ColorSchemeWatch();

    // Asks for the scheme and keeps watching: the handler is called with the first answer and at
    // every change, never from within start(). On a desktop that has no such setting it is never
    // called.
    virtual void start(Handler handler) = 0;
};
