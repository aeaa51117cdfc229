// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Process.h"

#include "WaitUntil.h"

ProcessResult
runProcess(const QString &program, const QStringList &arguments, std::chrono::milliseconds limit)
{
    QProcess process;
    process.start(program, arguments);
    const bool hasEnded = process.waitForStarted()
        && waitUntil([&process] { return process.state() == QProcess::NotRunning; }, limit);
    if (!hasEnded)
        process.kill();
    process.waitForFinished();
    const bool isNormal = hasEnded && process.exitStatus() == QProcess::NormalExit;
    return {isNormal ? process.exitCode() : -1,
            process.readAllStandardOutput(),
            process.readAllStandardError()};
}

ProcessResult runCommand(const QString &commandLine)
{
    auto words = QProcess::splitCommand(commandLine);
    const auto program = words.takeFirst();
    return runProcess(program, words);
}

BackgroundProcess::~BackgroundProcess()
{
    kill();
    waitForFinished();
}
