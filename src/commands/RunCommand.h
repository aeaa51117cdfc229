// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

struct CommandLine;

// Does what a process was started for, as far as it takes no window, and returns the status to exit
// with; nothing when the application is to start. Says on the terminal what is wrong, in a line.
// Call it before the application object is made, with the arguments of main().
[[nodiscard]] std::optional<int> runCommand(const CommandLine &line, int argc, char **argv);
