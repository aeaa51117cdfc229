// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

// When this process was started, to 10 ms; now where the system does not tell.
[[nodiscard]] std::chrono::steady_clock::time_point processStart();
