// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <chrono>

// What a command left behind.
struct ProcessResult
{
    // -1 when the command could not be started, crashed or did not end within its limit.
    int exitCode = -1;
    QByteArray output;
    QByteArray errors;
};

// Runs a command to its end while the event loop keeps running.
ProcessResult runProcess(const QString &program,
                         const QStringList &arguments = {},
                         std::chrono::milliseconds limit = std::chrono::seconds(20));
// The same with a command line; words are separated by blanks, quotes keep them together.
ProcessResult runCommand(const QString &commandLine);

// A program that runs beside a test and is ended with this object.
class BackgroundProcess final : public QProcess
{
public:
    ~BackgroundProcess() override;
};
