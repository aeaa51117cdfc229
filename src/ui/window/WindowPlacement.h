// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QWidget;

// How the application's regular windows stand on the desktop.
namespace WindowPlacement {

// A titled window that can be closed and resized, but not minimised.
inline constexpr Qt::WindowFlags regularWindow = Qt::Window | Qt::CustomizeWindowHint
    | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint
    | Qt::WindowCloseButtonHint;

// Moves the window into the middle of its screen.
void center(QWidget &window);
// Shows the window in front of the others and gives it the keyboard focus.
void bringToFront(QWidget &window);

} // namespace WindowPlacement
