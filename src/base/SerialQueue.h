// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include <sys/types.h>

// Runs work one piece after another, in the order of submission, on one thread of its own. Any
// thread may submit. The work must not throw.
class SerialQueue final
{
public:
    using Work = std::function<void()>;

    // The system shows at most the last 15 characters of the label as the thread's name.
    explicit SerialQueue(const std::string &label);
    // Stops, however long that takes.
    ~SerialQueue();
    SerialQueue(const SerialQueue &) = delete;
    SerialQueue &operator=(const SerialQueue &) = delete;

    // Queues the work. It runs at once, on the calling thread, when the queue has stopped and in a
    // forked child, which has no such thread.
    void submit(Work work);
    // Waits until all work submitted before has run; false when the limit passed first. On the
    // queue's own thread it returns at once.
    bool drain(std::chrono::milliseconds limit);
    // Runs what is queued and ends the thread; false when that took longer than the limit: the
    // thread then goes on by itself, and this object must stay.
    bool stop(std::chrono::milliseconds limit);

    [[nodiscard]] bool isCurrentThread() const;

private:
    void run();
    [[nodiscard]] bool isForkedChild() const;

    std::mutex m_mutex;
    std::condition_variable m_submittedMore;
    std::condition_variable m_ranOne;
    std::deque<Work> m_queued;
    // Counts of pieces of work since the start.
    unsigned long long m_submitted = 0;
    unsigned long long m_done = 0;
    bool m_isStopped = false;
    const pid_t m_process;
    std::thread m_thread;
};
