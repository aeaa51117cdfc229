// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

// The one clock of all measurements.
using Clock = std::chrono::steady_clock;
using Instant = Clock::time_point;

[[nodiscard]] inline double milliseconds(Instant from, Instant to)
{
    return std::chrono::duration<double, std::milli>(to - from).count();
}
