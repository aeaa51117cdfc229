// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

// The last line of the log, written once however the process ends.
namespace Farewell {

// Writes the line at exit() too, and then has `writeOut` save what is still to be saved: Qt leaves
// that way, without a word, when the X server dies.
void install(std::function<void()> writeOut);
// Writes "Application will terminate." unless it has been written.
void say();
// The desktop has died: writes the line and ends the process with status 1. Any thread.
[[noreturn]] void sayAndEnd();

} // namespace Farewell
