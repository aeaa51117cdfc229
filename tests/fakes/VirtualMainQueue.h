// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MainQueue.h"

#include <map>
#include <mutex>

// A main queue whose clock only the test turns: nothing runs but inside runReady(), advance() and
// runUntil().
class VirtualMainQueue final : public MainQueue
{
public:
    using Duration = std::chrono::milliseconds;

    ~VirtualMainQueue() override { close(); }

    void post(Work work) override { postAfter(Duration::zero(), std::move(work)); }

    void postAfter(Duration delay, Work work) override
    {
        enqueueAfter(delay, {std::move(work), {}});
    }

    std::unique_ptr<RepeatingTimer> repeatEvery(Duration interval, Work work) override
    {
        auto timer = std::make_unique<Timer>();
        scheduleTick(interval, timer->m_isAlive, std::make_shared<Work>(std::move(work)));
        return timer;
    }

    void close() override
    {
        std::multimap<Duration, Entry> dropped;
        {
            const std::lock_guard lock(m_mutex);
            m_isClosed = true;
            dropped.swap(m_entries);
        }
        for (const auto &[due, entry] : dropped)
            if (entry.abandon)
                entry.abandon();
    }

    [[nodiscard]] bool isClosed() const override
    {
        const std::lock_guard lock(m_mutex);
        return m_isClosed;
    }

    // How much would still run if the clock were turned on: nothing when all is idle.
    [[nodiscard]] size_t scheduled() const
    {
        const std::lock_guard lock(m_mutex);
        return m_entries.size();
    }

    // Runs what is due now, and what that posts in turn.
    void runReady() { advance(Duration::zero()); }

    // Turns the clock on, running what falls due in its order, each at its own time.
    void advance(Duration duration)
    {
        const auto end = m_now + duration;
        while (runNext(end)) {}
        const std::lock_guard lock(m_mutex);
        m_now = end;
    }

    // Runs what workers make due until the condition holds; false at the limit, in real time.
    [[nodiscard]] bool runUntil(const std::function<bool()> &condition,
                                Duration limit = std::chrono::seconds(10))
    {
        const auto deadline = std::chrono::steady_clock::now() + limit;
        for (runReady(); !condition(); runReady()) {
            if (std::chrono::steady_clock::now() > deadline)
                return false;
            std::this_thread::sleep_for(Duration(1));
        }
        return true;
    }

private:
    struct Timer final : RepeatingTimer
    {
        ~Timer() override { *m_isAlive = false; }
        const std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
    };

    bool enqueue(Entry entry) override { return enqueueAfter(Duration::zero(), std::move(entry)); }

    bool enqueueAfter(Duration delay, Entry entry)
    {
        const std::lock_guard lock(m_mutex);
        if (m_isClosed)
            return false;
        m_entries.emplace(m_now + delay, std::move(entry));
        return true;
    }

    bool runNext(Duration end)
    {
        Entry entry;
        {
            const std::lock_guard lock(m_mutex);
            const auto next = m_entries.begin();
            if (next == m_entries.end() || next->first > end)
                return false;
            m_now = std::max(m_now, next->first);
            entry = std::move(next->second);
            m_entries.erase(next);
        }
        entry.run();
        return true;
    }

    void scheduleTick(Duration interval,
                      const std::shared_ptr<bool> &isAlive,
                      const std::shared_ptr<Work> &work)
    {
        postAfter(interval, [this, interval, isAlive, work] {
            if (!*isAlive)
                return;
            scheduleTick(interval, isAlive, work);
            (*work)();
        });
    }

    mutable std::mutex m_mutex;
    std::multimap<Duration, Entry> m_entries; // by due time, then in posting order
    Duration m_now = Duration::zero();
    bool m_isClosed = false;
};
