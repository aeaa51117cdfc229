// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "KeyRepeat.h"

#include <chrono>

// Tells presses from the repeats of a key that is held, where both arrive alike: the first repeat
// comes when the desktop's delay is over, the others close behind.
class RepeatFilter final
{
public:
    using Time = std::chrono::steady_clock::time_point;

    // Whether what was made of the key at that time is a press. They may come out of order.
    [[nodiscard]] bool isPress(Time when, const KeyRepeat &repeat);

private:
    Time m_last;
    Time m_lastPress;
    bool m_isHeld = false; // as far as known: its repeats have been seen
};
