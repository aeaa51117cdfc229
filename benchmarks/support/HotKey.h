// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clock.h"

#include <functional>
#include <vector>

// Presses the hotkey of Application::configure() as a keyboard would: on the display, or by the
// program that the environment variable WRENFOLD_BENCH_KEYBOARD names, where keys are pressed in
// another way.
class HotKey final
{
public:
    // Throws std::runtime_error when there is no display, or no keyboard.
    HotKey();

    // Presses and releases it; returns the moment just before its last key went down.
    Instant press();

private:
    // Presses the keys that are positive, by the kernel's codes, and releases the others.
    std::function<void(const std::vector<int> &keys)> m_move;
};
