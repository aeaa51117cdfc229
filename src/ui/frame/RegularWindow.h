// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

// A window of the application: it has a title, and can be closed and resized, but not minimised.
class RegularWindow : public QWidget
{
public:
    explicit RegularWindow(const QString &title);

    // Moves the window into the middle of its screen.
    void center();
    // Shows the window in front of the others and gives it the keyboard focus.
    void bringToFront();
};
