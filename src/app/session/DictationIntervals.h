// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

// The times by which a dictation session acts on its own. How long the overlay shows a message
// stands with the message.
namespace DictationIntervals {

using namespace std::chrono_literals;

// How often the level meter moves: thirty times a second.
inline constexpr auto level = 33ms;
// How long a start waits for the desktop's word about the microphone before it goes on without.
inline constexpr auto permissionAnswer = 100ms;
// A stage that takes longer than this is said to be slow.
inline constexpr auto slowStageAfter = 8000ms;
// Servers close idle connections; opening them again costs nothing while they live.
inline constexpr auto connections = 10'000ms;
// How long an interrupted recording waits for the press that has it processed.
inline constexpr auto interrupted = 10'000ms;

} // namespace DictationIntervals
