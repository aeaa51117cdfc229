// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "LocalizedError.h"

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

// Thrown out of MainQueue::runAndWait when the queue closes instead of running the work.
class CancelledError final : public LocalizedError
{
public:
    CancelledError();
};

// A running repeating timer; destroying it stops it. Main thread only.
class RepeatingTimer
{
public:
    RepeatingTimer() = default;
    virtual ~RepeatingTimer();
    RepeatingTimer(const RepeatingTimer &) = delete;
    RepeatingTimer &operator=(const RepeatingTimer &) = delete;
};

// The only way onto the main thread, which owns all state. Posted work runs in posting order. The
// thread that makes the queue is its main thread.
// Every operation but repeatEvery may be called from any thread.
class MainQueue
{
public:
    using Work = std::function<void()>;

    MainQueue() = default;
    virtual ~MainQueue();
    MainQueue(const MainQueue &) = delete;
    MainQueue &operator=(const MainQueue &) = delete;

    // Runs the work on the main thread, later; dropped when the queue has closed.
    virtual void post(Work work) = 0;
    // The same, `delay` after this call.
    virtual void postAfter(std::chrono::milliseconds delay, Work work) = 0;
    // Runs the work on the main thread and returns when it has run, rethrowing what it threw. On
    // the main thread itself it runs at once. Throws CancelledError when the queue is closed.
    void runAndWait(const Work &work);
    // Runs the work on the main thread every `interval` until the timer is destroyed.
    [[nodiscard]] virtual std::unique_ptr<RepeatingTimer>
    repeatEvery(std::chrono::milliseconds interval, Work work) = 0;
    // Refuses new work, drops what is queued and fails what waits. Main thread only.
    virtual void close() = 0;
    // Whether the queue has closed: the application is on its way out.
    [[nodiscard]] virtual bool isClosed() const = 0;

protected:
    // Queued work; `abandon`, when there is one, is called instead of `run` if the queue closes
    // first.
    struct Entry
    {
        Work run;
        Work abandon;
    };

    [[nodiscard]] bool isMainThread() const { return std::this_thread::get_id() == m_mainThread; }
    // Queues the entry behind what is due now; false when the queue is closed. Any thread.
    virtual bool enqueue(Entry entry) = 0;

private:
    const std::thread::id m_mainThread = std::this_thread::get_id();
};
