// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "RunCommand.h"

#include "AppRuntime.h"
#include "Autostart.h"
#include "CommandLine.h"
#include "FileError.h"
#include "GnomeModule.h"
#include "InstanceChannel.h"
#include "LogFile.h"
#include "Timings.h"
#include "Version.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

enum ExitStatus {
    Done = 0,
    Failed = 1,
    NotUnderstood = 2,
    NotRunning = 3,
};

int fail(const QString &what, ExitStatus status)
{
    std::fprintf(stderr, "wrenfold: %s\n", qUtf8Printable(what));
    return status;
}

int print(const QByteArray &text)
{
    std::fputs(text.constData(), stdout);
    return std::fflush(stdout) == 0 ? Done : fail(u"cannot write this"_s, Failed);
}

QByteArray helpText()
{
    QFile file(u":/help/usage.txt"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray versionText()
{
    return (AppRuntime::appName + " "_L1 + AppRuntime::version() + u'\n').toUtf8();
}

int statusOf(InstanceAnswer answer)
{
    switch (answer) {
    case InstanceAnswer::Done:
        return Done;
    case InstanceAnswer::NotRunning:
        return fail(u"not running in this session"_s, NotRunning);
    case InstanceAnswer::NoAnswer:
        return fail(u"the running Wrenfold does not answer"_s, Failed);
    case InstanceAnswer::NoBus:
        return fail(u"there is no session bus to reach it over"_s, Failed);
    }
    Q_UNREACHABLE();
}

int printTimings()
{
    try {
        return print(Timings::table(LogFile::contents()));
    } catch (const FileError &error) {
        return fail(error.localizedDescription(), Failed);
    }
}

// Shown by the running instance, or by the one that this process becomes.
std::optional<int> show()
{
    if (InstanceChannel::ask(InstanceCommand::ShowMainWindow) == InstanceAnswer::Done)
        return Done;
    return {};
}

int printAutostart()
{
    return print(Autostart::isOn() ? "on\n" : "off\n");
}

// By the file that runs, not by the name that it was called by.
int setAutostart(bool isOn)
{
    try {
        if (isOn)
            Autostart::turnOn(QCoreApplication::applicationFilePath());
        else
            Autostart::turnOff();
    } catch (const FileError &error) {
        return fail(error.localizedDescription(), Failed);
    }
    return Done;
}

bool takesDesktop(Command command)
{
    return command == Command::Start || command == Command::StartInBackground
        || command == Command::Check || command == Command::CheckOnline;
}

// An instance that crashed may have left its hotkey and Escape to us on the whole desktop.
InstanceAnswer press(InstanceCommand command)
{
    const auto answer = InstanceChannel::ask(command);
    const auto keybindings =
        answer == InstanceAnswer::NotRunning ? GnomeModule::openKeybindings() : nullptr;
    if (keybindings)
        keybindings->removeAll();
    return answer;
}

// Qt would end the process with a crash.
bool hasDesktop()
{
    return std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"},
                               [](const char *name) { return qEnvironmentVariableIsSet(name); });
}

std::optional<int> dispatch(Command command)
{
    switch (command) {
    case Command::Show:
        return show();
    case Command::Toggle:
        return statusOf(press(InstanceCommand::ToggleRecording));
    case Command::Cancel:
        return statusOf(press(InstanceCommand::CancelRecording));
    case Command::Quit:
        return statusOf(InstanceChannel::askToQuit());
    case Command::AutostartOn:
        return setAutostart(true);
    case Command::AutostartOff:
        return setAutostart(false);
    case Command::AutostartStatus:
        return printAutostart();
    case Command::Timings:
        return printTimings();
    case Command::Help:
        return print(helpText());
    case Command::Version:
        return print(versionText());
    default:
        break;
    }
    return {};
}

} // namespace

std::optional<int> runCommand(const CommandLine &line, int argc, char **argv)
{
    if (!line.mistake.isEmpty())
        return fail(line.mistake + "; wrenfold --help shows those there are"_L1, NotUnderstood);
    if (takesDesktop(line.command))
        return hasDesktop() ? std::optional<int>() : fail(u"there is no desktop here"_s, Failed);
    // The bus wants one; it is gone again before the application's own is made.
    const QCoreApplication application(argc, argv);
    return dispatch(line.command);
}
