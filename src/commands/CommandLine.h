// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What a process was started for.
enum class Command {
    Start,
    StartInBackground,
    Show,
    Toggle,
    Cancel,
    Quit,
    AutostartOn,
    AutostartOff,
    AutostartStatus,
    Check,
    CheckOnline,
    Timings,
    Help,
    Version,
};

// The arguments of one start, understood.
struct CommandLine
{
    // Of the arguments of main(). The few that Qt takes itself are left to it.
    [[nodiscard]] static CommandLine parse(int argc, char **argv);

    Command command = Command::Start;
    // What is wrong with the arguments, in a sentence; empty when nothing is.
    QString mistake;
};
