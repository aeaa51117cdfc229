// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Clock.h"

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

// A program started for a measurement; it is ended with this object.
class ChildProcess final
{
public:
    // Starts the program at once; what it prints goes to the descriptor, else nowhere, and what it
    // reads comes from the other. Throws std::system_error.
    explicit ChildProcess(const std::vector<std::string> &command, int output = -1, int input = -1);
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    [[nodiscard]] pid_t pid() const { return m_pid; }
    // Just before it was started.
    [[nodiscard]] Instant startedAt() const { return m_startedAt; }

    void signal(int number) const;
    // The exit status; -1 when a signal ended it. Throws std::runtime_error when it runs on.
    int waitForExit(std::chrono::seconds limit = std::chrono::seconds(20));

private:
    Instant m_startedAt;
    pid_t m_pid = -1;
    std::optional<int> m_status;
};

// Runs a program to its end; throws std::runtime_error unless it exits with 0.
void run(const std::vector<std::string> &command);
