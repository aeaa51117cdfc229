// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Farewell.h"

#include "AppLogger.h"

#include <atomic>
#include <cstdlib>

namespace {

std::atomic<bool> hasBeenSaid = false;

void sayAtExit()
{
    Farewell::say();
    AppLogger::drain();
}

} // namespace

void Farewell::install()
{
    // An exit handler runs before the objects made earlier are destroyed: the logger is made here.
    AppLogger::drain();
    std::atexit(sayAtExit);
}

void Farewell::say()
{
    if (!hasBeenSaid.exchange(true))
        AppLogger::info(QStringLiteral("Application will terminate."));
}
