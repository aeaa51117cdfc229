// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ProcessStart.h"

#include <QByteArrayList>
#include <QFile>

#include <ctime>

#include <unistd.h>

using namespace std::chrono;

namespace {

// The kernel counts from the boot, sleep included.
milliseconds sinceBoot()
{
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return duration_cast<milliseconds>(seconds(now.tv_sec) + nanoseconds(now.tv_nsec));
}

} // namespace

steady_clock::time_point processStart()
{
    const auto now = steady_clock::now();
    QFile file(QStringLiteral("/proc/self/stat"));
    if (!file.open(QIODevice::ReadOnly))
        return now;
    // Of the fields behind the name, which may hold anything, the twentieth.
    const auto line = file.readAll();
    const auto ticks = line.sliced(line.lastIndexOf(')') + 1).trimmed().split(' ').value(19);
    const auto started = milliseconds(ticks.toLongLong() * 1000 / ::sysconf(_SC_CLK_TCK));
    return ticks.isEmpty() ? now : now - (sinceBoot() - started);
}
