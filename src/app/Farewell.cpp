// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Farewell.h"

#include "AppLogger.h"

#include <atomic>
#include <cstdlib>
#include <mutex>

namespace {

std::atomic<bool> hasBeenSaid = false;
std::function<void()> atExit;

void sayAtExit()
{
    if (hasBeenSaid)
        return; // who says it saves everything too
    Farewell::say();
    atExit();
    AppLogger::drain();
}

} // namespace

void Farewell::install(std::function<void()> writeOut)
{
    atExit = std::move(writeOut);
    // An exit handler runs before the objects made earlier are destroyed: the logger is made here.
    AppLogger::drain();
    std::atexit(sayAtExit);
}

void Farewell::say()
{
    if (!hasBeenSaid.exchange(true))
        AppLogger::info(QStringLiteral("Application will terminate."));
}

void Farewell::sayAndEnd()
{
    static std::mutex once; // two threads may notice
    const std::lock_guard lock(once);
    sayAtExit();
    // Nothing can be shown or heard any more, and the main thread may be in the middle of anything.
    std::_Exit(EXIT_FAILURE);
}
