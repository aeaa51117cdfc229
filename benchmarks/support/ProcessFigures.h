// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <sys/types.h>

// What the kernel counts for a program: a process with all its descendants, where not said
// otherwise. Memory is in kB.
namespace ProcessFigures {

// The process and its descendants.
[[nodiscard]] std::vector<pid_t> processTree(pid_t root);

struct Memory
{
    long resident = 0;
    long proportional = 0; // shared pages divided among the processes that share them
};
[[nodiscard]] Memory memory(pid_t root);

// Of one process: the most that was ever resident since the start or the last reset.
[[nodiscard]] long peakResident(pid_t process);
void resetPeakResident(pid_t process);

struct Activity
{
    double cpuMilliseconds = 0;
    // How often a thread began to run again: context switches, voluntary or not.
    std::int64_t wakeUps = 0;
};
// Since the start of the threads that are alive.
[[nodiscard]] Activity activity(pid_t root);

} // namespace ProcessFigures
