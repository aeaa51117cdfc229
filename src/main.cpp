// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppDelegate.h"
#include "AppRuntime.h"
#include "Backends.h"
#include "Check.h"
#include "CommandLine.h"
#include "EventLoopMainQueue.h"
#include "RunCommand.h"
#include "TerminationSignals.h"
#include "Version.h"
#include "WaylandSession.h"

#include <QApplication>
#include <QTimer>

#include <cstdlib>
#include <malloc.h>

int main(int argc, char **argv)
{
    // Our few threads allocate little: a heap for each of them would only cost memory.
    mallopt(M_ARENA_MAX, 1);
    QApplication::setApplicationName(AppRuntime::appName);
    QApplication::setApplicationVersion(AppRuntime::version());
    QApplication::setDesktopFileName(AppRuntime::bundleIdentifier);
    const auto commandLine = CommandLine::parse(argc, argv);
    // Left at once: the bus connection has a thread that outlives what it uses.
    if (const auto status = runCommand(commandLine, argc, argv))
        std::quick_exit(*status);

    QApplication::setQuitOnLastWindowClosed(false);
    auto compositor = WaylandSession::connect();
    QApplication application(argc, argv);

    EventLoopMainQueue mainQueue;
    auto backends = makeBackends(mainQueue, std::move(compositor));
    if (commandLine.command == Command::Check || commandLine.command == Command::CheckOnline)
        std::quick_exit(runCheck(backends, commandLine.command == Command::CheckOnline));

    const auto mode = commandLine.command == Command::StartInBackground ? LaunchMode::InBackground
                                                                        : LaunchMode::ShowsWindow;
    AppDelegate delegate(mainQueue, std::move(backends));
    const TerminationSignals terminationSignals([] { QCoreApplication::quit(); });
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &application, [&delegate] {
        delegate.applicationWillTerminate();
    });
    QTimer::singleShot(
        0, &application, [&delegate, mode] { delegate.applicationDidFinishLaunching(mode); });
    const int status = QApplication::exec();
    // Everything of ours has ended. Qt would still wait for its resolver threads, which a name
    // server that does not answer holds for many seconds.
    std::quick_exit(status);
}
