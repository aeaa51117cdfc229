// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

// A picture above everything else, at the bottom of the monitor that has the pointer. It never
// takes the keyboard focus, and clicks go through it. Main thread only.
class OverlaySurface
{
public:
    OverlaySurface() = default;
    virtual ~OverlaySurface();
    OverlaySurface(const OverlaySurface &) = delete;
    OverlaySurface &operator=(const OverlaySurface &) = delete;

    // Shows the picture in the place of the one before. Its pixel ratio is a whole number.
    virtual void show(const QImage &picture) = 0;
    virtual void hide() = 0;
};
