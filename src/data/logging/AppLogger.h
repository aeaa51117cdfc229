// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <exception>

// Writes one English line an event to the log file, on a queue of its own: callers never wait for
// the disk. Any thread may log.
namespace AppLogger {

void info(const QString &message);
void warning(const QString &message);
// With an error, " error=" and its description follow the message.
void error(const QString &message, const std::exception_ptr &error = {});

// Returns when every line submitted before has been written. A disk that hangs is waited for two
// seconds, and a line in the system's log then says so.
void drain();

// Logs the type and what() of an exception that nobody caught before the process dies.
void installCrashLogging();
// Prepares the log folder and opens it in the file manager. Main thread only.
void openLogFolder();

[[nodiscard]] QUrl logDirectoryURL();
[[nodiscard]] QUrl logFileURL();
// The log file as messages show it.
[[nodiscard]] QString logPathDisplay();

} // namespace AppLogger
