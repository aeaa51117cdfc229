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
    QLatin1StringView name;
    Command command;
};

constexpr std::array options{
    Option{"--background"_L1, Command::StartInBackground},
    Option{"--show"_L1, Command::Show},
    Option{"--toggle"_L1, Command::Toggle},
    Option{"--cancel"_L1, Command::Cancel},
    Option{"--quit"_L1, Command::Quit},
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
    const auto words = ownArguments(argc, argv);
    if (words.isEmpty())
        return line;
    const auto *const option = std::ranges::find(options, words.first(), &Option::name);
    if (option == options.end())
        line.mistake = "there is no option "_L1 + words.first();
    else if (words.size() > 1)
        line.mistake = words.first() + " takes nothing after it, but there is "_L1 + words[1];
    else
        line.command = option->command;
    return line;
}
