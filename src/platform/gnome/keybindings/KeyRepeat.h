// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

// What the desktop makes of a key that is held down.
struct KeyRepeat
{
    bool isOn = true;
    std::chrono::milliseconds delay{500}; // from the press to the first repeat
};
