// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <list>
#include <mutex>
#include <thread>

// Runs plain sequential work off the main thread, one thread a task, and waits for all of it when
// asked or destroyed.
class BackgroundTasks final
{
public:
    BackgroundTasks() = default;
    ~BackgroundTasks();
    BackgroundTasks(const BackgroundTasks &) = delete;
    BackgroundTasks &operator=(const BackgroundTasks &) = delete;

    // Starts the task at once. It must not throw.
    void start(std::function<void()> task);
    // Returns when every task started before has ended.
    void waitForDone();

private:
    struct Task
    {
        std::thread thread;
        bool hasEnded = false; // guarded by m_mutex
    };

    void joinEnded();

    std::mutex m_mutex;
    std::list<Task> m_tasks; // changed on the starting thread only
};
