// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>

// Runs the event loop until the condition holds or the limit has passed; returns the condition.
[[nodiscard]] bool waitUntil(const std::function<bool()> &condition,
                             std::chrono::milliseconds limit = std::chrono::seconds(10));

// How long the operation took, in milliseconds.
[[nodiscard]] qint64 millisecondsOf(const std::function<void()> &operation);
