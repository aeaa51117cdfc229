// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clock.h"

struct xcb_connection_t;

// Presses the application's default hotkey, Super + Shift + Space, as a keyboard would.
class HotKey final
{
public:
    // Opens the display of $DISPLAY. Throws std::runtime_error.
    HotKey();
    ~HotKey();
    HotKey(const HotKey &) = delete;
    HotKey &operator=(const HotKey &) = delete;

    // Presses and releases it; returns the moment just before Space went down.
    Instant press();

private:
    void fake(bool isPress, unsigned char keyCode);

    xcb_connection_t *m_connection;
};
