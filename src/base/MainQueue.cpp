// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "MainQueue.h"

#include <future>

CancelledError::CancelledError()
    : LocalizedError(QStringLiteral("The operation was cancelled."))
{}

RepeatingTimer::~RepeatingTimer() = default;

MainQueue::~MainQueue() = default;

void MainQueue::runAndWait(const Work &work)
{
    if (isMainThread()) {
        work();
        return;
    }
    // Shared with the entry: the waiting call may have returned before the setter is done with it.
    const auto done = std::make_shared<std::promise<void>>();
    auto result = done->get_future();
    const auto run = [&work, done] {
        try {
            work();
            done->set_value();
        } catch (...) {
            done->set_exception(std::current_exception());
        }
    };
    const auto abandon = [done] { done->set_exception(std::make_exception_ptr(CancelledError())); };
    if (!enqueue({run, abandon}))
        throw CancelledError();
    result.get();
}
