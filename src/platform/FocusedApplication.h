// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>

#include <functional>

// The application with the keyboard focus.
struct FocusedApplication
{
    // What it has called its window, in any of the desktop's ways. Empty when there are none.
    QByteArrayList names;
    // What is typed now goes to another program, which holds the keyboard.
    bool isKeyboardHeld = false;
    // Nobody tells which application it is.
    bool isUnknown = false;

    // Asks the desktop; any thread.
    using Finder = std::function<FocusedApplication()>;
};
