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
    int exitCode = 0; // as shells tell it: 128 and the number of the signal that ended it
    QByteArray output;
    QByteArray errors;
};

// Runs a shell command while the event loop keeps running, and kills it at the limit.
ProcessResult runCommand(const QString &command,
                         std::chrono::milliseconds limit = std::chrono::seconds(20));

// Has the program, which is still to be started, end with this process however that ends: one that
// lived on would keep the run's output open, and hold it up.
void bindToThisProcess(QProcess &program);

// A program that runs beside a test and is ended with this object.
class BackgroundProcess final : public QProcess
{
public:
    BackgroundProcess() { bindToThisProcess(*this); }
    ~BackgroundProcess() override;
};
