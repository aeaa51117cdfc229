// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include <QDir>

#include <cstdarg>
#include <mutex>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

std::mutex systemLogMutex;
QStringList systemLogLines;

} // namespace

extern "C" void vsyslog(int /*priority*/, const char *format, va_list arguments)
{
    const std::lock_guard lock(systemLogMutex);
    systemLogLines.append(QString::vasprintf(format, arguments));
}

extern "C" void syslog(int priority, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    vsyslog(priority, format, arguments);
    va_end(arguments);
}

// What a hardened build calls in its place.
extern "C" void __syslog_chk(int priority, int /*flag*/, const char *format, ...) // NOLINT
{
    va_list arguments;
    va_start(arguments, format);
    vsyslog(priority, format, arguments);
    va_end(arguments);
}

QStringList DataTest::takeSystemLogLines()
{
    AppLogger::drain();
    const std::lock_guard lock(systemLogMutex);
    return std::exchange(systemLogLines, {});
}

uint DataTest::modeOf(const QString &path)
{
    struct stat status = {};
    EXPECT_EQ(::stat(qPrintable(path), &status), 0) << qPrintable(path);
    return status.st_mode & 07777;
}

QStringList DataTest::namesIn(const QString &directory)
{
    return QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}
