// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "PasteTurns.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>

// One paste, from the moment it has its turn until the application in front has fetched the text or
// is waited for no more.
class PasteDelivery final
{
public:
    // Is told how long after the keys the text was fetched; nothing when it was not.
    using Handler = std::function<void(std::optional<std::chrono::milliseconds> fetchedAfter)>;

    // The handler is called once at most, on the main thread.
    PasteDelivery(PasteTurns::Turn turn, Handler handler);

    // The keys are pressed from now on: what was fetched before has nothing to do with them. Any
    // thread.
    void begin();
    // The application in front has fetched the text. Main thread only.
    void noteFetch();
    // It is waited for no more; does nothing once the text was fetched. Main thread only.
    void giveUp();

private:
    using Clock = std::chrono::steady_clock;

    void end(std::optional<std::chrono::milliseconds> fetchedAfter);

    PasteTurns::Turn m_turn; // null once ended
    Handler m_handler;
    std::atomic<Clock::time_point> m_begin = Clock::time_point::max();
};
