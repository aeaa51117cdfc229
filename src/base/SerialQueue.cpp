// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SerialQueue.h"

#include <csignal>
#include <pthread.h>

#include <unistd.h>

namespace {

constexpr size_t maxThreadNameLength = 15;

// Starts a thread that leaves all signals to the others.
std::thread startWithoutSignals(const std::function<void()> &function)
{
    sigset_t all;
    sigset_t previous;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &previous);
    std::thread thread(function);
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
    return thread;
}

} // namespace

SerialQueue::SerialQueue(const std::string &label)
    : m_process(::getpid())
    , m_thread(startWithoutSignals([this] { run(); }))
{
    const auto cut = label.size() > maxThreadNameLength ? label.size() - maxThreadNameLength : 0;
    pthread_setname_np(m_thread.native_handle(), label.substr(cut).c_str());
}

SerialQueue::~SerialQueue()
{
    stop(std::chrono::hours(24));
}

void SerialQueue::submit(Work work)
{
    if (isForkedChild()) {
        work();
        return;
    }
    const std::lock_guard lock(m_mutex);
    if (m_isStopped) {
        work();
        return;
    }
    m_queued.push_back(std::move(work));
    ++m_submitted;
    m_submittedMore.notify_one();
}

bool SerialQueue::drain(std::chrono::milliseconds limit)
{
    if (isForkedChild() || isCurrentThread())
        return true;
    std::unique_lock lock(m_mutex);
    return m_ranOne.wait_for(
        lock, limit, [this, target = m_submitted] { return m_done >= target; });
}

bool SerialQueue::stop(std::chrono::milliseconds limit)
{
    if (isForkedChild() || !m_thread.joinable())
        return true;
    {
        const std::lock_guard lock(m_mutex);
        m_isStopped = true;
        m_submittedMore.notify_one();
    }
    const bool hasEnded = drain(limit);
    hasEnded ? m_thread.join() : m_thread.detach();
    return hasEnded;
}

bool SerialQueue::isCurrentThread() const
{
    return std::this_thread::get_id() == m_thread.get_id();
}

void SerialQueue::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_submittedMore.wait(lock, [this] { return m_isStopped || !m_queued.empty(); });
        if (m_queued.empty())
            return;
        {
            const auto work = std::move(m_queued.front());
            m_queued.pop_front();
            lock.unlock();
            work();
        }
        lock.lock();
        ++m_done;
        m_ranOne.notify_all();
    }
}

bool SerialQueue::isForkedChild() const
{
    return ::getpid() != m_process;
}
