// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include <QDir>
#include <QFileInfo>

#include <cstdarg>
#include <mutex>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

std::mutex mutex; // guards what follows
QStringList systemLogLines;
QStringList syncs;

} // namespace

extern "C" void vsyslog(int /*priority*/, const char *format, va_list arguments)
{
    const std::lock_guard lock(mutex);
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

extern "C" int fsync(int file)
{
    const auto name = QFileInfo(u"/proc/self/fd/%1"_s.arg(file)).symLinkTarget();
    const std::lock_guard lock(mutex);
    syncs << QFileInfo(name).fileName().section(u'.', 1, 2)
            + (::gettid() == ::getpid() ? u" main"_s : u" other"_s);
    return static_cast<int>(::syscall(SYS_fsync, file));
}

QStringList DataTest::takeSyncs()
{
    const std::lock_guard lock(mutex);
    return std::exchange(syncs, {});
}

QStringList DataTest::takeSystemLogLines()
{
    AppLogger::drain();
    const std::lock_guard lock(mutex);
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
