// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>

class X11Connection;

// The names that the application with the keyboard focus has given its window: instance and class.
// Empty when there are none.
[[nodiscard]] QByteArrayList focusedApplicationNames(X11Connection &connection);
