// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "BackgroundTasks.h"

BackgroundTasks::~BackgroundTasks()
{
    waitForDone();
}

void BackgroundTasks::start(std::function<void()> task)
{
    joinEnded();
    auto &entry = m_tasks.emplace_back();
    entry.thread = std::thread([this, &entry, task = std::move(task)] {
        task();
        const std::lock_guard lock(m_mutex);
        entry.hasEnded = true;
    });
}

void BackgroundTasks::waitForDone()
{
    for (auto &task : m_tasks)
        task.thread.join();
    m_tasks.clear();
}

void BackgroundTasks::joinEnded()
{
    m_tasks.remove_if([this](Task &task) {
        {
            const std::lock_guard lock(m_mutex);
            if (!task.hasEnded)
                return false;
        }
        task.thread.join();
        return true;
    });
}
