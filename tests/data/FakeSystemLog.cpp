// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "FakeSystemLog.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <string>

namespace {

std::mutex mutex;
std::string ident;
QStringList lines;

} // namespace

extern "C" void openlog(const char *name, int /*options*/, int /*facility*/)
{
    const std::lock_guard lock(mutex);
    ident = name;
}

extern "C" void vsyslog(int /*priority*/, const char *format, va_list arguments)
{
    char text[4096];
    std::vsnprintf(text, sizeof text, format, arguments);
    const std::lock_guard lock(mutex);
    lines.append(QString::fromUtf8(ident.c_str()) + QStringLiteral(": ") + QString::fromUtf8(text));
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

QStringList FakeSystemLog::takeLines()
{
    const std::lock_guard lock(mutex);
    return std::exchange(lines, {});
}
