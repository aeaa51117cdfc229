// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "CommandLine.h"

#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Option
{
    QLatin1StringView words; // as they follow each other
    Command command = Command::Start;
};

constexpr std::array options{
    Option{"--background"_L1, Command::StartInBackground},
    Option{"--show"_L1, Command::Show},
    Option{"--toggle"_L1, Command::Toggle},
    Option{"--cancel"_L1, Command::Cancel},
    Option{"--quit"_L1, Command::Quit},
    Option{"--autostart on"_L1, Command::AutostartOn},
    Option{"--autostart off"_L1, Command::AutostartOff},
    Option{"--autostart status"_L1, Command::AutostartStatus},
    Option{"--check"_L1, Command::Check},
    Option{"--check --online"_L1, Command::CheckOnline},
    Option{"--timings"_L1, Command::Timings},
    Option{"--help"_L1, Command::Help},
    Option{"-h"_L1, Command::Help},
    Option{"--version"_L1, Command::Version},
};

// Session managers and people who try another platform add these, each with a value.
constexpr std::array qtOptions{"-session"_L1, "-platform"_L1, "-display"_L1};

QStringList ownArguments(int argc, char **argv)
{
    QStringList own;
    for (int i = 1; i < argc; ++i)
        if (std::ranges::find(qtOptions, QLatin1StringView(argv[i])) != qtOptions.end())
            ++i;
        else
            own += QString::fromLocal8Bit(argv[i]);
    return own;
}

} // namespace

CommandLine CommandLine::parse(int argc, char **argv)
{
    CommandLine line;
    const auto words = ownArguments(argc, argv).join(u' ');
    const auto *const option = std::ranges::find(options, words, &Option::words);
    if (option != options.end())
        line.command = option->command;
    else if (!words.isEmpty())
        line.mistake = "there is no option "_L1 + words;
    return line;
}
