// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>

class X11Connection;

// The application with the keyboard focus.
struct X11FocusedApplication
{
    // What it has called its window: instance and class. Empty when there are none.
    QByteArrayList names;
    // What is typed now goes to another program, which has grabbed the keyboard.
    bool isKeyboardHeld = false;
};

// Asks in two round trips. A grab of our own is another program's too when a different connection
// has it.
[[nodiscard]] X11FocusedApplication focusedApplication(X11Connection &connection);
