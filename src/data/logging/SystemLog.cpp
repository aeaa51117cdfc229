// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SystemLog.h"

#include "AppRuntime.h"

#include <cstdio>

#include <syslog.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

void SystemLog::report(const QString &message)
{
    const auto line = QString(AppRuntime::appName + u' ' + message).toUtf8();
    ::openlog(AppRuntime::appName.data(), LOG_PID, LOG_USER);
    ::syslog(LOG_ERR, "%s", line.constData());
    if (::isatty(STDERR_FILENO) == 1)
        std::fprintf(stderr, "%s\n", line.constData());
}
