// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "EventLoopMainQueue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

namespace {

class QtRepeatingTimer final : public RepeatingTimer
{
public:
    QtRepeatingTimer(std::chrono::milliseconds interval, MainQueue::Work work)
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, std::move(work));
        m_timer.start(interval);
    }

private:
    QTimer m_timer;
};

} // namespace

EventLoopMainQueue::EventLoopMainQueue() = default;

EventLoopMainQueue::~EventLoopMainQueue()
{
    close();
}

void EventLoopMainQueue::post(Work work)
{
    enqueue({std::move(work), {}});
}

void EventLoopMainQueue::postAfter(std::chrono::milliseconds delay, Work work)
{
    if (isMainThread()) {
        QTimer::singleShot(delay, Qt::PreciseTimer, this, [this, work = std::move(work)] {
            if (!m_isClosed)
                work();
        });
        return;
    }
    const auto due = std::chrono::steady_clock::now() + delay;
    post([this, due, work = std::move(work)]() mutable {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(due - std::chrono::steady_clock::now());
        postAfter(std::max(left, std::chrono::milliseconds::zero()), std::move(work));
    });
}

std::unique_ptr<RepeatingTimer> EventLoopMainQueue::repeatEvery(std::chrono::milliseconds interval,
                                                                Work work)
{
    return std::make_unique<QtRepeatingTimer>(interval, std::move(work));
}

void EventLoopMainQueue::close()
{
    std::deque<Entry> dropped;
    {
        const std::lock_guard lock(m_mutex);
        m_isClosed = true;
        dropped.swap(m_entries);
    }
    for (const auto &entry : dropped)
        if (entry.abandon)
            entry.abandon();
}

bool EventLoopMainQueue::isClosed() const
{
    const std::lock_guard lock(m_mutex);
    return m_isClosed;
}

bool EventLoopMainQueue::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    runOne();
    return true;
}

bool EventLoopMainQueue::enqueue(Entry entry)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_isClosed)
            return false;
        m_entries.push_back(std::move(entry));
    }
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    return true;
}

void EventLoopMainQueue::runOne()
{
    Entry entry;
    {
        const std::lock_guard lock(m_mutex);
        if (m_entries.empty())
            return;
        entry = std::move(m_entries.front());
        m_entries.pop_front();
    }
    entry.run();
}
